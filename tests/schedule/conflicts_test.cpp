#include "schedule/conflicts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

/// A letter for each row: "r" or "w" for a red or white time cell, "-" for a removed row.
std::string Marks(Desk& desk) {
  const Grid& table = desk.Main().grdSchedule;
  std::string marks;
  for (int row = 1; row < table.Rows(); ++row) {
    const bool red = desk.CellColor(row, kTimeColumn) == kRed;
    EXPECT_EQ(table.ForeColorAt(row, kTimeColumn), red ? kWhite : kBlack);
    for (int column = 1; column < Grid::kColumns; ++column) {
      EXPECT_EQ(desk.CellColor(row, column), kWhite);
    }
    marks += table.RowHeight(row) == 0 ? '-' : red ? 'r' : 'w';
  }
  return marks;
}

/// A desk with one row at 12:01 for each mask, in the view of all days.
struct ConflictDesk : Desk {
  explicit ConflictDesk(const std::vector<std::string>& masks, DeskOptions options = {})
      : Desk(With(masks, std::move(options))) {}

  static DeskOptions With(const std::vector<std::string>& masks, DeskOptions options) {
    options.AllDays = true;
    for (const std::string& mask : masks) {
      options.Sequences.push_back(
          {.File = std::string(1, static_cast<char>('a' + options.Sequences.size())) + ".sch",
           .Weekdays = mask});
    }
    return options;
  }

  bool Found() { return Sys->TheConflicts.ConflictFound; }
};

std::string MarksOf(const std::vector<std::string>& masks) {
  ConflictDesk desk(masks);
  return Marks(desk);
}

TEST(Conflicts, RowsOfOneMinuteWithADayInCommonAreBothMarked) {
  EXPECT_EQ(MarksOf({"1234567", "1234567"}), "rr");
  EXPECT_EQ(MarksOf({"0000007", "1234567"}), "rr");
  EXPECT_EQ(MarksOf({"1000000", "1000000"}), "rr");
}

TEST(Conflicts, RowsWithoutACommonDayAreNoConflict) {
  EXPECT_EQ(MarksOf({"1000000", "0200000"}), "ww");
  EXPECT_EQ(MarksOf({"1030507", "0204060"}), "ww");
  EXPECT_EQ(MarksOf({"0000000", "0000000"}), "ww");
}

TEST(Conflicts, RowsOfOtherMinutesAreNoConflict) {
  Desk desk({.Sequences = {{.Hours = "8,9", .Minutes = "00,01"}}, .AllDays = true});
  EXPECT_EQ(Marks(desk), "wwww");
}

