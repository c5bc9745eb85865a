#include "core/glance.h"

#include <gtest/gtest.h>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;
constexpr int kSpeakingMs = 3000;  // after a press: the fade is over, and the microphone open

std::string Word(OnAir what) {
  switch (what) {
    case OnAir::Silence:
      return "silence";
    case OnAir::Music:
      return "music";
    case OnAir::Message:
      return "message";
    case OnAir::Amplifier:
      return "amplifier";
    case OnAir::Wait:
      return "wait";
    case OnAir::Call:
      break;
  }
  return "call";
}

std::string Now(const Desk& desk) {
  const Glance glance = desk.Sys->ThePasserby.Look();
  return Word(glance.What) + ": " + glance.Name;
}

std::string Next(const Desk& desk) {
  const Glance glance = desk.Sys->ThePasserby.Look();
  return glance.Next.Time + "|" + glance.Next.Messages;
}

/// Rows at these minutes of an hour, each with messages named after its minute.
std::vector<Sequence> At(const std::string& hour, const std::vector<std::string>& minutes) {
  std::vector<Sequence> rows;
  for (const std::string& minute : minutes)
    rows.push_back({minute + ".sch", "at" + minute, hour, minute});
  return rows;
}

TEST(Glance, NamesTheSongThatPlaysWhateverIsSelected) {
  SpotDesk desk;
  EXPECT_EQ(Now(desk), "music: march");
  desk.Select(1);
  EXPECT_EQ(Now(desk), "music: march");
  desk.Click("cmdStop");
  EXPECT_EQ(Now(desk), "silence: ");
}

TEST(Glance, NamesEachMessageWhileItPlaysAndThenTheSongAgain) {
  SpotDesk desk;
  desk.AdvanceTo(SpotDesk::kFadedDown + 1);
  EXPECT_EQ(Now(desk), "message: welcome");
  desk.AdvanceTo(SpotDesk::kFirstMessageEnds + 1);
  EXPECT_EQ(Now(desk), "message: closing");
  desk.AdvanceTo(SpotDesk::kFadedUp);
  EXPECT_EQ(Now(desk), "music: march");
}

TEST(Glance, ShowsACallByTheTextOfItsButtonWithEitherTypeOfAmplifier) {
  for (const bool router : {true, false}) {
    SpotDesk desk({.Sequences = At("13", {"01"}), .Router = router});
    const char* button = router ? "cmdCall" : "cmdCall2";
    desk.Press(button);
    EXPECT_EQ(Now(desk), "wait: Wait") << button;
    desk.Advance(kSpeakingMs);
    EXPECT_EQ(Now(desk), "call: Speak") << button;
    desk.Release(button);
    desk.Advance(kSpeakingMs);
    EXPECT_EQ(Now(desk), "music: march") << button;
  }
}

bool SpeechIsOn(const Desk& desk) { return desk.Sys->ThePasserby.Look().SpeechIsOn; }

TEST(Glance, KnowsThatNothingSaidBeforeTheChimeHasEndedIsHeard) {
  SpotDesk desk({.Sequences = At("13", {"01"}), .PreChime = "welcome", .PostChime = "welcome"});
  EXPECT_FALSE(SpeechIsOn(desk));
  desk.Press("cmdCall");
  desk.Advance(1700);
  ASSERT_EQ(desk.Sys->TheFrmPlayers.WavPlayer.Mode(), kWavePlaying);
  EXPECT_EQ(Now(desk), "wait: Wait");
  EXPECT_FALSE(SpeechIsOn(desk));
  desk.Advance(5000);
  EXPECT_EQ(Now(desk), "call: Speak");
  EXPECT_TRUE(SpeechIsOn(desk));
  desk.Release("cmdCall");
  desk.Advance(100);
  EXPECT_EQ(Now(desk), "wait: Wait");
  EXPECT_FALSE(SpeechIsOn(desk));
}

TEST(Glance, KnowsThatAMessageIsHeardUnlessTheAmplifierTakesOver) {
  for (const int status : {64, 128}) {
    SpotDesk desk;
    desk.AdvanceTo(SpotDesk::kFadedDown + 1);
    EXPECT_TRUE(SpeechIsOn(desk));
    desk.Status(status);
    EXPECT_EQ(Now(desk), "amplifier: Higher priority call in progress");
    EXPECT_EQ(SpeechIsOn(desk), status == 64);
  }
}

