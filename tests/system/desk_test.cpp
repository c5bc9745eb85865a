// The real program: start, exit and faults.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/real_desk.h"

namespace marlex {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(Start, AnEmptyFolderAsksForTheLanguageFirstAndKeepsIt) {
  RealDesk desk;
  desk.Start();
  ASSERT_TRUE(desk.Await("frmlangSel", "visible", "yes"));
  EXPECT_TRUE(desk.Await("frmlangSel.optLanguage_0", "checked", "yes"));
  EXPECT_NE(desk.Window->Read("frmLogo", "visible"), "yes");
  ASSERT_TRUE(desk.Click("frmlangSel.optLanguage_2"));
  ASSERT_TRUE(desk.Click("frmlangSel.cmdOK"));
  ASSERT_TRUE(desk.Await("frmLogo", "visible", "yes"));
  EXPECT_THAT(desk.ReadFile("Tolvo.ini"), HasSubstr("Language=German"));
}

TEST(Start, ASecondProgramShowsAnEmptyWarningAndEndsAndTheFirstPlaysOn) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  auto link = desk.MakeSecondLink();
  auto second = desk.StartSecond(*link);
  ASSERT_TRUE(stage::WaitUntil([&] { return link->Read("QMessageBox", "visible") == "yes"; }, 30));
  EXPECT_EQ(link->Read("QMessageBox", "text"), "");
  ASSERT_TRUE(desk.Click("QMessageBox.OK", *link));
  EXPECT_TRUE(second->WaitForEnd(10));
  EXPECT_TRUE(desk.Program->IsRunning());
  EXPECT_TRUE(desk.IsLoud(kFirstSong));
}

TEST(Start, WithoutASoundDeviceABoxSaysSoAndTheProgramEnds) {
  stage::StageOptions options = RealDeskOptions();
  options.HasSound = false;
  RealDesk desk(TwoSongs(1), options);
  desk.Start();
  ASSERT_TRUE(desk.Await("QMessageBox", "visible", "yes"));
  EXPECT_THAT(desk.Window->Read("QMessageBox", "text"), HasSubstr("Unable to detect a mixer:"));
  ASSERT_TRUE(desk.Click("QMessageBox.OK"));
  EXPECT_TRUE(desk.Program->WaitForEnd(10));
}

TEST(Exit, SendsTheReleaseByteAndEndsAtOnce) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.Click("mnuFile"));
  ASSERT_TRUE(desk.Click("mnuExit"));
  ASSERT_TRUE(desk.Program->WaitForEnd(10));
  EXPECT_EQ(desk.Program->ExitCode(), 0);
  EXPECT_TRUE(desk.AwaitBytes(2));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(128 + 3, 0));
}

TEST(Exit, EndsInTheMiddleOfAMessageWithTheReleaseByteOnTheLine) {
  stage::InstallationFiles files = TwoSongs(40);
  files.Sequences = {{"Opening", "Long,Long", "09", "00", "003000"}};
  RealDesk desk(files);
  desk.Start("2031-05-05 08:59:53");
  ASSERT_TRUE(desk.AwaitTone(kMessage));
  ASSERT_TRUE(desk.AwaitBytes(2));
  ASSERT_TRUE(desk.Click("mnuFile"));
  ASSERT_TRUE(desk.Click("mnuExit"));
  ASSERT_TRUE(desk.Program->WaitForEnd(5));
  EXPECT_EQ(desk.Program->ExitCode(), 0);
  EXPECT_TRUE(desk.AwaitBytes(3));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(128 + 3, 128 + 4, 0));
}

/// The window manager closes the main window: the program must exit cleanly and send the release
/// byte.
testing::AssertionResult ClosesWithItsReleaseByte(RealDesk& desk) {
  if (!desk.Display->CloseWindow("Tolvo Marlex"))
    return testing::AssertionFailure() << "there is no main window";
  if (!desk.Program->WaitForEnd(10)) return testing::AssertionFailure() << "it does not end";
  if (desk.Program->ExitCode() != 0) return testing::AssertionFailure() << "it fails";
  if (!desk.AwaitLastByte(0)) return testing::AssertionFailure() << "no release byte";
  return testing::AssertionSuccess();
}

TEST(Exit, TheWindowManagersCloseIsObeyedOverAnOpenFileDialog) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.Click("mnuFile"));
  ASSERT_TRUE(desk.Click("mnuOpen"));
  ASSERT_TRUE(desk.Await("fileDialog", "visible", "yes"));
  EXPECT_TRUE(ClosesWithItsReleaseByte(desk));
}

