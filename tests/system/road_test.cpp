// One event followed through the real program: a row of the schedule comes due while music plays.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "system/real_desk.h"

namespace marlex {
namespace {

using stage::Recording;
using stage::Span;
using testing::ElementsAre;

constexpr int kMusicVolume = 45'000;
constexpr int kMessageVolume = 10'000;
constexpr double kFirstTone = 700;
constexpr double kSecondTone = 1100;
constexpr double kFirstSeconds = 1.0;
constexpr double kSecondSeconds = 0.8;

// A fast fade from this volume: 2000 units every 50 ms, eleven steps down and thirteen up. The last
// but one of the steps up is louder than the music itself.
constexpr double kFadeInterval = 0.050;
constexpr int kFadeStep = 2000;
constexpr int kStepsDown = 11;
constexpr int kLoudestOnTheWayUp = 41'535;

// The machine is shared: a timer may fire late, but never early.
constexpr double kLate = 0.15;
constexpr double kEarly = 0.03;

stage::InstallationFiles Files() {
  stage::InstallationFiles files;
  files.MusicVolume = kMusicVolume;
  files.MessageVolume = kMessageVolume;
  files.Songs = {{"Ladder", stage::Ladder(60, kTonePeak)},
                 {"Second", stage::Tone(400, 20, kTonePeak)}};
  files.Messages = {{"One", stage::Tone(kFirstTone, kFirstSeconds, kTonePeak)},
                    {"Two", stage::Tone(kSecondTone, kSecondSeconds, kTonePeak)}};
  files.Sequences = {{"Opening", "One,Two", "09", "00", "003400"}};
  return files;
}

/// One announcement, recorded once and examined by many tests.
class Road : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    Place.emplace(Files());
    Place->Start("2031-05-05 08:59:50");
    ASSERT_TRUE(Place->AwaitSound());
    ASSERT_TRUE(Place->AwaitBytes(1));
    Place->Line->Send(64);  // a call of lower level than ours, so that the amplifier is not idle
    ASSERT_TRUE(Place->Await("frmMain.lblHiPrio", "visible", "yes"));
    ASSERT_TRUE(Place->AwaitTime("frmMain.grdSchedule", "cell 1 0 colour", kNavy, 2));
    ASSERT_TRUE(Place->AwaitTime("frmMain.cmdPlay", "enabled", "yes",
                                 Place->TimesOf("frmMain.cmdPlay", "enabled", "no").size() + 1));
    Place->RecordFor(1.5);
    Heard = Place->Card->Take();
    Due = Place->Clock->SteadyTimeOf("2031-05-05 09:00:00");
    RowFired = Place->TimesOf("frmMain.grdSchedule", "cell 1 0 colour", kNavy).at(0);
  }
  static void TearDownTestSuite() { Place.reset(); }

  void SetUp() override { ASSERT_GT(RowFired, 0) << "The announcement did not come."; }

  /// When a message's tone sounds. Edges of other tones can look like brief moments of it.
  static Span Only(double frequency) {
    Span longest;
    for (const Span& span : Heard.Tone(frequency, -30)) {
      if (span.Sounding > longest.Sounding) longest = span;
    }
    return longest;
  }

  /// The last moment before the messages, and the first one after them, at which the song is heard.
  static double SongLeaves() { return LastLoud(RowFired, Only(kFirstTone).From - 0.02); }
  static double SongComes() { return FirstLoud(Only(kSecondTone).To + 0.03, Heard.EndTime()); }

  static double FirstLoud(double from, double to) {
    double time = from;
    while (time < to && Heard.LevelDb(time, time + 0.01) < kSilentDb) time += 0.005;
    return time;
  }
  static double LastLoud(double from, double to) {
    double time = to;
    while (time > from && Heard.LevelDb(time - 0.01, time) < kSilentDb) time -= 0.005;
    return time;
  }

  /// The levels of several consecutive windows, for the message of a failing test.
  static std::string Levels(double from, int windows) {
    std::string text;
    for (int i = 0; i < windows; ++i) {
      double time = from + i * Recording::kWindowSeconds;
      text +=
          std::to_string(std::lround(Heard.LevelDb(time, time + Recording::kWindowSeconds))) + " ";
    }
    return text;
  }

  static inline std::optional<RealDesk> Place;
  static inline Recording Heard;
  static inline double Due = 0;
  static inline double RowFired = 0;
};

TEST_F(Road, TheRowFiresInTheFirstSecondOfItsMinute) {
  EXPECT_GT(RowFired, Due - kEarly);
  EXPECT_LT(RowFired, Due + 1 + kLate);
}

