#include "schedule/schedule_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The texts of the time column.
std::vector<std::string> Times(Desk& desk) {
  std::vector<std::string> times;
  for (int row = 1; row < desk.Main().grdSchedule.Rows(); ++row) {
    times.push_back(desk.Cell(row, kTimeColumn));
  }
  return times;
}

TEST(ScheduleTable, EveryHourAndMinuteOfASequenceIsARow) {
  Desk desk({.Sequences = {{.Messages = "welcome,closing",
                            .Hours = "8-10",
                            .Minutes = "00,30",
                            .Weekdays = "1234500",
                            .Zones = "120000"}},
             .AllDays = true,
             .ScheduleName = true});
  EXPECT_THAT(desk.Rows(), ElementsAre("08:00  |1234500|120000|spot|welcome,closing",
                                       "08:30  |1234500|120000|spot|welcome,closing",
                                       "09:00  |1234500|120000|spot|welcome,closing",
                                       "09:30  |1234500|120000|spot|welcome,closing",
                                       "10:00  |1234500|120000|spot|welcome,closing",
                                       "10:30  |1234500|120000|spot|welcome,closing"));
}

TEST(ScheduleTable, MinutesDoNotRollOverIntoTheHour) {
  Desk desk({.Sequences = {{.Hours = "08", .Minutes = "45,00,15,30"}}});
  EXPECT_THAT(Times(desk), ElementsAre("08:00  ", "08:15  ", "08:30  ", "08:45  "));
}

TEST(ScheduleTable, RowsAreSortedByTimeWithTheSetTimeBeforeTheBreak) {
  Desk desk({.Sequences = {{.File = "a.sch", .Hours = "9,7", .Timer = "Between"},
                           {.File = "b.sch", .Hours = "8,7"},
                           {.File = "c.sch", .Hours = "22-1"}}});
  EXPECT_THAT(Times(desk), ElementsAre("00:01  ", "01:01  ", "07:01  ", "07:01+", "08:01  ",
                                       "09:01+", "22:01  ", "23:01  "));
}

TEST(ScheduleTable, RowsOfOneTextKeepTheOrderOfTheFiles) {
  Desk desk({.Sequences = {{.File = "a.sch", .Messages = "first"},
                           {.File = "b.sch", .Messages = "second"},
                           {.File = "c.sch", .Messages = "third"}}});
  EXPECT_EQ(desk.Cell(1, kMessagesColumn), "first");
  EXPECT_EQ(desk.Cell(2, kMessagesColumn), "second");
  EXPECT_EQ(desk.Cell(3, kMessagesColumn), "third");
}

TEST(ScheduleTable, TwoFilesWithEqualRowsGiveTwoRowsOfTheTime) {
  Desk desk({.Sequences = {{.File = "a.sch"}, {.File = "b.sch"}}});
  EXPECT_THAT(Times(desk), ElementsAre("12:01  ", "12:01  "));
}

TEST(ScheduleTable, DuplicateHoursAndMinutesGiveDuplicateRowsThatConflict) {
  Desk desk({.Sequences = {{.Hours = "8,8", .Minutes = "00,30,30"}}});
  EXPECT_THAT(Times(desk),
              ElementsAre("08:00  ", "08:00  ", "08:30  ", "08:30  ", "08:30  ", "08:30  "));
  for (int row = 1; row <= 6; ++row) EXPECT_EQ(desk.CellColor(row, kTimeColumn), kRed);
}

TEST(ScheduleTable, AWholeDayEveryTwoMinutesGives720Rows) {
  std::string minutes = "00";
  for (int minute = 2; minute < 60; minute += 2) minutes += "," + std::to_string(minute);
  Desk desk({.Sequences = {{.Hours = "0-23", .Minutes = minutes}}});
  EXPECT_EQ(Times(desk).size(), 720U);
  EXPECT_EQ(Times(desk).front(), "00:00  ");
  EXPECT_EQ(Times(desk).back(), "23:58  ");
}

