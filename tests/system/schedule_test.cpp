// What the schedule and the music's clock do in the real program, and what may get in their way.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/real_desk.h"

namespace marlex {
namespace {

using stage::Recording;
using stage::Span;
using testing::ElementsAre;

// Bytes of our own level, High.
constexpr int kMusicZones = 128 + 3;
constexpr int kRowZones = 128 + 4;

stage::InstallationFiles WithRow(const std::string& messages, const std::string& minutes = "00") {
  stage::InstallationFiles files = TwoSongs(90);
  files.Sequences = {{"Opening", messages, "09", minutes, "003000"}};
  return files;
}

/// The stretches of time, in seconds, during which a tone is heard.
double Sounding(const Recording& heard, double frequency) {
  double seconds = 0;
  for (const Span& span : heard.Tone(frequency, kHeardDb)) seconds += span.Sounding;
  return seconds;
}

TEST(Announcement, WithoutMusicItGoesIntoItsZonesAndReleasesThem) {
  stage::InstallationFiles files = WithRow("Short,Short");
  files.Autostart = false;
  RealDesk desk(files);
  desk.Start("2031-05-05 08:59:54");
  ASSERT_TRUE(desk.AwaitTone(kMessage));
  ASSERT_TRUE(desk.AwaitBytes(2));
  desk.RecordFor(1);
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kRowZones, 0));
  const Recording heard = desk.Card->Take();
  EXPECT_NEAR(Sounding(heard, kMessage), 2, 0.1);
  EXPECT_EQ(Sounding(heard, kFirstSong), 0);
  const Span message = heard.Tone(kMessage, kHeardDb).front();
  EXPECT_NEAR(desk.Bytes()[0].Time - message.From, 0.2, 0.1);
  EXPECT_EQ(desk.Window->Read("frmMain.cmdStop", "enabled"), "no");
}

TEST(Announcement, ATakeoverInItsMiddleEndsItAndStatus0FreesTheDesk) {
  RealDesk desk(WithRow("Long,Long"));
  desk.Start("2031-05-05 08:59:54");
  ASSERT_TRUE(desk.AwaitTone(kMessage));
  ASSERT_TRUE(desk.AwaitBytes(2));
  const double taken = stage::Now();
  desk.Line->Send(128);
  ASSERT_TRUE(desk.AwaitSilence(5));
  desk.RecordFor(1);
  desk.Line->Send(0);
  ASSERT_TRUE(desk.Await("frmMain.lblHiPrio", "visible", "no"));
  desk.RecordFor(1.5);
  EXPECT_LT(desk.Card->LevelNowDb(1), kSilentDb);
  EXPECT_LT(desk.Card->Take().Tone(kMessage, kHeardDb).back().To - taken, 0.2);
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, kRowZones));
  ASSERT_TRUE(desk.Click("frmMain.cmdPlay"));
  EXPECT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(3));
  EXPECT_EQ(desk.Bytes().back().Value, kMusicZones);
}

TEST(MusicsClock, StartsTheMusicAtItsMinuteAndFadesItOutAtItsStop) {
  stage::InstallationFiles files = TwoSongs(90);
  files.Autostart = false;
  files.MusicStart = "09:00";
  files.MusicStop = "17:30";
  RealDesk desk(files);
  desk.Start("2031-05-05 08:59:54");
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  EXPECT_GE(desk.Bytes()[0].Time, desk.Clock->SteadyTimeOf("2031-05-05 09:00:00"));
  desk.Clock->Set("2031-05-05 17:29:58");
  ASSERT_TRUE(desk.AwaitBytes(2));
  EXPECT_TRUE(desk.AwaitSilence(5));
  EXPECT_GE(desk.Bytes()[1].Time, desk.Clock->SteadyTimeOf("2031-05-05 17:30:00"));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, 0));
  EXPECT_TRUE(desk.Await("frmMain.cmdStop", "enabled", "no"));
}

TEST(Conflict, IsSeenAndTheRowThatTheOperatorTakesOutIsNotHeard) {
  stage::InstallationFiles files = TwoSongs(90);
  files.Sequences = {{"A", "Short", "09", "00", "003000"}, {"B", "Other", "09", "00", "000400"}};
  files.Messages.push_back({"Other", stage::Tone(2500, 1, kTonePeak)});
  RealDesk desk(files);
  desk.Start("2031-05-05 08:59:40");
  ASSERT_TRUE(desk.Await("frmMain.lblConflict", "visible", "yes"));
  const auto cell = [&](int row, int column) {
    const std::string name = "cell " + std::to_string(row) + " " + std::to_string(column);
    return desk.Window->Read("frmMain.grdSchedule", name);
  };
  EXPECT_EQ(desk.Window->Read("frmMain.grdSchedule", "cell 1 0 colour"), kRed);
  EXPECT_EQ(desk.Window->Read("frmMain.grdSchedule", "cell 2 0 colour"), kRed);
  ASSERT_EQ(cell(1, 3), "A");
  ASSERT_TRUE(desk.DoubleClick("grdSchedule 1 0"));
  ASSERT_TRUE(desk.Await("frmMain.lblConflict", "visible", "no"));
  EXPECT_EQ(desk.Window->Read("frmMain.grdSchedule", "cell 2 0 colour"), kWhite);
  ASSERT_TRUE(desk.AwaitTone(2500, 60));
  ASSERT_TRUE(desk.AwaitBytes(3));
  EXPECT_EQ(Sounding(desk.Card->Take(), kMessage), 0);
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, 128 + 8, kMusicZones));
}

TEST(Line, PulledOutAndPluggedInAgainItCarriesWhatWasAskedMeanwhile) {
  RealDesk desk(TwoSongs(90));
  desk.Start();
  ASSERT_TRUE(desk.AwaitBytes(1));
  desk.Line->PullOut();
  ASSERT_TRUE(desk.Click("frmMain.cmdMusicZones_2"));
  desk.RecordFor(1);
  ASSERT_TRUE(desk.Click("frmMain.cmdMusicZones_4"));
  desk.RecordFor(1);
  EXPECT_TRUE(desk.IsLoud(kFirstSong));
  desk.Line->PlugIn();
  ASSERT_TRUE(desk.AwaitBytes(2));
  ASSERT_TRUE(desk.Click("frmMain.cmdMusicZones_3"));
  ASSERT_TRUE(desk.AwaitBytes(3));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, 128 + 23, 128 + 31));
  desk.Line->Send(192);
  EXPECT_TRUE(desk.AwaitSilence(5));
  EXPECT_EQ(desk.Window->Read("QMessageBox", "visible"), "");
}

TEST(SoundServer, WhenItDiesInMidMessageTheSequenceEndsAndTheMusicComesBack) {
  RealDesk desk(WithRow("Long,Short"));
  desk.Start("2031-05-05 08:59:54");
  ASSERT_TRUE(desk.AwaitTone(kMessage));
  ASSERT_TRUE(desk.AwaitBytes(2));
  desk.Server->Kill();
  const double killed = stage::Now();
  stage::WaitUntil([&] { return stage::Now() > killed + 2; }, 10);
  ASSERT_TRUE(desk.Program->IsRunning());
  desk.Server->Start({{"card"}, false});
  const double back = stage::Now();
  desk.StartRecording();
  ASSERT_TRUE(desk.AwaitTone(kMessage, 20));
  EXPECT_LT(stage::Now() - back, 3);
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(3));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, kRowZones, kMusicZones));
  EXPECT_TRUE(desk.Await("frmMain.cmdPlay", "enabled", "yes"));
}

}  // namespace
}  // namespace marlex
