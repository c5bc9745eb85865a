#include "schedule/schedule_tick.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;

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

DeskOptions TwoRows(const std::string& firstMinute, const std::string& secondMinute) {
  return {.Sequences = {{.File = "a.sch", .Messages = "welcome", .Minutes = firstMinute},
                        {.File = "b.sch", .Messages = "closing", .Minutes = secondMinute}}};
}

TEST(ScheduleTick, ARowFiresAtTheFirstTickOfItsMinuteAndOnlyOnce) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(SpotDesk::kDue - 1);
  EXPECT_EQ(TakePlays(desk), "");
  desk.Advance(1);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(TakePlays(desk), "closing.wav\n");
  ASSERT_EQ(desk.Alive(), "tick cmdPlay");
  desk.RunTo(13, 0);
  EXPECT_EQ(TakePlays(desk), "");
}

TEST(ScheduleTick, AProgramStartedInTheMinuteOfARowPlaysItWhateverTheSecondIs) {
  Desk desk({.Sequences = {{}}, .Now = {2024, 1, 1, 12, 1, 50}});
  desk.Pc.Journal.Only({"wav"});
  desk.Advance(1000);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(ScheduleTick, AMinuteOfOneDigitIsComparedWithItsNought) {
  SpotDesk desk({.Sequences = {{.Hours = "7", .Minutes = "5"}}, .Now = {2024, 1, 1, 7, 4, 50}},
                kSilent);
  desk.AdvanceTo(SpotDesk::kDue);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
}

TEST(ScheduleTick, ARowIsPlayedAgainOnTheNextDay) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(60'000);
  TakePlays(desk);
  desk.RunTo(12, 0, 30);
  EXPECT_EQ(TakePlays(desk), "");
  desk.RunTo(12, 2);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
}

TEST(ScheduleTick, AnEmptyTableIsNoCase) {
  SpotDesk desk({}, kSilent);
  desk.Click("mnuClose");
  desk.RunTo(13, 0);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(ScheduleTick, OfTwoRowsOfAMinuteOnlyTheUpperPlays) {
  SpotDesk desk(TwoRows("01", "01"), kSilent);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
}

TEST(ScheduleTick, AnUpperRowThatIsNotDueTodayKeepsTheLowerOneFromPlaying) {
  DeskOptions options = TwoRows("01", "01");
  options.AllDays = true;
  options.Sequences[0].Weekdays = "0200000";
  options.Sequences[1].Weekdays = "1000000";
  SpotDesk desk(options, kSilent);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "");
  EXPECT_EQ(desk.Paint(1), "wwwww");
}

TEST(ScheduleTick, ARowAtSetTimeComesBeforeOneAtTheMusicBreak) {
  DeskOptions options = TwoRows("01", "01");
  options.Sequences[0].Timer = "Between";
  SpotDesk desk(options, kSilent);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "closing.wav\n");
}

TEST(ScheduleTick, ARowWhoseHeightIsZeroIsPassedOver) {
  SpotDesk desk(TwoRows("01", "01"), kSilent);
  desk.DoubleClickCell(1, kTimeColumn);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "closing.wav\n");
  EXPECT_EQ(desk.Paint(2), "nnnnn");
}

TEST(ScheduleTick, ARowThatIsTheOnlyOneOfItsMinuteIsSilentWhenItsHeightIsZero) {
  SpotDesk desk({}, kSilent);
  desk.Do([&] { desk.Main().grdSchedule.SetRowHeight(1, 0); });
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "");
}