TEST_F(Road, TheMusicSoundsAtItsVolumeBefore) {
  double level = Heard.TypicalLevelDb(RowFired - 1, RowFired - 0.1);
  EXPECT_NEAR(level, kToneDb + stage::LineDb(kMusicVolume), 0.8);
}

TEST_F(Road, TheMusicFadesInTheStepsOfTheFadeTime) {
  double full = Heard.TypicalLevelDb(RowFired - 1, RowFired - 0.1);
  double firstStep = RowFired;
  while (firstStep < RowFired + 2 && Heard.LevelDb(firstStep, firstStep + 0.02) > full - 0.4)
    firstStep += 0.005;
  EXPECT_NEAR(SongLeaves() - firstStep, kFadeInterval * (kStepsDown - 1), kLate);
  double middle = (firstStep + SongLeaves()) / 2;
  EXPECT_LT(Heard.LevelDb(middle - 0.025, middle + 0.025), full - 3);
  EXPECT_GT(Heard.LevelDb(middle - 0.025, middle + 0.025), full - 12);
}

TEST_F(Road, TheMessagesSoundInTheirOrderAndWholeAtTheMessageVolume) {
  Span first = Only(kFirstTone);
  Span second = Only(kSecondTone);
  EXPECT_NEAR(first.Sounding, kFirstSeconds, 0.06);
  EXPECT_NEAR(second.Sounding, kSecondSeconds, 0.06);
  double level = kToneDb + stage::LineDb(kMessageVolume);
  EXPECT_NEAR(Heard.TypicalLevelDb(first.From + 0.05, first.To - 0.05), level, 0.3);
  EXPECT_NEAR(Heard.TypicalLevelDb(second.From + 0.05, second.To - 0.05), level, 0.3);
}

TEST_F(Road, NoTimeIsLostBetweenFadeAndMessagesAndMusic) {
  Span first = Only(kFirstTone);
  Span second = Only(kSecondTone);
  EXPECT_LT(first.From - SongLeaves(), 0.4);
  EXPECT_GE(second.From - first.To, -kEarly);
  EXPECT_LT(second.From - first.To, 0.2);
  EXPECT_LT(SongComes() - second.To, 0.5);
}

TEST_F(Road, TheSongIsSilentWhileTheMessagesSound) {
  Span first = Only(kFirstTone);
  Span second = Only(kSecondTone);
  for (double frequency : stage::LadderFrequencies()) {
    EXPECT_LT(Heard.ToneDb(frequency, first.From + 0.1, first.To - 0.1), kToneDb - 45);
    EXPECT_LT(Heard.ToneDb(frequency, second.From + 0.1, second.To - 0.1), kToneDb - 45);
  }
}

TEST_F(Road, TheSongGoesOnWhereItWasPaused) {
  std::vector<double> ladder = stage::LadderFrequencies();
  int left = Heard.LoudestTone(ladder, SongLeaves() - 0.015, -60);
  int came = Heard.LoudestTone(ladder, SongComes() + 0.015, -60);
  ASSERT_GE(left, 0);
  ASSERT_GE(came, 0) << Levels(Only(kSecondTone).To - 0.05, 60);
  // Only the silent end of the fade down and the silent beginning of the fade up pass unheard, one
  // event each.
  int steps = (came - left + stage::kLadderTones) % stage::kLadderTones;
  EXPECT_LE(steps, 3);
}