TEST(Glance, IsHeldBackOnlyByACallThatStopsOurOwn) {
  SpotDesk desk({.Priority = "High"});
  desk.Status(64);
  EXPECT_FALSE(desk.Sys->ThePasserby.Look().IsHeldBack);
  desk.Status(128);
  EXPECT_TRUE(desk.Sys->ThePasserby.Look().IsHeldBack);
}

TEST(Glance, ShowsACallOfTheAmplifierThatHoldsUsBackAndNoOther) {
  SpotDesk desk;
  desk.Status(64);
  EXPECT_EQ(Now(desk), "amplifier: Higher priority call in progress");
  desk.Status(0);
  EXPECT_EQ(Now(desk), "music: march");
  SpotDesk high({.Priority = "High"});
  high.Status(64);
  EXPECT_EQ(Now(high), "music: march");
  high.Status(128);
  EXPECT_EQ(Now(high), "amplifier: Higher priority call in progress");
}

TEST(Glance, ShowsATakeoverOutOfACallAndOutOfAMessage) {
  SpotDesk desk;
  desk.Press("cmdCall");
  desk.Advance(kSpeakingMs);
  desk.Status(128);
  EXPECT_EQ(Now(desk), "amplifier: Higher priority call in progress");
  SpotDesk other;
  other.AdvanceTo(SpotDesk::kFadedDown + 1);
  other.Status(128);
  EXPECT_EQ(Now(other), "amplifier: Higher priority call in progress");
}

TEST(Glance, ShowsATakeoverUntilItsEndWhateverLevelComesMeanwhile) {
  SpotDesk desk({.Priority = "High"});
  desk.Status(128);
  desk.Status(64);
  EXPECT_EQ(Now(desk), "amplifier: Lower priority call in progress");
  desk.Status(0);
  EXPECT_EQ(Now(desk), "music: march");
}

TEST(Glance, NamesTheMessageThatComesNextUntilNoneIsLeftToday) {
  SpotDesk desk({.Sequences = At("12", {"01", "02"})}, kSilent);
  EXPECT_EQ(Next(desk), "12:01  |at01");
  desk.AdvanceTo(SpotDesk::kDue);
  EXPECT_EQ(Next(desk), "12:02  |at02");
  desk.RunTo(12, 2, 30);
  EXPECT_EQ(Next(desk), "|");
}

TEST(Glance, NamesARowOfThePresentMinuteUntilTheTickHasIt) {
  SpotDesk desk({.Sequences = At("12", {"01", "02"})}, kSilent);
  desk.Advance(SpotDesk::kDue - 1);
  EXPECT_EQ(Next(desk), "12:01  |at01");
  desk.Press("cmdCall");
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(Next(desk), "12:01  |at01");  // should the call end in this minute
}

TEST(Glance, NamesTheRowThatWaitsForTheMusicBreak) {
  std::vector<Sequence> rows = At("12", {"01", "02"});
  rows.front().Timer = "Between";
  SpotDesk desk({.Sequences = rows});
  desk.AdvanceTo(SpotDesk::kDue);
  EXPECT_EQ(Next(desk), "12:01+|at01");
  desk.Click("cmdSkip");
  desk.Advance(1);
  EXPECT_EQ(Next(desk), "12:02  |at02");
}

TEST(Glance, KeepsTheTimeOfTheRowThatWaitsWhileTheTickGoesOn) {
  std::vector<Sequence> rows = At("12", {"01"});
  rows.front().Timer = "Between";
  SpotDesk desk({.Sequences = rows});
  desk.AdvanceTo(SpotDesk::kDue);
  desk.Click("mnuSchedule");
  desk.Click("mnuExit");  // its close switches the tick on
  desk.RunTo(12, 2, 30);
  EXPECT_EQ(desk.Sys->Tick.LastMinute, "12:02");
  EXPECT_EQ(Next(desk), "12:01+|at01");
}

TEST(Glance, PromisesNoRowOfAFileThatCouldNotBeRead) {
  SpotDesk desk({.Sequences = At("12", {"01"})}, kSilent);
  desk.Do([&desk] {
    Grid& table = desk.Main().grdSchedule;
    table.SetRows(table.Rows() + 1);
    table.SetTextMatrix(table.Rows() - 1, kTimeColumn, ":+");
  });
  EXPECT_EQ(Next(desk), "12:01  |at01");
  desk.AdvanceTo(SpotDesk::kDue);
  EXPECT_EQ(Next(desk), "|");
}

TEST(Glance, PassesOverARowThatTheOperatorTookOut) {
  std::vector<Sequence> rows = At("12", {"01", "02"});
  rows.insert(rows.begin() + 1, {"also01.sch", "also01", "12", "01"});
  SpotDesk desk({.Sequences = rows}, kSilent);
  ASSERT_EQ(Next(desk), "12:01  |at01");
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_EQ(Next(desk), "12:01  |also01");
}

