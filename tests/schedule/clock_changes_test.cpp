// The wall clock is set, by hand or by the network, while the schedule runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;
constexpr int kDaySeconds = 86'400;

/// Names of the files that the wave player has started since the last call.
std::string TakePlays(SpotDesk& desk) {
  std::string plays;
  for (const std::string& line : desk.Pc.Journal.Lines()) {
    const auto place = line.find(" wav play ");
    if (place != std::string::npos) plays += line.substr(place + 10) + "\n";
  }
  desk.Pc.Journal.Clear();
  return plays;
}

/// A row on Mondays and one on Tuesdays, both at 12:05; the clock is set, starting on a Monday.
DeskOptions RowOfEachDay(bool allDays) {
  return {.Sequences =
              {{.File = "a.sch", .Messages = "welcome", .Minutes = "05", .Weekdays = "1000000"},
               {.File = "b.sch", .Messages = "closing", .Minutes = "05", .Weekdays = "0200000"}},
          .AllDays = allDays};
}

TEST(ClockChanges, AClockSetBackInASequencePlaysItOnAndThenOnceMore) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(3000);
  desk.Pc.Clock.Jump(-60);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.AdvanceTo(70'000);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\nwelcome.wav\nclosing.wav\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(ClockChanges, AClockSetForwardInASequenceLosesNoRowOfThatMinute) {
  SpotDesk desk({.Sequences = {{}, {.File = "b.sch", .Messages = "closing", .Minutes = "02"}}},
                kSilent);
  desk.AdvanceTo(3000);
  desk.Pc.Clock.Jump(60);
  desk.AdvanceTo(20'000);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
}

TEST(ClockChanges, AJumpOfADayLeavesTheViewOfTheDayOnYesterdaysTable) {
  SpotDesk desk(RowOfEachDay(false), kSilent);
  desk.Pc.Clock.Jump(kDaySeconds);
  desk.RunTo(12, 5, 30);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
  desk.RunTo(0, 1);
  EXPECT_EQ(desk.Main().grdSchedule.Rows(), 1);
}

TEST(ClockChanges, AJumpOfADayHasTheViewOfAllDaysTestTheRowsOfTheNewDay) {
  SpotDesk desk(RowOfEachDay(true), kSilent);
  desk.Pc.Clock.Jump(kDaySeconds);
  desk.RunTo(12, 5, 30);
  // The first row of the minute is Monday's, and no other is considered.
  EXPECT_EQ(TakePlays(desk), "");
  desk.Pc.Clock.Jump(6 * kDaySeconds - 60);  // Monday, a minute earlier
  desk.Advance(60'000);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
}

TEST(ClockChanges, AJumpOverMidnightForgivesNoStopOfTheMusic) {
  SpotDesk desk({.StartTime = "11:00", .StopTime = "23:00", .WeekDays = "1234567"}, kSilent);
  ASSERT_EQ(desk.MusicState(), kPlaying);
  desk.Click("cmdStop");
  desk.Pc.Clock.Jump(3 * kDaySeconds);
  desk.RunTo(23, 59, 59);
  EXPECT_TRUE(desk.State().MusicStoppedByUser);
  EXPECT_EQ(desk.MusicState(), kStopped);
  desk.Advance(1500);
  EXPECT_FALSE(desk.State().MusicStoppedByUser);
  desk.RunTo(11, 0, 2);
  EXPECT_EQ(desk.MusicState(), kPlaying);
}

/// Deliberate: the row of the minute of the stop is lost, since the tick keeps its minute in one
/// variable. A tick during the fade of the stop accepts the later minute, fades, stops and plays
/// that minute's row; the tick underneath then sends its own release and also looks for the later
/// minute.
TEST(ClockChanges, AClockSetForwardInTheStopsFadePlaysTheNextRowTwice) {
  SpotDesk desk({.Sequences = {{.File = "a.sch", .Messages = "welcome"},
                               {.File = "b.sch", .Messages = "closing", .Minutes = "02"}},
                 .FadeTime = "Slow",
                 .StartTime = "11:00",
                 .StopTime = "12:01",
                 .WeekDays = "1234567"},
                kSilent);
  ASSERT_EQ(desk.MusicState(), kPlaying);
  desk.AdvanceTo(1500);
  desk.Pc.Clock.Jump(60);
  desk.AdvanceTo(8000);
  EXPECT_EQ(desk.Journal(),
            "2518 song stop\n"
            "2518 send 0\n"
            "2518 wav play closing.wav\n"
            "2718 send 127\n"
            "4518 wav end closing.wav\n"
            "4518 send 0\n"
            "4518 send 0\n"
            "4518 wav play closing.wav\n"
            "4718 send 127\n"
            "6518 wav end closing.wav\n"
            "6518 send 0\n");
}

TEST(ClockChanges, AMachineThatWakesInsideTheMinuteOfARowPlaysItOnce) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(500);
  desk.Pc.Loop.Block(30'000);
  desk.Advance(0);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
}

TEST(ClockChanges, AMachineAsleepInTheMiddleOfAMessageGoesOnWithTheNextOne) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(2000);
  desk.Pc.Loop.Block(3'600'000);
  desk.Advance(10'000);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

}  // namespace
}  // namespace marlex