TEST(ScheduleTick, TheTableItselfIsTheSchedule) {
  SpotDesk desk({}, kSilent);
  desk.Do([&] {
    Grid& table = desk.Main().grdSchedule;
    table.SetTextMatrix(1, kTimeColumn, "12:02  ");
    table.SetTextMatrix(1, kMessagesColumn, "closing");
    table.SetTextMatrix(1, kRoutingColumn, "000006");
  });
  desk.AdvanceTo(61'000);
  EXPECT_EQ(desk.Journal(), "61000 wav play closing.wav\n");
  EXPECT_EQ(desk.LitZones(), "000001");
  EXPECT_EQ(desk.Sys->Tick.CurrentMessageInfo, "closing");
  EXPECT_EQ(desk.Sys->Tick.CurrentRouting, "000006");
  EXPECT_EQ(desk.Sys->Tick.ScheduleRow, 1);
  EXPECT_EQ(desk.Sys->Tick.LastMinute, "12:02");
}

// Minutes that the tick never sees.

TEST(ScheduleTick, AMinuteOfACallOfOurPriorityIsLost) {
  SpotDesk desk(TwoRows("01", "02"), kSilent);
  desk.Status(64);
  desk.AdvanceTo(2000);
  desk.Status(0);
  desk.RunTo(12, 1, 58);
  EXPECT_EQ(TakePlays(desk), "");
  EXPECT_EQ(desk.Sys->Tick.LastMinute, "12:01");
  desk.RunTo(12, 2, 30);
  EXPECT_EQ(TakePlays(desk), "closing.wav\n");
}

TEST(ScheduleTick, ACallOfLowerPriorityThanOursLetsTheRowPlay) {
  SpotDesk desk({.Priority = "High"}, kSilent);
  desk.Status(64);
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
}

TEST(ScheduleTick, AMinuteThatAHigherCallTookIsLostForTheMusicsClockToo) {
  SpotDesk desk({.StartTime = "12:01", .StopTime = "13:00", .WeekDays = "1234567"}, kSilent);
  desk.Status(192);
  desk.RunTo(12, 1, 10);
  desk.Status(0);
  desk.RunTo(12, 1, 59);
  EXPECT_EQ(desk.MusicState(), kStopped);
  desk.RunTo(12, 2, 1);
  EXPECT_EQ(desk.MusicState(), kPlaying);
}

TEST(ScheduleTick, ARowWhoseWholeMinutePassesUnderASequenceIsLost) {
  DeskOptions options = TwoRows("01", "02");
  options.Messages = {{"welcome", 150'000}, {"closing", 2000}};
  SpotDesk desk(options, kSilent);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
}

TEST(ScheduleTick, ARowWhoseMinuteStillRunsWhenTheSequenceEndsPlaysThen) {
  DeskOptions options = TwoRows("01", "02");
  options.Messages = {{"welcome", 90'000}, {"closing", 2000}};
  SpotDesk desk(options, kSilent);
  desk.AdvanceTo(100'000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n"
            "1200 send 127\n"
            "91000 wav end welcome.wav\n"
            "91000 send 0\n"
            "92000 wav play closing.wav\n"
            "92200 send 127\n"
            "94000 wav end closing.wav\n"
            "94000 send 0\n");
}

TEST(ScheduleTick, ARowUnderARowThatWaitsForTheSongsEndIsLost) {
  DeskOptions options = TwoRows("01", "03");
  options.Sequences[0].Timer = "Between";
  options.Music = {{"march", 300'000}};
  SpotDesk desk(options);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
}

TEST(ScheduleTick, ARowUnderACallIsLost) {
  SpotDesk desk({}, kSilent);
  desk.Press("cmdCall");
  desk.RunTo(12, 2, 5);
  desk.Release("cmdCall");
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "");
}

TEST(ScheduleTick, AMachineAsleepOverTheMinuteLosesIt) {
  SpotDesk desk({}, kSilent);
  desk.Pc.Loop.Block(70'000);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "");
}

// The clock set by hand or by the network.

TEST(ScheduleTick, AClockSetBackFiresTheRowASecondTime) {
  SpotDesk desk({}, kSilent);
  desk.RunTo(12, 3);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
  desk.Pc.Clock.Jump(-3 * 60);
  desk.RunTo(12, 3);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
}

TEST(ScheduleTick, AClockSetBackWithinTheMinuteOfTheRowDoesNot) {
  SpotDesk desk({}, kSilent);
  desk.RunTo(12, 1, 40);
  desk.Pc.Clock.Jump(-35);
  desk.RunTo(12, 3);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
}

TEST(ScheduleTick, AClockSetForwardOverAMinuteLosesItsRow) {
  SpotDesk desk({}, kSilent);
  desk.Pc.Clock.Jump(65);
  desk.RunTo(12, 30);
  EXPECT_EQ(TakePlays(desk), "");
}

TEST(ScheduleTick, AClockSetForwardIntoTheMinuteOfARowFiresIt) {
  SpotDesk desk({.Sequences = {{.Hours = "18"}}}, kSilent);
  desk.Pc.Clock.Jump(6 * 3600 + 30);
  desk.Advance(1000);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
}

TEST(ScheduleTick, TheAutumnHourPlaysItsRowsTwiceAndTheSpringHourNone) {
  SpotDesk autumn({.Sequences = {{.Hours = "2", .Minutes = "30"}}, .Now = {2024, 10, 27, 2, 29, 0}},
                  kSilent);
  autumn.RunTo(2, 59, 59);
  autumn.Pc.Clock.Jump(-3600);
  autumn.RunTo(4, 0);
  EXPECT_EQ(TakePlays(autumn), "welcome.wav\nwelcome.wav\n");
  SpotDesk spring(
      {.Sequences = {{.Hours = "2,3", .Minutes = "30"}}, .Now = {2024, 3, 31, 1, 59, 0}}, kSilent);
  spring.RunTo(1, 59, 59);
  spring.Pc.Clock.Jump(3600);
  spring.RunTo(4, 0);
  EXPECT_EQ(TakePlays(spring), "welcome.wav\n");
}

TEST(ScheduleTick, TheNightsAfterTheClocksWereChangedPlayTheirRowOnceEach) {
  struct Night {
    std::vector<int> Now;
    int JumpSeconds;
  };
  for (const Night& night :
       {Night{{2024, 10, 27, 2, 59, 0}, -3600}, {{2024, 3, 31, 1, 59, 0}, 3600}}) {
    SpotDesk desk({.Sequences = {{.Hours = "2", .Minutes = "30"}}, .Now = night.Now}, kSilent);
    desk.Pc.Clock.Jump(night.JumpSeconds);
    desk.RunTo(20, 0);
    TakePlays(desk);
    for (int day = 1; day <= 3; ++day) {
      desk.RunTo(2, 29, 59);
      EXPECT_EQ(TakePlays(desk), "") << day;
      desk.RunTo(20, 0);
      EXPECT_EQ(TakePlays(desk), "welcome.wav\n") << day;
    }
  }
}

TEST(ScheduleTick, AClockSetByAnHourAtNoonLosesAnHoursRowsOrPlaysThemAgain) {
  SpotDesk desk({.Sequences = {{.Hours = "12,13"}}}, kSilent);
  desk.Pc.Clock.Jump(3600);
  desk.RunTo(13, 30);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
  desk.Pc.Clock.Jump(-3600);
  desk.RunTo(13, 0);
  EXPECT_EQ(TakePlays(desk), "");
  desk.RunTo(13, 30);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
}

// Midnight.

DeskOptions NightDesk() {
  // From Sunday to Monday.
  return {.Sequences = {{.File = "a.sch",
                         .Messages = "welcome",
                         .Hours = "0",
                         .Minutes = "00,05",
                         .Weekdays = "1000000"},
                        {.File = "b.sch",
                         .Messages = "closing",
                         .Hours = "0",
                         .Minutes = "00,10",
                         .Weekdays = "0000007"}},
          .Now = {2024, 1, 7, 23, 58, 30}};
}

TEST(ScheduleTick, AtMidnightTheTableIsRebuiltFirstSoThatTheNewDaysRowPlays) {
  SpotDesk desk(NightDesk(), kSilent);
  EXPECT_THAT(desk.Rows(),
              testing::ElementsAre("00:00  ||123456||closing", "00:10  ||123456||closing"));
  desk.RunTo(23, 59, 59);
  TakePlays(desk);
  desk.Advance(10'000);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\n");
  EXPECT_THAT(desk.Rows(),
              testing::ElementsAre("00:00  ||123456||welcome", "00:05  ||123456||welcome"));
}

TEST(ScheduleTick, AMidnightThatAHigherCallTookLeavesTheTableOfYesterday) {
  SpotDesk desk(NightDesk(), kSilent);
  desk.Status(128);
  desk.RunTo(0, 0, 30);
  desk.Status(0);
  desk.RunTo(0, 30);
  EXPECT_EQ(TakePlays(desk), "closing.wav\n");
  EXPECT_EQ(desk.Rows().front(), "00:00  ||123456||closing");
}

TEST(ScheduleTick, AMidnightUnderASequenceLeavesTheTableOfYesterday) {
  DeskOptions options = NightDesk();
  options.Messages = {{"long", 120'000}};
  options.Sequences.push_back(
      {.File = "c.sch", .Messages = "long", .Hours = "23", .Minutes = "59"});
  SpotDesk desk(options, kSilent);
  desk.RunTo(0, 3);
  EXPECT_EQ(desk.Rows().front(), "00:00  ||123456||closing");
}

TEST(ScheduleTick, ARowThatTheOperatorTookOutReturnsWithTheNewDay) {
  SpotDesk desk(TwoRows("01", "01"), kSilent);
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(1), 0);
  desk.RunTo(23, 59, 59);
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(1), 0);
  desk.Advance(1500);
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(1), Grid::kDefaultRowHeight);
  EXPECT_EQ(desk.Paint(1), "rwwww");
  EXPECT_EQ(desk.Paint(2), "rwwww");
}

TEST(ScheduleTick, MidnightClearsTheOperatorsStopAfterTheMusicsClockRan) {
  SpotDesk desk({.StartTime = "00:00",
                 .StopTime = "23:59",
                 .WeekDays = "1234567",
                 .Now = {2024, 1, 1, 23, 58, 0}});
  desk.Click("cmdStop");
  desk.RunTo(0, 0, 30);
  EXPECT_FALSE(desk.State().MusicStoppedByUser);
  EXPECT_EQ(desk.MusicState(), kStopped);
  desk.RunTo(0, 1, 1);
  EXPECT_EQ(desk.MusicState(), kPlaying);
}

TEST(ScheduleTick, AMidnightThatIsLostForgivesNothing) {
  SpotDesk desk({.Now = {2024, 1, 1, 23, 58, 0}});
  desk.Click("cmdStop");
  desk.Status(64);
  desk.RunTo(0, 0, 30);
  EXPECT_TRUE(desk.State().MusicStoppedByUser);
}

TEST(ScheduleTick, AFileEditedOverTheDayCountsFromMidnightOn) {
  SpotDesk desk({}, kSilent);
  desk.RunTo(12, 2);
  TakePlays(desk);
  desk.Pc.Profiles.WriteString("Schedule", "Message(s)", "closing", "/app/spot.sch");
  EXPECT_EQ(desk.Cell(1, kMessagesColumn), "welcome,closing");
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(TakePlays(desk), "closing.wav\n");
}

// The marks of the firing row.

std::string PaintOfAll(SpotDesk& desk) {
  std::string paint;
  for (int row = 1; row < desk.Main().grdSchedule.Rows(); ++row) paint += desk.Paint(row) + "\n";
  return paint;
}

TEST(ScheduleTick, TheFiringRowStaysNavyWithWhiteTextUntilTheNextOne) {
  SpotDesk desk(TwoRows("01", "02"), kSilent);
  desk.RunTo(12, 1, 59);
  EXPECT_EQ(PaintOfAll(desk), "nnnnn\nwwwww\n");
  for (int column = 0; column < Grid::kColumns; ++column) {
    EXPECT_EQ(desk.Main().grdSchedule.ForeColorAt(1, column), kWhite);
  }
  desk.RunTo(12, 30);
  EXPECT_EQ(PaintOfAll(desk), "wwwww\nnnnnn\n");
  for (int column = 0; column < Grid::kColumns; ++column) {
    EXPECT_EQ(desk.Main().grdSchedule.ForeColorAt(1, column), kBlack);
  }
}

TEST(ScheduleTick, TheMarksAboveTheFiringRowAreWipedAndThoseBelowStay) {
  SpotDesk desk({.Sequences = {{.File = "a.sch", .Hours = "11,12", .Minutes = "01,02"},
                               {.File = "b.sch", .Hours = "11,12", .Minutes = "02"}}},
                kSilent);
  EXPECT_EQ(PaintOfAll(desk), "wwwww\nrwwww\nrwwww\nwwwww\nrwwww\nrwwww\n");
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(PaintOfAll(desk), "wwwww\nwwwww\nwwwww\nnnnnn\nrwwww\nrwwww\n");
}

TEST(ScheduleTick, AFiringRowDownToTheSixthLeavesTheTableWhereItIs) {
  SpotDesk desk({.Sequences = {{.Hours = "12", .Minutes = "01,02,03,04,05,06,07,08,09"}}}, kSilent);
  const Grid& table = desk.Main().grdSchedule;
  desk.RunTo(12, 6, 30);
  EXPECT_EQ(table.TopRow(), 1);
  desk.RunTo(12, 7, 30);
  EXPECT_EQ(table.TopRow(), 1);
  desk.RunTo(12, 9, 30);
  EXPECT_EQ(table.TopRow(), 3);
  EXPECT_EQ(desk.Paint(9), "nnnnn");
}

// The music's clock goes first.

TEST(ScheduleTick, MusicThatStartsInTheMinuteOfARowIsFadedForItAtOnce) {
  SpotDesk desk({.StartTime = "12:01", .StopTime = "13:00", .WeekDays = "1234567"}, kSilent);
  desk.AdvanceTo(2000);
  EXPECT_EQ(desk.Journal(),
            "1000 song play march.mp3\n"
            "1200 send 67\n"
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "1729 send 68\n");
}

TEST(ScheduleTick, MusicThatStopsInTheMinuteOfARowIsOverWhenTheRowPlays) {
  SpotDesk desk({.StartTime = "11:00", .StopTime = "12:01", .WeekDays = "1234567"}, kSilent);
  ASSERT_EQ(desk.MusicState(), kPlaying);
  desk.AdvanceTo(8000);
  EXPECT_EQ(desk.Journal(),
            "1529 song stop\n"
            "1529 send 0\n"
            "1529 wav play welcome.wav\n"
            "1729 send 68\n"
            "4529 wav end welcome.wav\n"
            "4529 wav play closing.wav\n"
            "6529 wav end closing.wav\n"
            "6529 send 0\n");
}

TEST(ScheduleTick, TicksInTheFadeOfTheMusicsStopFindTheirMinuteUsedUp) {
  SpotDesk desk(
      {.FadeTime = "Slow", .StartTime = "11:00", .StopTime = "12:01", .WeekDays = "1234567"},
      kSilent);
  desk.AdvanceTo(2500);
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  desk.AdvanceTo(3000);
  EXPECT_EQ(desk.Journal(),
            "2518 song stop\n"
            "2518 send 0\n"
            "2518 wav play welcome.wav\n"
            "2718 send 68\n");
}

TEST(ScheduleTick, AnUnansweredErrorBoxStopsNoTickAndOpensOnce) {
  SpotDesk desk({.StartTime = "12:01", .StopTime = "13:00", .WeekDays = "1234567"}, kSilent);
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Pc.Disk.Vanish("/music");
  desk.RunTo(12, 5);
  EXPECT_EQ(TakePlays(desk), "welcome.wav\nclosing.wav\n");
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(desk.Sys->Tick.LastMinute, "12:05");
}

}  // namespace
}  // namespace marlex
