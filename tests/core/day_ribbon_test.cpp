#include "core/day_ribbon.h"

#include <gtest/gtest.h>

#include "schedule/spot_desk.h"
#include "state/week_time.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;
constexpr int kSpeakingMs = 3000;  // after a press: the fade is over, and the microphone open

DayRibbon Day(const Desk& desk) { return desk.Sys->ThePasserby.Look().Day; }

std::string Clock(int minute) {
  return MinuteText({.Hour = minute / 60, .Minute = minute % 60}) + (minute == 1440 ? "!" : "");
}

std::string Word(DayMarkState state) {
  switch (state) {
    case DayMarkState::Gone:
      return " gone";
    case DayMarkState::Conflict:
      return " conflict";
    case DayMarkState::Playing:
      return " playing";
    case DayMarkState::Coming:
      break;
  }
  return "";
}

/// The marks, as "12:01+ gone, 12:02".
std::string Marks(const Desk& desk) {
  std::string marks;
  for (const DayMark& mark : Day(desk).Marks) {
    marks += marks.empty() ? "" : ", ";
    marks += Clock(mark.Minute) + (mark.AtBreak ? "+" : "") + Word(mark.State);
  }
  return marks;
}

std::string Music(const DeskOptions& options) {
  const Desk desk(options);
  const DaySpan span = Day(desk).MusicHours;
  return span.From == span.To ? "none" : Clock(span.From) + "-" + Clock(span.To);
}

DeskOptions WithMusic(const std::string& start, const std::string& stop,
                      const std::string& days = "1234567") {
  return {.Music = {{"march"}}, .StartTime = start, .StopTime = stop, .WeekDays = days};
}

Sequence At(const std::string& hours, const std::string& minutes,
            const std::string& days = "1234567") {
  const std::string name = "at" + hours + minutes + days;
  return {name + ".sch", name, hours, minutes, days};
}

Sequence AtBreak(Sequence row) {
  row.Timer = "Between";
  return row;
}

TEST(DayRibbon, MarksEachAnnouncementAtItsMinuteAndByItsKind) {
  const Desk desk({.Sequences = {At("8,14", "00,30"), AtBreak(At("13", "15"))}});
  EXPECT_EQ(Marks(desk), "08:00 gone, 08:30 gone, 13:15+, 14:00, 14:30");
  EXPECT_EQ(Day(desk).Marks.front().Minute, 8 * 60);
}

TEST(DayRibbon, NamesTheTimeAndTheMessagesOfAMark) {
  const Desk desk({.Sequences = {{"a.sch", "gong,closing", "13", "00"},
                                 {"b.sch", "lunch", "13", "30", "1234567", "123456", "Between"}}});
  EXPECT_EQ(Day(desk).Marks.front().Tip, "13:00 gong,closing");
  EXPECT_EQ(Day(desk).Marks.back().Tip, "13:30+ lunch");
}

TEST(DayRibbon, HasAnEmptyScheduleWithoutMarks) {
  const Desk desk;
  EXPECT_EQ(Marks(desk), "");
  EXPECT_EQ(Day(desk).Now, 12 * 60);
}

TEST(DayRibbon, HasARowGoneByOnceTheTickHasAcceptedItsMinute) {
  SpotDesk desk({.Sequences = {At("12", "01,02")}}, kSilent);
  EXPECT_EQ(Marks(desk), "12:01, 12:02");
  desk.Advance(SpotDesk::kDue - 1);
  EXPECT_EQ(Marks(desk), "12:01, 12:02");
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(Day(desk).Now, 12 * 60 + 1);
  EXPECT_EQ(Marks(desk), "12:01 gone, 12:02");
  desk.RunTo(12, 3);
  EXPECT_EQ(Marks(desk), "12:01 gone, 12:02 gone");
}

TEST(DayRibbon, KeepsTheMarkOfAHeldMinuteUntilTheMinuteIsOver) {
  SpotDesk desk({.Sequences = {At("12", "01")}}, kSilent);
  desk.Press("cmdCall");
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(Marks(desk), "12:01");  // should the call end in this minute
  desk.RunTo(12, 2);
  EXPECT_EQ(Marks(desk), "12:01 gone");
}

TEST(DayRibbon, ShowsTheAnnouncementThatPlaysAndNoPreview) {
  SpotDesk desk({.Sequences = {{"a.sch", "welcome", "12", "01,02"}}});
  desk.AdvanceTo(SpotDesk::kFadedDown - 1);
  EXPECT_EQ(Marks(desk), "12:01 gone, 12:02");
  desk.AdvanceTo(SpotDesk::kFadedDown + 1);
  EXPECT_EQ(Marks(desk), "12:01 playing, 12:02");
  desk.AdvanceTo(SpotDesk::kFadedUp);
  EXPECT_EQ(Marks(desk), "12:01 gone, 12:02");
  desk.Press("cmdCall");
  desk.Advance(kSpeakingMs);
  EXPECT_EQ(Marks(desk), "12:01 gone, 12:02");
}