TEST(Exit, TheWindowManagersCloseIsObeyedOverANotice) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.Click("mnuAbout"));
  ASSERT_TRUE(desk.Click("mnuAdresses"));
  ASSERT_TRUE(desk.Await("QMessageBox", "visible", "yes"));
  EXPECT_TRUE(ClosesWithItsReleaseByte(desk));
}

TEST(Songs, FollowEachOtherAndThePlaylistFileKeepsThePlace) {
  RealDesk desk(TwoSongs(4));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  EXPECT_TRUE(desk.AwaitText("frmMain.lblMP3Number", "1/2"));
  EXPECT_EQ(desk.Window->Read("frmMain.lblMP3Length", "text"), "0:04");
  ASSERT_TRUE(desk.AwaitTone(kSecondSong));
  EXPECT_TRUE(desk.AwaitText("frmMain.lblMP3Number", "2/2"));
  EXPECT_THAT(desk.ReadFile("Day.lst"), HasSubstr("Last song=1"));
  std::vector<stage::Span> first = desk.Card->Take().Tone(kFirstSong, kHeardDb);
  ASSERT_EQ(first.size(), 1U);
  EXPECT_NEAR(first[0].Sounding, 4.0, 0.1);
}

TEST(Songs, FilesOfEveryRateSoundAtTheirOwnPitchAndLength) {
  constexpr int kSongRates[] = {16'000, 22'050, 24'000, 32'000, 48'000};
  stage::InstallationFiles files;
  for (int rate : kSongRates) {
    double frequency = 300 + 400 * double(files.Songs.size());
    files.Songs.push_back({std::to_string(rate), stage::Tone(frequency, 2, kTonePeak, rate)});
  }
  files.Songs.push_back({"Rest", stage::Tone(5000, 20, 0.01)});
  files.Messages = {{"Low", stage::Tone(3100, 1, kTonePeak, 8000)},
                    {"High", stage::Tone(3500, 1, kTonePeak, 96'000)}};
  files.Sequences = {{"Opening", "Low,High", "09", "00"}};
  RealDesk desk(files);
  desk.Start("2031-05-05 08:59:43");
  ASSERT_TRUE(desk.AwaitTone(3500, 60));
  ASSERT_TRUE(desk.Await("frmMain.cmdPlay", "enabled", "yes"));
  stage::Recording heard = desk.Card->Take();
  for (std::size_t each = 0; each < std::size(kSongRates); ++each) {
    const double frequency = 300 + 400 * double(each);
    std::vector<stage::Span> song = heard.Tone(frequency, -25);
    ASSERT_EQ(song.size(), 1U) << frequency;
    EXPECT_NEAR(song[0].Sounding, 2, 0.08) << frequency;
  }
  for (double frequency : {3100, 3500}) {
    std::vector<stage::Span> message = heard.Tone(frequency, -25);
    ASSERT_EQ(message.size(), 1U) << frequency;
    EXPECT_NEAR(message[0].Sounding, 1, 0.03) << frequency;
  }
}

TEST(Songs, TheStopButtonSilencesTheMusicAndReleasesTheZones) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.Click("frmMain.cmdStop"));
  EXPECT_TRUE(desk.AwaitSilence(5));
  EXPECT_TRUE(desk.AwaitBytes(2));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(128 + 3, 0));
  ASSERT_TRUE(desk.Click("frmMain.cmdPlay"));
  EXPECT_TRUE(desk.AwaitTone(kFirstSong));
}

TEST(Between, AMessageOfABreakFollowsTheSongOnItsZonesWithoutAFade) {
  stage::InstallationFiles files = TwoSongs(12);
  files.Sequences = {{"Break", "Short", "09", "00", "003000", "Between"}};
  RealDesk desk(files);
  desk.Start("2031-05-05 08:59:53");
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitTone(kMessage, 60));
  ASSERT_TRUE(desk.AwaitTone(kSecondSong));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(128 + 3));
  stage::Recording heard = desk.Card->Take();
  std::vector<stage::Span> song = heard.Tone(kFirstSong, kHeardDb);
  std::vector<stage::Span> message = heard.Tone(kMessage, kHeardDb);
  ASSERT_EQ(song.size(), 1U);
  ASSERT_EQ(message.size(), 1U);
  EXPECT_NEAR(song[0].Sounding, 12, 0.1);
  EXPECT_NEAR(heard.TypicalLevelDb(song[0].To - 0.3, song[0].To - 0.05),
              kToneDb + stage::LineDb(20'000), 0.5);
  EXPECT_NEAR(message[0].Sounding, 1, 0.05);
  EXPECT_LT(message[0].From - song[0].To, 0.3);
}

TEST(Takeover, AStatusByteSilencesTheMusicAndStatus0GivesItBackOnItsZones) {
  RealDesk desk(TwoSongs(60));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  double taken = stage::Now();
  desk.Line->Send(128);
  ASSERT_TRUE(desk.AwaitSilence(5));
  ASSERT_TRUE(desk.Await("frmMain.lblHiPrio", "visible", "yes"));
  desk.RecordFor(1);
  double given = stage::Now();
  desk.Line->Send(0);
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(2));
  std::vector<stage::Span> song = desk.Card->Take().Tone(kFirstSong, kHeardDb);
  ASSERT_EQ(song.size(), 2U);
  EXPECT_LT(song[0].To - taken, 0.2);
  EXPECT_THAT(desk.ByteValues(), ElementsAre(128 + 3, 128 + 3));
  EXPECT_GT(desk.Bytes()[1].Time - given, 0.4 - 0.02);
  EXPECT_LT(desk.Bytes()[1].Time - given, 0.6);
  GTEST_LOG_(INFO) << "Silence after " << int((song[0].To - taken) * 1000) << " ms";
}