TEST(ScheduleTable, AnHourThatGivesNoneAddsNoRow) {
  Desk desk({.Sequences = {{.Hours = "30-2"}}});
  EXPECT_THAT(Times(desk), IsEmpty());
  EXPECT_THAT(desk.Pc.Dialogs.Boxes, IsEmpty());
}

TEST(ScheduleTable, OddItemsComeOutAsOddRowsThatNeverFire) {
  Desk desk({.Sequences = {{.Hours = "007", .Minutes = ""}, {.File = "b.sch", .Minutes = "1,"}}});
  EXPECT_THAT(Times(desk), ElementsAre("007:  ", "12:  ", "12:01  "));
}

TEST(ScheduleTable, WithNoOpenFileOnlyTheHeadingIsThere) {
  Desk desk;
  EXPECT_EQ(desk.Main().grdSchedule.Rows(), 1);
  EXPECT_FALSE(desk.Visible("lblConflict"));
}

TEST(ScheduleTable, RebuildingAnEmptyListKeepsTheConflictFlag) {
  Desk desk;
  desk.Do([&] {
    desk.Sys->TheConflicts.ConflictFound = true;
    desk.Values().AllDaysView = true;
    desk.Main().grdSchedule.SetRows(5);
    desk.Sys->Table.RebuildScheduleTable();
  });
  const Grid& table = desk.Main().grdSchedule;
  EXPECT_EQ(table.Rows(), 1);
  EXPECT_TRUE(desk.Sys->TheConflicts.ConflictFound);
  EXPECT_EQ(table.ColWidth(kDaysColumn), 800);
  EXPECT_EQ(table.TextMatrix(0, kDaysColumn), "Days");
  EXPECT_EQ(table.ColWidth(kNameColumn), 0);
}

TEST(ScheduleTable, ARebuildBringsRemovedRowsBack) {
  Desk desk({.Sequences = {{.File = "a.sch"}, {.File = "b.sch"}}});
  desk.DoubleClickCell(2, kTimeColumn);
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(2), 0);
  desk.Do([&] { desk.Sys->Table.RebuildScheduleTable(); });
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(2), Grid::kDefaultRowHeight);
}

TEST(ScheduleTable, ARebuildSortsByTimeWhicheverCellIsTheCurrentOne) {
  Desk desk({.Sequences = {{.File = "a.sch", .Messages = "alarm", .Hours = "9"},
                           {.File = "b.sch", .Messages = "bell", .Hours = "8,8"}}});
  desk.DoubleClickCell(1, kMessagesColumn);
  desk.Click("mnuScheduleName");
  EXPECT_THAT(Times(desk), ElementsAre("08:01  ", "08:01  ", "09:01  "));
  EXPECT_EQ(desk.CellColor(1, kTimeColumn), kRed);
}

TEST(ScheduleTable, ARebuildForgetsWhichRowFiredLast) {
  Desk desk({.Sequences = {{}}});
  desk.RunTo(12, 2);
  ASSERT_EQ(desk.CellColor(1, kMessagesColumn), kNavy);
  desk.Click("mnuScheduleName");
  EXPECT_EQ(desk.CellColor(1, kMessagesColumn), kWhite);
}

TEST(ScheduleTable, TheViewOfTheDayHoldsTheSequencesOfTheDay) {
  // The first of January 2024 is a Monday.
  for (int day = 1; day <= 7; ++day) {
    std::string mask = "0000000";
    mask[static_cast<std::size_t>(day - 1)] = static_cast<char>('0' + day);
    std::string others = "1234567";
    others[static_cast<std::size_t>(day - 1)] = '0';
    Desk desk({.Sequences = {{.File = "today.sch", .Weekdays = mask},
                             {.File = "other.sch", .Hours = "13", .Weekdays = others}},
               .ScheduleName = true,
               .Now = {2024, 1, day, 9, 0, 0}});
    EXPECT_THAT(desk.Rows(), ElementsAre("12:01  ||123456|today|welcome")) << day;
  }
}