TEST(DayRibbon, ShowsTheAnnouncementThatPlaysAfterItsMinuteToo) {
  SpotDesk desk({.Messages = {{"long", 150'000}}, .Sequences = {{"a.sch", "long", "12", "01,02"}}},
                kSilent);
  desk.RunTo(12, 3);
  EXPECT_EQ(Marks(desk), "12:01 playing, 12:02 gone");
}

/// In a language other than English the takeover leaves the file playing, unheard.
TEST(DayRibbon, ShowsNoAnnouncementThatATakeoverMutes) {
  SpotDesk desk({.Sequences = {{"a.sch", "welcome", "12", "01,02"}}, .Language = "German"});
  desk.AdvanceTo(SpotDesk::kFadedDown + 1);
  ASSERT_EQ(Marks(desk), "12:01 playing, 12:02");
  desk.Status(128);
  ASSERT_TRUE(desk.State().MessagePlaying);
  EXPECT_EQ(Marks(desk), "12:01 gone, 12:02");
}

TEST(DayRibbon, KeepsTheMarkOfARowThatWaitsForTheBreakUntilItPlays) {
  SpotDesk desk({.Messages = {{"at12011234567", 3000}},
                 .Sequences = {AtBreak(At("12", "01")), At("12", "05")}});
  desk.RunTo(12, 2, 30);
  EXPECT_EQ(Marks(desk), "12:01+, 12:05");
  desk.Click("cmdSkip");
  desk.Advance(1);
  EXPECT_EQ(Marks(desk), "12:01+ playing, 12:05");
  desk.Advance(4000);
  EXPECT_EQ(Marks(desk), "12:01+ gone, 12:05");
}

TEST(DayRibbon, DropsTheMarkOfAWaitingRowWhoseMessagesACallDropped) {
  SpotDesk desk({.Sequences = {AtBreak(At("12", "01"))}});
  desk.AdvanceTo(SpotDesk::kDue);
  ASSERT_EQ(Marks(desk), "12:01+");
  desk.Press("cmdCall");
  desk.Advance(kSpeakingMs);
  EXPECT_EQ(Marks(desk), "12:01+ gone");
}

TEST(DayRibbon, ShowsAConflictUntilItIsResolvedOrGoneBy) {
  const std::vector<Sequence> rows = {At("8,13", "00"), At("8,13", "00,30")};
  Desk desk({.Sequences = rows});
  EXPECT_EQ(Marks(desk), "08:00 gone, 08:30 gone, 13:00 conflict, 13:30");
  EXPECT_EQ(Day(desk).Marks[2].Tip, "13:00 " + rows[0].Messages + "\n13:00 " + rows[1].Messages);
  ASSERT_EQ(desk.Cell(4, kTimeColumn), "13:00  ");
  desk.DoubleClickCell(4, kTimeColumn);
  EXPECT_EQ(Marks(desk), "08:00 gone, 08:30 gone, 13:00, 13:30");
  EXPECT_EQ(Day(desk).Marks[2].Tip, "13:00 " + rows[1].Messages);
}

TEST(DayRibbon, HasAConflictGoneByThoughItsLaterRowIsStillRed) {
  SpotDesk desk({.Sequences = {{"a.sch", "welcome", "12", "01"}, At("12,13", "01,02")}}, kSilent);
  ASSERT_EQ(Marks(desk), "12:01 conflict, 12:02, 13:01, 13:02");
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(Marks(desk), "12:01 playing, 12:02, 13:01, 13:02");
  desk.RunTo(12, 1, 30);
  ASSERT_EQ(desk.CellColor(2, kTimeColumn), kRed);
  EXPECT_EQ(Marks(desk), "12:01 gone, 12:02, 13:01, 13:02");
}

TEST(DayRibbon, HasNoMarkForAMinuteWhoseRowsAreRemoved) {
  Desk desk({.Sequences = {At("13", "00"), At("14", "00")}});
  desk.Do([&desk] { desk.Main().grdSchedule.SetRowHeight(1, 0); });
  EXPECT_EQ(Marks(desk), "14:00");
}

TEST(DayRibbon, ShowsTodayAloneThoughTheTableHoldsAllDays) {
  const std::vector<Sequence> rows = {At("13", "00", "0200000"), At("14", "00"),
                                      At("15", "00", "0034500")};
  EXPECT_EQ(Marks(Desk({.Sequences = rows, .AllDays = true})), "14:00");
  EXPECT_EQ(Marks(Desk({.Sequences = rows, .AllDays = true, .Now = {2024, 1, 3, 12, 0, 30}})),
            "14:00, 15:00");
}

TEST(DayRibbon, PassesOverAConflictOfAnotherDay) {
  const std::vector<Sequence> rows = {At("13", "00"), At("13", "00", "0200000")};
  Desk desk({.Sequences = rows, .AllDays = true});
  ASSERT_EQ(desk.CellColor(1, kTimeColumn), kRed);
  EXPECT_EQ(Marks(desk), "13:00");
}

TEST(DayRibbon, HasNoMarkForAMinuteWhoseFirstRowIsOfAnotherDay) {
  const Desk desk({.Sequences = {At("13", "00", "0200000"), At("13", "00")}, .AllDays = true});
  EXPECT_EQ(Marks(desk), "");  // the tick looks at the first row alone
}

TEST(DayRibbon, FollowsTheTickThatReadsSundaysDigitOnASaturday) {
  const std::vector<int> saturday = {2024, 1, 6, 12, 0, 30};
  const std::vector<Sequence> rows = {At("13", "00", "0000060"), At("14", "00", "0000007")};
  EXPECT_EQ(Marks(Desk({.Sequences = rows, .AllDays = true, .Now = saturday})), "14:00");
  EXPECT_EQ(Marks(Desk({.Sequences = rows, .Now = saturday})), "13:00");
}

TEST(DayRibbon, ShowsAConflictOnASaturdayThoughNeitherRowFires) {
  const std::vector<Sequence> rows = {At("13", "00", "0000060"), At("13", "00,30", "0000060")};
  Desk desk({.Sequences = rows, .Now = {2024, 1, 6, 12, 0, 30}});
  EXPECT_EQ(Marks(desk), "13:00 conflict");
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_EQ(Marks(desk), "13:00, 13:30");
}

TEST(DayRibbon, HasNoMarkForATimeThatNoClockShows) {
  Desk desk({.Sequences = {At("13", "00")}});
  for (const char* time : {":+", "24:00  ", "13:60  ", "007:0  ", "1a:00  ", "-1:10  ", ""}) {
    desk.Do([&desk, time] { desk.Main().grdSchedule.SetTextMatrix(1, kTimeColumn, time); });
    EXPECT_EQ(Marks(desk), "") << time;
  }
  desk.Do([&desk] { desk.Main().grdSchedule.SetTextMatrix(1, kTimeColumn, "23:59  "); });
  EXPECT_EQ(Marks(desk), "23:59");
}

TEST(DayRibbon, BeginsAgainAtMidnight) {
  SpotDesk desk(
      {.Sequences = {At("0,23", "00"), At("9", "00", "0200000")}, .Now = {2024, 1, 1, 23, 58, 30}},
      kSilent);
  EXPECT_EQ(Marks(desk), "00:00 gone, 23:00 gone");
  desk.RunTo(23, 59, 59);
  EXPECT_EQ(Day(desk).Now, kMinutesPerDay - 1);
  desk.RunTo(0, 0, 30);
  EXPECT_EQ(Day(desk).Now, 0);
  EXPECT_EQ(Marks(desk), "00:00 gone, 09:00, 23:00");
}

TEST(DayRibbon, ShowsTheMusicsHoursOfToday) {
  EXPECT_EQ(Music(WithMusic("08:00", "18:30")), "08:00-18:30");
  EXPECT_EQ(Music(WithMusic("00:00", "23:59")), "00:00-23:59");
  EXPECT_EQ(Music(WithMusic("08:00", "18:30", "0234567")), "none");
  EXPECT_EQ(Music(WithMusic("08:00", "18:30", "")), "08:00-18:30");
}

TEST(DayRibbon, ShowsNoMusicWhereTheClockStartsNone) {
  EXPECT_EQ(Music({}), "none");
  EXPECT_EQ(Music(WithMusic("", "")), "none");
  EXPECT_EQ(Music(WithMusic("08:00", "")), "none");
  EXPECT_EQ(Music(WithMusic("22:00", "06:00")), "none");  // no window crosses midnight
  EXPECT_EQ(Music(WithMusic("08:00", "08:00")), "none");
}

TEST(DayRibbon, TakesTheMusicsTimesAsTheTextsThatTheClockCompares) {
  EXPECT_EQ(Music(WithMusic("", "06:00")), "none");
  EXPECT_EQ(Music(WithMusic("08:00", "24:00")), "08:00-24:00!");
  EXPECT_EQ(Music(WithMusic("08", "9")), "08:00-24:00!");
}

TEST(DayRibbon, NamesNoMoreRowsOfAMinuteThanATipCanHold) {
  const Desk desk({.Sequences = {{"a.sch", "welcome", "13", "0,0,0,0,0,0,0,0,0,0"}}});
  std::string tip;
  for (int row = 0; row < 8; ++row) tip += "13:00 welcome\n";
  EXPECT_EQ(Day(desk).Marks.front().Tip, tip + "...");
}

TEST(DayRibbon, ChangesNothing) {
  SpotDesk desk;
  desk.TakeJournal();
  const std::vector<std::string> rows = desk.Rows();
  for (int look = 0; look < 3; ++look) desk.Sys->TheDay.Look();
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_EQ(desk.Rows(), rows);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
}

}  // namespace
}  // namespace marlex