TEST(SoundServer, WhenItDiesInMidSongTheMusicGoesOnAtItsReturnOnTheSameCard) {
  stage::StageOptions options = RealDeskOptions();
  options.Cards.Outputs = {"card", "other"};
  RealDesk desk(TwoSongs(90), options);
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  desk.Server->Kill();
  stage::WaitUntil([&] { return !desk.Program->IsRunning(); }, 3);
  ASSERT_TRUE(desk.Program->IsRunning());
  desk.Server->Start({{"other", "card"}, false});  // the other card is the default now
  double back = stage::Now();
  desk.StartRecording();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong, 20));
  double silent = stage::Now() - back;
  EXPECT_LT(silent, 3);
  GTEST_LOG_(INFO) << "Sound after " << int(silent * 1000) << " ms";
  stage::Recorder other(*desk.Server, "other");
  stage::WaitUntil([&] { return other.Take().Samples.size() > 48'000; }, 10);
  EXPECT_LT(other.LevelNowDb(1), kSilentDb);
  EXPECT_EQ(desk.Window->Read("frmMain.lblMP3Number", "text"), "1/2");
}

TEST(Clock, ARowFiresAtItsMinuteWhenTheClockIsSetToIt) {
  stage::InstallationFiles files = TwoSongs(60);
  files.Sequences = {{"Noon", "Short", "12", "00", "100000"}};
  RealDesk desk(files);
  desk.Start("2031-05-05 08:30:00");
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.Await("frmMain.grdSchedule", "cell 1 0", "12:00  "));
  desk.Clock->Set("2031-05-05 12:00:01");
  EXPECT_TRUE(desk.AwaitTone(kMessage, 5));
}

/// Lets an announcement run to the given moment, kills the program there without warning, and
/// starts it again later.
class Killed : public testing::TestWithParam<double> {};

TEST_P(Killed, AtAnyStepOfAnAnnouncementTheNextStartIsRight) {
  stage::InstallationFiles files = TwoSongs(90);
  files.FadeTime = "Slow";
  files.Sequences = {{"Opening", "Short", "09", "00", "003000"}};
  RealDesk desk(files);
  desk.Start("2031-05-05 08:59:54");
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitTime("frmMain.grdSchedule", "cell 1 0 colour", kNavy));
  desk.RecordFor(GetParam());
  desk.Program->Signal(SIGKILL);
  ASSERT_TRUE(desk.Program->WaitForEnd(5));
  size_t before = desk.Bytes().size();
  desk.Start("2031-05-05 09:10:00");
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(before + 1));
  desk.RecordFor(1);
  stage::Recording heard = desk.Card->Take();
  EXPECT_NEAR(heard.TypicalLevelDb(heard.EndTime() - 0.5, heard.EndTime()),
              kToneDb + stage::LineDb(files.MusicVolume), 0.5);
  EXPECT_EQ(desk.Bytes().back().Value, 128 + 3);
}

// Seconds after the row fired: in the fade down, in the pause, in the message, while restoring, in
// the fade up.
INSTANTIATE_TEST_SUITE_P(Moments, Killed, testing::Values(0.7, 1.6, 2.2, 2.7, 3.5));

}  // namespace
}  // namespace marlex
