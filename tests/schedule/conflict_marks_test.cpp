// The marks of a conflict after a row of its table has fired.

#include <gtest/gtest.h>

#include "schedule/schedule_columns.h"
#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;
constexpr int kConflictFrameHeight = 3855;
constexpr int kNormalFrameHeight = 4095;

/// Two rows of the minute 12:01, in conflict; the first fires one second after the start.
DeskOptions Pair() {
  return {.Sequences = {{.File = "a.sch", .Messages = "welcome"},
                        {.File = "b.sch", .Messages = "closing"}}};
}

TEST(ConflictMarks, AFiringRowWipesItsOwnMarkAndTheNoteStays) {
  SpotDesk desk(Pair(), kSilent);
  EXPECT_EQ(desk.Paint(1), "rwwww");
  desk.AdvanceTo(2000);
  EXPECT_EQ(desk.Paint(1), "gnnnn");
  EXPECT_EQ(desk.Paint(2), "rwwww");
  EXPECT_TRUE(desk.Visible("lblConflict"));
  EXPECT_TRUE(desk.Sys->TheConflicts.ConflictFound);
  EXPECT_EQ(desk.Cell(1, kDaysColumn), "1234567");
  EXPECT_EQ(desk.Main().frSchedule.Height, kConflictFrameHeight);
}

TEST(ConflictMarks, ARowThatHasFiredIsNoLongerRedAndCannotBeTakenOut) {
  SpotDesk desk(Pair(), kSilent);
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(desk.Paint(1), "nnnnn");
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(1), Grid::kDefaultRowHeight);
  EXPECT_TRUE(desk.Visible("lblConflict"));
}

TEST(ConflictMarks, TheOtherRowOfThePairCanStillBeTakenOutAndTheNoteGoes) {
  SpotDesk desk(Pair(), kSilent);
  desk.RunTo(12, 1, 30);
  desk.DoubleClickCell(2, kTimeColumn);
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(2), 0);
  EXPECT_FALSE(desk.Visible("lblConflict"));
  EXPECT_FALSE(desk.Sys->TheConflicts.ConflictFound);
  EXPECT_EQ(desk.Paint(1), "wnnnn");  // the pass whitens the clicked column alone
  EXPECT_EQ(desk.Cell(1, kDaysColumn), "");
  EXPECT_EQ(desk.Main().frSchedule.Height, kNormalFrameHeight);
}

TEST(ConflictMarks, AMarkThatAFiringRowBelowHasWipedTakesNoRowOut) {
  DeskOptions options = Pair();
  for (Sequence& sequence : options.Sequences) sequence.Hours = "11";
  options.Sequences.push_back({.File = "c.sch"});
  SpotDesk desk(options, kSilent);
  EXPECT_EQ(desk.Paint(1) + desk.Paint(2) + desk.Paint(3), "rwwwwrwwwwwwwww");
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(desk.Paint(1) + desk.Paint(2) + desk.Paint(3), "wwwwwwwwwwnnnnn");
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(1), Grid::kDefaultRowHeight);
  EXPECT_TRUE(desk.Visible("lblConflict"));
}

TEST(ConflictMarks, TheNextPassMarksTheWholePairAgain) {
  SpotDesk desk(Pair(), kSilent);
  desk.RunTo(12, 1, 30);
  desk.Click("mnuScheduleName");
  EXPECT_EQ(desk.Paint(1), "rwwww");
  EXPECT_EQ(desk.Paint(2), "rwwww");
  desk.DoubleClickCell(1, kTimeColumn);
  EXPECT_EQ(desk.Main().grdSchedule.RowHeight(1), 0);
}

}  // namespace
}  // namespace marlex