TEST(ScheduleTable, InTheViewOfTheDayAShortOrOddMaskGivesItsRows) {
  const auto rowsOnSunday = [](const std::string& mask) {
    Desk desk({.Sequences = {{.Weekdays = mask}}, .Now = {2024, 1, 7, 9, 0, 0}});
    return Times(desk).size();
  };
  EXPECT_EQ(rowsOnSunday(""), 1U);
  EXPECT_EQ(rowsOnSunday("000000"), 1U);
  EXPECT_EQ(rowsOnSunday("0000009"), 1U);
  EXPECT_EQ(rowsOnSunday("000000x"), 1U);
  EXPECT_EQ(rowsOnSunday("1234560"), 0U);
}

TEST(ScheduleTable, AFileOfAnotherDayIsNotExpandedAndBreaksNoLimit) {
  Desk desk({.Sequences = {{.Hours = "5-5", .Weekdays = "0234567"}}});
  EXPECT_THAT(desk.Pc.Dialogs.Boxes, IsEmpty());
}

TEST(ScheduleTable, TheNameIsTheFilesUpToItsFirstPoint) {
  Desk desk({.Sequences = {{.File = "late.show.2.sch"}}, .ScheduleName = true});
  EXPECT_EQ(desk.Cell(1, kNameColumn), "late");
}

TEST(ScheduleTable, EditsCountFromTheNextBuildOn) {
  Desk desk({.Sequences = {{}}});
  desk.Pc.Profiles.WriteString("Schedule", "Hour(s)", "13", "/app/spot.sch");
  EXPECT_THAT(Times(desk), ElementsAre("12:01  "));
  desk.Click("mnuScheduleName");
  EXPECT_THAT(Times(desk), ElementsAre("13:01  "));
}

/// The minutes 00 to `count` - 1; at most the thirty that an expression can hold.
std::string MinutesUpTo(int count) {
  std::string minutes = "00";
  for (int minute = 1; minute < count; ++minute) minutes += "," + std::to_string(minute);
  return minutes;
}

/// The given number of sequence files with 720 rows each, none of which runs on any day.
DeskOptions WholeDays(int files) {
  DeskOptions options{.AllDays = true};
  for (int file = 0; file < files; ++file) {
    options.Sequences.push_back({.File = "f" + std::to_string(file) + ".sch",
                                 .Hours = "0-23",
                                 .Minutes = MinutesUpTo(30),
                                 .Weekdays = "0000000"});
  }
  return options;
}

TEST(ScheduleTable, AFileThatWouldMakeTheTableTooLongIsNamedAndTheOthersStay) {
  DeskOptions options = WholeDays(46);
  options.Sequences.push_back({.File = "last.sch"});
  Desk desk(options);
  EXPECT_EQ(desk.Main().grdSchedule.Rows() - 1, 45 * 720 + 1);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_THAT(desk.Pc.Dialogs.Boxes.front().Body, HasSubstr("f45.sch"));
}

TEST(ScheduleTable, TheLongestTableIsBuiltAndOneRowMoreIsReported) {
  for (const bool oneMore : {false, true}) {
    DeskOptions options = WholeDays(45);
    options.Sequences.push_back(
        {.File = "half.sch", .Hours = "0-11", .Minutes = MinutesUpTo(30), .Weekdays = "0000000"});
    options.Sequences.push_back(
        {.File = "rest.sch", .Minutes = MinutesUpTo(7), .Weekdays = "0000000"});
    if (oneMore) options.Sequences.push_back({.File = "more.sch"});
    Desk desk(options);
    EXPECT_EQ(desk.Main().grdSchedule.Rows() - 1, 32767);
    ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), oneMore ? 1U : 0U);
    for (const auto& box : desk.Pc.Dialogs.Boxes) EXPECT_THAT(box.Body, HasSubstr("more.sch"));
  }
}