TEST(Conflicts, NeitherZonesNorModeNorLengthPlayAPart) {
  Desk desk({.Messages = {{"welcome", 600'000}},
             .Sequences = {{.File = "a.sch", .Hours = "8", .Zones = "100000"},
                           {.File = "b.sch", .Hours = "8", .Zones = "020000", .Timer = "Between"},
                           {.File = "c.sch", .Hours = "8", .Minutes = "02"}}});
  EXPECT_EQ(Marks(desk), "rrw");
}

TEST(Conflicts, TheTwoSidesAreTestedUnlike) {
  // The earlier row counts with any character but "0", the later one only with the right digit.
  EXPECT_EQ(MarksOf({"x000000", "1000000"}), "rr");
  EXPECT_EQ(MarksOf({"1000000", "x000000"}), "ww");
  EXPECT_EQ(MarksOf({"0090000", "0030000"}), "rr");
  EXPECT_EQ(MarksOf({"0030000", "0090000"}), "ww");
}

TEST(Conflicts, ThreeRowsOfAMinuteAreAllMarkedAndUnmarkedOneByOne) {
  ConflictDesk desk({"1234567", "1234567", "1234567"});
  EXPECT_EQ(Marks(desk), "rrr");
  desk.DoubleClickCell(2, kTimeColumn);
  EXPECT_EQ(Marks(desk), "r-r");
  EXPECT_TRUE(desk.Found());
  EXPECT_TRUE(desk.Visible("lblConflict"));
  desk.DoubleClickCell(3, kTimeColumn);
  EXPECT_EQ(Marks(desk), "w--");
  EXPECT_FALSE(desk.Found());
  EXPECT_FALSE(desk.Visible("lblConflict"));
}

TEST(Conflicts, ARowBetweenThatSharesNoDayDoesNotEndTheSearch) {
  EXPECT_EQ(MarksOf({"1000000", "0200000", "1000000"}), "rwr");
}

TEST(Conflicts, ARemovedRowIsComparedWithNothingAndRowsAfterItStillAre) {
  ConflictDesk desk({"1000000", "1200000", "0200000", "1000000"});
  EXPECT_EQ(Marks(desk), "rrrr");
  desk.DoubleClickCell(2, kTimeColumn);
  EXPECT_EQ(Marks(desk), "r-wr");
}

TEST(Conflicts, ASequenceMayConflictWithItself) {
  Desk desk({.Sequences = {{.Hours = "1,1"}}});
  EXPECT_EQ(Marks(desk), "rr");
}

TEST(Conflicts, ADoubleClickOnAWhiteCellOrBesideTheTimeRemovesNothing) {
  ConflictDesk desk({"1000000", "0200000", "1000000"});
  desk.DoubleClickCell(2, kTimeColumn);
  for (int column = 1; column < Grid::kColumns; ++column) desk.DoubleClickCell(1, column);
  desk.DoubleClickCell(0, kTimeColumn);
  EXPECT_EQ(Marks(desk), "rwr");
}

TEST(Conflicts, TheRowThatStaysFiresAsUsual) {
  for (const int removed : {1, 2}) {
    Desk desk({.Sequences = {{.File = "a.sch", .Messages = "welcome"},
                             {.File = "b.sch", .Messages = "closing"}}});
    desk.DoubleClickCell(removed, kTimeColumn);
    desk.RunTo(12, 1, 1);
    EXPECT_EQ(desk.Heard(), removed == 1 ? "wav closing.wav at 10000" : "wav welcome.wav at 10000");
  }
}

TEST(Conflicts, ARemovalTouchesNoOtherRowOfItsSequenceAndNoFile) {
  Desk desk({.Sequences = {{.File = "a.sch", .Hours = "12,13"}, {.File = "b.sch"}}});
  desk.Pc.Journal.Unmute("write");
  desk.Pc.Journal.Clear();
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_EQ(Marks(desk), "-ww");
  EXPECT_EQ(desk.Journal(), "");
}

// The warning and the heights.

struct Heights {
  int FrameHeight;
  int GridHeight;
  bool operator==(const Heights&) const = default;
};

Heights HeightsOf(Desk& desk) {
  return {desk.Main().frSchedule.Height, desk.Main().grdSchedule.Height};
}

TEST(Conflicts, AConflictShrinksTheCompactTableForTheWarningBelowIt) {
  for (const bool router : {true, false}) {
    ConflictDesk desk({"1000000", "1000000"}, {.Router = router, .Microphone = !router});
    EXPECT_EQ(HeightsOf(desk), (Heights{3855, 3525}));
    EXPECT_TRUE(desk.Visible("lblConflict"));
    EXPECT_EQ(desk.Main().lblConflict.Top, 4005);
    EXPECT_EQ(desk.Text("lblConflict"),
              "Time conflict(s) in schedule, double-click a red time field to remove a sequence");
    desk.DoubleClickCell(1, kTimeColumn);
    EXPECT_EQ(HeightsOf(desk), (Heights{4095, 3765}));
    EXPECT_FALSE(desk.Visible("lblConflict"));
  }
}

TEST(Conflicts, AConflictShrinksTheTallTableForTheWarningBelowIt) {
  ConflictDesk desk({"1000000", "1000000"}, {.Router = false, .Microphone = false});
  EXPECT_EQ(HeightsOf(desk), (Heights{5295, 4965}));
  EXPECT_EQ(desk.Main().lblConflict.Top, 5520);
  EXPECT_TRUE(desk.Visible("lblConflict"));
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_EQ(HeightsOf(desk), (Heights{5655, 5325}));
  EXPECT_FALSE(desk.Visible("lblConflict"));
}

TEST(Conflicts, ATableOfFewerThanTwoRowsHasItsNormalHeights) {
  for (const bool router : {true, false}) {
    Desk one({.Sequences = {{}}, .Router = router, .Microphone = false});
    EXPECT_EQ(HeightsOf(one), router ? (Heights{4095, 3765}) : (Heights{5655, 5325}));
    EXPECT_FALSE(one.Visible("lblConflict"));
  }
  Desk none({.Sequences = {{.Weekdays = "0234567"}}});
  EXPECT_EQ(HeightsOf(none), (Heights{4095, 3765}));
  EXPECT_FALSE(none.Sys->TheConflicts.ConflictFound);
}

TEST(Conflicts, TheWarningWhiteOnRedIsOfTheDesign) {
  Desk desk;
  EXPECT_EQ(desk.Main().lblConflict.BackColor, kRed);
  EXPECT_EQ(desk.Main().lblConflict.ForeColor, kWhite);
}

TEST(Conflicts, AConflictThatAnotherViewDoesNotHaveGoesWithIt) {
  Desk desk({.Sequences = {{.File = "a.sch", .Weekdays = "0200000"},
                           {.File = "b.sch", .Weekdays = "0200000"}}});
  EXPECT_FALSE(desk.Visible("lblConflict"));
  desk.Click("mnuAllDays");
  EXPECT_TRUE(desk.Visible("lblConflict"));
  desk.Click("mnuAllDays");
  EXPECT_FALSE(desk.Visible("lblConflict"));
  EXPECT_FALSE(desk.Sys->TheConflicts.ConflictFound);
}

// Masks that end too early.

TEST(Conflicts, WeekdaysThatEndBeforeACommonDayAreReportedOnce) {
  ConflictDesk desk({"00", "1234567", "00", "1234567"});
  EXPECT_EQ(Marks(desk), "wrwr");
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.front().Body,
            "The weekdays of these message schedules are incomplete:\r\na\r\nc");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.front().Caption, "Error");
}

TEST(Conflicts, WeekdaysThatHaveBeenMadeCompleteAreNotReportedAgain) {
  ConflictDesk desk({"00", "1234567"});
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  desk.Pc.Profiles.WriteString("Schedule", "Weekday(s)", "0000007", "/app/a.sch");
  desk.Click("mnuScheduleName");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(Marks(desk), "rr");
}

TEST(Conflicts, ShortWeekdaysThatReachACommonDayAreAConflictLikeAnyOther) {
  ConflictDesk desk({"12", "1234567"});
  EXPECT_EQ(Marks(desk), "rr");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(Conflicts, ShortWeekdaysAreHarmlessUntilAnotherRowHasTheirMinute) {
  ConflictDesk desk({"1"});
  EXPECT_EQ(Marks(desk), "w");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(Conflicts, OnlyTheFirstFiveCharactersOfTheTimesAreCompared) {
  Desk desk({.Sequences = {{.File = "a.sch", .Hours = "8", .Minutes = "123"},
                           {.File = "b.sch", .Hours = "8", .Minutes = "124"},
                           {.File = "c.sch", .Hours = "8", .Minutes = "ü1"},
                           {.File = "d.sch", .Hours = "8", .Minutes = "ü2"}}});
  EXPECT_EQ(Marks(desk), "rrww");
}

}  // namespace
}  // namespace marlex