TEST(Glance, PassesOverAMinuteWhoseFirstRowDoesNotRunToday) {
  std::vector<Sequence> rows = At("12", {"01", "02"});
  rows.front().Weekdays = "0200000";  // the day is a Monday
  rows.insert(rows.begin() + 1, {"also01.sch", "also01", "12", "01"});
  SpotDesk desk({.Sequences = rows, .AllDays = true}, kSilent);
  EXPECT_EQ(Next(desk), "12:02  |at02");
  desk.TakeJournal();
  desk.RunTo(12, 3);
  EXPECT_EQ(desk.Journal().find("also01"), std::string::npos);
  EXPECT_NE(desk.Journal().find("at02"), std::string::npos);
}

constexpr const char* kStopped = "|Schedule stopped";

TEST(Glance, SaysThatTheScheduleIsStoppedWhileTheEditorHoldsIt) {
  SpotDesk desk({.Sequences = At("12", {"01", "02"})}, kSilent);
  desk.Click("mnuSchedule");
  EXPECT_EQ(Next(desk), kStopped);
  desk.Press("cmdCall");
  desk.Advance(kSpeakingMs);
  desk.Release("cmdCall");
  desk.Advance(kSpeakingMs);
  EXPECT_EQ(Next(desk), "12:02  |at02");
}

TEST(Glance, SaysThatTheScheduleIsStoppedAfterACallThatWasTakenOver) {
  SpotDesk desk({.Sequences = At("13", {"01"})});
  desk.Press("cmdCall");
  desk.Advance(kSpeakingMs);
  EXPECT_EQ(Next(desk), "13:01  |at01");
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Status(0);
  desk.Advance(1000);
  EXPECT_EQ(Next(desk), kStopped);
  desk.RunTo(13, 5);
  EXPECT_EQ(desk.Journal().find("at01"), std::string::npos);
  EXPECT_EQ(Next(desk), kStopped);
  desk.Press("cmdCall");
  desk.Advance(kSpeakingMs);
  desk.Release("cmdCall");
  desk.Advance(kSpeakingMs);
  EXPECT_EQ(Next(desk), "|");  // none is left today
}

TEST(Glance, SaysThatTheScheduleHaltsUnderARowThatWaitsForNoSong) {
  std::vector<Sequence> rows = At("12", {"01"});
  rows.front().Timer = "Between";
  rows.push_back({"later.sch", "later", "13", "01"});
  {
    SpotDesk desk({.Sequences = rows});
    desk.AdvanceTo(SpotDesk::kDue);
    desk.Click("cmdStop");
    EXPECT_EQ(Next(desk), kStopped);
    desk.Click("cmdPlay");
    EXPECT_EQ(Next(desk), "12:01+|at01");
  }
  SpotDesk desk({.Sequences = rows});
  desk.AdvanceTo(SpotDesk::kDue);
  desk.Press("cmdCall");
  desk.Advance(kSpeakingMs);
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Status(0);
  desk.Advance(1000);
  EXPECT_EQ(Next(desk), kStopped);
}

TEST(Glance, PromisesARowInAFadeAndInAMessageThoughTheTickIsOff) {
  SpotDesk desk({.Sequences = At("12", {"01", "02"})});
  for (const int ms : {SpotDesk::kDue + 100, SpotDesk::kFadedDown + 100}) {
    desk.AdvanceTo(ms);
    ASSERT_FALSE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
    EXPECT_EQ(Next(desk), "12:02  |at02") << ms;
  }
}

TEST(Glance, PromisesNoWaitingRowWhoseMessagesACallHasDropped) {
  std::vector<Sequence> rows = At("12", {"01", "02"});
  rows.front().Timer = "Between";
  SpotDesk desk({.Sequences = rows});
  desk.AdvanceTo(SpotDesk::kDue);
  ASSERT_EQ(Next(desk), "12:01+|at01");
  desk.Press("cmdCall");
  desk.Advance(kSpeakingMs);
  EXPECT_EQ(Next(desk), "12:02  |at02");
}

TEST(Glance, ChangesNothing) {
  SpotDesk desk;
  desk.TakeJournal();
  const std::vector<std::string> rows = desk.Rows();
  for (int look = 0; look < 3; ++look) desk.Sys->ThePasserby.Look();
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_EQ(desk.Rows(), rows);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
}

}  // namespace
}  // namespace marlex