/// Every build shows one box for a file that cannot be used, so the boxes count the builds.
TEST(ScheduleTable, IsBuiltOnceForEachOfItsOccasions) {
  Desk desk({.Sequences = {{.Hours = "-5"}}, .Now = {2024, 1, 1, 23, 58, 30}});
  const auto builds = [&desk](const std::function<void()>& deed) {
    const auto before = desk.Pc.Dialogs.Boxes.size();
    deed();
    desk.Advance(0);
    return desk.Pc.Dialogs.Boxes.size() - before;
  };
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U) << "the start";
  for (const char* menu : {"mnuAllDays", "mnuCurrentDay", "mnuScheduleName", "mnuSchedule"}) {
    EXPECT_EQ(builds([&] { desk.Click(menu); }), 1U) << menu;
  }
  EXPECT_EQ(builds([&] { desk.Click("mnuExit"); }), 1U) << "the close of the editor";
  desk.Click("mnuSettings");
  EXPECT_EQ(builds([&] { desk.Click("cmdOK"); }), 1U) << "the OK of the settings";
  desk.Pc.Dialogs.OpenResults = {"/app/spot.sch"};
  EXPECT_EQ(builds([&] { desk.Click("mnuSequence"); }), 1U) << "opened files";
  EXPECT_EQ(builds([&] { desk.RunTo(23, 59, 59); }), 0U);
  EXPECT_EQ(builds([&] { desk.RunTo(0, 2); }), 1U) << "midnight";
}

// The columns.

struct ColumnCase {
  int Column;
  std::string Heading;
  int Width;
};

void ExpectColumns(Desk& desk, const std::vector<ColumnCase>& columns) {
  const Grid& table = desk.Main().grdSchedule;
  for (const ColumnCase& column : columns) {
    EXPECT_EQ(table.TextMatrix(0, column.Column), column.Heading) << column.Column;
    EXPECT_EQ(table.ColWidth(column.Column), column.Width) << column.Column;
  }
}

TEST(ScheduleColumns, WithEverythingOnShowEveryColumnHasItsHeadingAndItsWidth) {
  Desk desk({.Sequences = {{}}, .AllDays = true, .ScheduleName = true});
  ExpectColumns(desk, {{kTimeColumn, "Time", 600},
                       {kDaysColumn, "Days", 800},
                       {kRoutingColumn, "Routing", 800},
                       {kNameColumn, "Schedule", 1800},
                       {kMessagesColumn, "Message info", 6500}});
  EXPECT_THAT(desk.Rows(), ElementsAre("12:01  |1234567|123456|spot|welcome"));
}

TEST(ScheduleColumns, WithNothingOnShowTheHiddenColumnsLoseHeadingWidthAndText) {
  Desk desk({.Sequences = {{}}, .Router = false});
  ExpectColumns(desk, {{kTimeColumn, "Time", 600},
                       {kDaysColumn, "", 0},
                       {kRoutingColumn, "", 0},
                       {kNameColumn, "", 0},
                       {kMessagesColumn, "Message info", 6500}});
  EXPECT_THAT(desk.Rows(), ElementsAre("12:01  ||||welcome"));
}

TEST(ScheduleColumns, TimesDaysAndZonesAreCentredNamesAndMessagesAreLeft) {
  Desk desk;
  const Grid& table = desk.Main().grdSchedule;
  for (const int column : {kTimeColumn, kDaysColumn, kRoutingColumn}) {
    EXPECT_EQ(table.ColAlignment(column), GridAlignment::Centre);
  }
  for (const int column : {kNameColumn, kMessagesColumn}) {
    EXPECT_EQ(table.ColAlignment(column), GridAlignment::Left);
  }
}

TEST(ScheduleColumns, WhileAConflictIsPendingTheHiddenDataStays) {
  Desk desk({.Sequences = {{.File = "a.sch"}, {.File = "b.sch"}}, .Router = false});
  EXPECT_THAT(desk.Rows(),
              ElementsAre("12:01  |1234567|123456|a|welcome", "12:01  |1234567|123456|b|welcome"));
  ExpectColumns(desk, {{kDaysColumn, "", 0}, {kRoutingColumn, "", 0}, {kNameColumn, "", 0}});
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_THAT(desk.Rows(), ElementsAre("12:01  ||||welcome", "12:01  ||||welcome"));
}

}  // namespace
}  // namespace marlex