TEST_F(Road, NothingOfTheSongIsHeardBeforeTheFirstStepOfItsFadeUp) {
  // A click here would be the resumed song at full volume, before the line is silent. If the device
  // was kept waiting, the song is heard late, when more steps are due.
  double ended = Only(kSecondTone).To;
  double came = SongComes();
  double time = ended + 0.005;
  while (time < came) {
    int stepsDue = 1 + static_cast<int>((time + 0.005 - ended) / kFadeInterval);
    double loudest = kToneDb + stage::LineDb(65'535 - kFadeStep * stepsDue);
    EXPECT_LT(Heard.LevelDb(time, time + 0.005), loudest + 1.5) << Levels(came - 0.1, 60);
    time += 0.0025;
  }
}

TEST_F(Road, TheFadeUpRunsPastItsTargetForOneEventAndFallsBack) {
  double target = Heard.TypicalLevelDb(Heard.EndTime() - 0.8, Heard.EndTime());
  EXPECT_NEAR(target, kToneDb + stage::LineDb(kMusicVolume), 0.5);
  double loudest = stage::LineDb(kLoudestOnTheWayUp) - stage::LineDb(kMusicVolume);
  double louderFor = 0;
  double peak = Recording::kSilenceDb;
  double time = SongComes();
  while (time < Heard.EndTime() - 0.8) {
    double above = Heard.LevelDb(time, time + 0.02) - target;
    peak = std::max(peak, above);
    if (above > loudest / 2) louderFor += 0.01;
    time += 0.01;
  }
  EXPECT_NEAR(peak, loudest, 0.5);
  EXPECT_GT(louderFor, kFadeInterval / 2);
  EXPECT_LT(louderFor, kFadeInterval + kLate);
}

TEST_F(Road, TheBytesAreTheMusicsAReleaseTheRowsAndTheMusicsAgain) {
  EXPECT_THAT(Place->ByteValues(), ElementsAre(128 + 3, 0, 128 + 12, 128 + 3));
}

TEST_F(Road, EachZonesByteComes200MillisecondsAfterItsCause) {
  std::vector<stage::LineByte> bytes = Place->Bytes();
  ASSERT_EQ(bytes.size(), 4U);
  EXPECT_GT(bytes[1].Time, SongLeaves() - 0.06);
  EXPECT_GT(bytes[2].Time - bytes[1].Time, 0.2 - kEarly);
  EXPECT_LT(bytes[2].Time - bytes[1].Time, 0.2 + kLate);
  EXPECT_GT(bytes[3].Time - Only(kSecondTone).To, 0.2 - 0.06);
  EXPECT_LT(bytes[3].Time - Only(kSecondTone).To, 0.2 + kLate + 0.06);
}

TEST_F(Road, TheRowsFirstCellIsGreenWhileTheMessagesSound) {
  std::vector<double> green = Place->TimesOf("frmMain.grdSchedule", "cell 1 0 colour", kGreen);
  std::vector<double> navy = Place->TimesOf("frmMain.grdSchedule", "cell 1 0 colour", kNavy);
  ASSERT_EQ(green.size(), 1U);
  ASSERT_EQ(navy.size(), 2U);
  EXPECT_NEAR(green[0], Only(kFirstTone).From, 0.2);
  EXPECT_NEAR(navy[1], Only(kSecondTone).To, 0.2);
  EXPECT_EQ(Place->Window->Read("frmMain.grdSchedule", "cell 1 4 colour"), kNavy);
}

TEST_F(Road, TheTransportButtonsAreOffDuringTheSequenceAndBackAfterIt) {
  for (const char* button : {"frmMain.cmdPlay", "frmMain.cmdSkip", "frmMain.cmdStop"}) {
    std::vector<double> off = Place->TimesOf(button, "enabled", "no");
    ASSERT_FALSE(off.empty()) << button;
    EXPECT_NEAR(off.back(), RowFired, 0.2) << button;
    EXPECT_EQ(Place->Window->Read(button, "enabled"), "yes") << button;
  }
  EXPECT_EQ(Place->TimesOf("frmMain.cmdMusicZones_0", "enabled", "no").size(), 1U);
  EXPECT_EQ(Place->Window->Read("frmMain.cmdMusicZones_0", "enabled"), "yes");
}

TEST_F(Road, TheZoneLampsShowTheRowsZonesAndThenTheMusicsAgain) {
  double whileItSounds = Only(kSecondTone).From;
  std::vector<double> third = Place->TimesOf("frmMain.lblCurrentZone_2", "colour", kGreen);
  ASSERT_EQ(third.size(), 1U);
  EXPECT_LT(third[0], whileItSounds);
  EXPECT_EQ(Place->Window->Read("frmMain.lblCurrentZone_0", "colour"), kPaleGreen);
  std::string after = Place->Window->Read("frmMain.lblCurrentZone_2", "colour");
  EXPECT_TRUE(after != kGreen && after != kPaleGreen) << after;
}

TEST_F(Road, TheLogSaysWhenItBeganAndEnded) {
  const auto at = [](const std::string& text) {
    for (const stage::LogLine& line : Place->Log->Lines()) {
      if (line.Text == text) return line.Time;
    }
    ADD_FAILURE() << text;
    return 0.0;
  };
  EXPECT_NEAR(at("row 09:00 One,Two: play in 3 4"), Only(kFirstTone).From, kLate);
  EXPECT_NEAR(at("row 09:00 One,Two: end"), Only(kSecondTone).To, kLate);
  EXPECT_TRUE(Place->Log->Has("program: start"));
  EXPECT_TRUE(Place->Log->Has("amplifier: status 64"));
}

TEST_F(Road, TheFilesKeepTheSongAndTheRouting) {
  EXPECT_NE(Place->ReadFile("Day.lst").find("Last song=0"), std::string::npos);
  EXPECT_NE(Place->ReadFile("Tolvo.ini").find("Music routing=110000"), std::string::npos);
}

}  // namespace
}  // namespace marlex
