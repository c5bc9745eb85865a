#include "controls/grid.h"

#include <gtest/gtest.h>

#include "controls/form.h"

namespace marlex {
namespace {

struct GridForm : Form {
  GridForm() : Form("table", "") {}
  Grid grd{*this, "grd"};

  void Add(const std::string& time, const std::string& name) {
    grd.SetRows(grd.Rows() + 1);
    grd.SetTextMatrix(grd.Rows() - 1, 0, time);
    grd.SetTextMatrix(grd.Rows() - 1, 1, name);
  }
  std::string Texts() const {
    std::string texts;
    for (int row = 0; row < grd.Rows(); ++row) {
      texts += grd.TextMatrix(row, 0) + grd.TextMatrix(row, 1) + " ";
    }
    return texts;
  }
};

TEST(Grid, BeginsWithItsHeadingAlone) {
  GridForm table;
  EXPECT_EQ(table.grd.Rows(), 1);
  EXPECT_EQ(table.grd.TextMatrix(0, 0), "");
}

TEST(Grid, ARowThatComesAfterOneWentIsFresh) {
  GridForm table;
  table.Add("12:00", "old");
  table.grd.SetRow(1);
  table.grd.SetCellColors(kRed, kWhite);
  table.grd.SetRowHeight(1, 0);
  table.grd.SetRows(1);
  table.grd.SetRows(2);
  EXPECT_EQ(table.grd.TextMatrix(1, 1), "");
  EXPECT_EQ(table.grd.RowHeight(1), Grid::kDefaultRowHeight);
  EXPECT_EQ(table.grd.BackColorAt(1, 0), kWhite);
  EXPECT_EQ(table.grd.ForeColorAt(1, 0), kBlack);
}

TEST(Grid, TheRowsThatStayKeepAllOfTheirs) {
  GridForm table;
  table.Add("12:00", "a");
  table.grd.SetRow(1);
  table.grd.SetCellColors(kRed, kWhite);
  table.grd.SetRowHeight(1, 0);
  table.grd.SetRows(5);
  table.grd.SetRows(2);
  EXPECT_EQ(table.Texts(), " 12:00a ");
  EXPECT_EQ(table.grd.RowHeight(1), 0);
  EXPECT_EQ(table.grd.BackColorAt(1, 0), kRed);
}

TEST(Grid, TheCurrentRowIsNeverBelowTheLast) {
  GridForm table;
  table.grd.SetRows(5);
  table.grd.SetRow(4);
  table.grd.SetTopRow(4);
  table.grd.SetRows(3);
  EXPECT_EQ(table.grd.Row(), 2);
  EXPECT_EQ(table.grd.TopRow(), 2);
  table.grd.SetRows(1);
  EXPECT_EQ(table.grd.Row(), 0);
  EXPECT_EQ(table.grd.TopRow(), 1);
}

TEST(Grid, SortsTheRowsBelowTheHeadingByTheCurrentColumn) {
  GridForm table;
  table.grd.SetTextMatrix(0, 0, "Z");
  table.Add("3", "a");
  table.Add("1", "c");
  table.Add("2", "b");
  table.grd.SetCol(0);
  table.grd.Sort();
  EXPECT_EQ(table.Texts(), "Z 1c 2b 3a ");
  table.grd.SetCol(1);
  table.grd.Sort();
  EXPECT_EQ(table.Texts(), "Z 3a 2b 1c ");
}

TEST(Grid, RowsOfEqualTextKeepTheirOrder) {
  GridForm table;
  for (const char* name : {"c", "a", "d", "b"}) table.Add("12:00", name);
  table.Add("11:00", "e");
  table.grd.Sort();
  EXPECT_EQ(table.Texts(), " 11:00e 12:00c 12:00a 12:00d 12:00b ");
}

TEST(Grid, SortsByTheCodesOfTheCharacters) {
  GridForm table;
  for (const char* time : {"b", "a", "B", "10:00+", "10:00  "}) table.Add(time, "");
  table.grd.Sort();
  EXPECT_EQ(table.Texts(), " 10:00   10:00+ B a b ");
}

TEST(Grid, ARowTakesItsHeightAndColoursAlongWhenItIsSorted) {
  GridForm table;
  table.Add("2", "");
  table.Add("1", "");
  table.grd.SetRow(1);
  table.grd.SetCellColors(kRed, kWhite);
  table.grd.SetRowHeight(1, 0);
  table.grd.Sort();
  EXPECT_EQ(table.grd.BackColorAt(2, 0), kRed);
  EXPECT_EQ(table.grd.RowHeight(2), 0);
  EXPECT_EQ(table.grd.BackColorAt(1, 0), kWhite);
}

TEST(Grid, ColoursGoToTheCurrentCellAlone) {
  GridForm table;
  table.grd.SetRows(3);
  table.grd.SetRow(1);
  table.grd.SetCol(2);
  table.grd.SetCellColors(kNavy, kWhite);
  EXPECT_EQ(table.grd.CellBackColor(), kNavy);
  EXPECT_EQ(table.grd.CellForeColor(), kWhite);
  EXPECT_EQ(table.grd.BackColorAt(1, 1), kWhite);
  EXPECT_EQ(table.grd.BackColorAt(2, 2), kWhite);
}

TEST(Grid, ARowOrColumnThatIsNotThereIsABrokenRule) {
  GridForm table;
  EXPECT_THROW(table.grd.SetRows(0), RuntimeFailure);
  EXPECT_THROW(table.grd.TextMatrix(1, 0), RuntimeFailure);
  EXPECT_THROW(table.grd.TextMatrix(-1, 0), RuntimeFailure);
  EXPECT_THROW(table.grd.TextMatrix(0, Grid::kColumns), RuntimeFailure);
  EXPECT_THROW(table.grd.SetRow(1), RuntimeFailure);
  EXPECT_THROW(table.grd.SetCol(-1), RuntimeFailure);
  EXPECT_THROW(table.grd.SetColWidth(5, 1), RuntimeFailure);
  EXPECT_THROW(table.grd.SetRowHeight(1, 1), RuntimeFailure);
  EXPECT_THROW(table.grd.SetTopRow(1), RuntimeFailure);
}

TEST(Grid, EachChangeCallsTheWatcher) {
  GridForm table;
  int paints = 0;
  table.grd.Watcher = [&] { ++paints; };
  table.grd.SetRows(3);
  table.grd.SetTextMatrix(1, 0, "x");
  table.grd.SetRow(1);
  table.grd.SetCellColors(kRed, kWhite);
  EXPECT_EQ(paints, 4);
  table.grd.SetRow(1);
  table.grd.SetCellColors(kRed, kWhite);
  EXPECT_EQ(paints, 4);
}

}  // namespace
}  // namespace marlex
