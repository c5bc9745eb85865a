#include "desktop/windows/grid_binding.h"

#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/mouse.h"
#include "desktop/windows/texts.h"
#include "desktop/windows/theme.h"

namespace marlex {
namespace {

struct Table {
  explicit Table(int rows) {
    Place.Forms.frmMain.Load();
    Texts().Fill(Place.Forms);
    FillSchedule(Cells, rows);
    Place.ShowMain();
  }
  QPoint At(int row, int column) {
    return View.visualRect(View.model()->index(row - 1, column)).center();
  }
  int FirstRow() { return View.rowAt(0) + 1; }

  Desk Place;
  Grid& Cells = Place.Forms.frmMain.grdSchedule;
  QTableView& View = Place.Find<QTableView>("grdSchedule");
};

TEST(GridBinding, TextsHeadingAndColoursAreThoseOfTheGrid) {
  Table table(4);
  PaintRow(table.Cells, 2, kNavy, kWhite);
  table.Place.Settle();
  const QModelIndex cell = table.View.model()->index(1, kTimeColumn);
  EXPECT_EQ(cell.data().toString().toStdString(), table.Cells.TextMatrix(2, kTimeColumn));
  EXPECT_EQ(table.View.model()->headerData(4, Qt::Horizontal).toString(), "Message info");
  EXPECT_EQ(cell.data(Qt::BackgroundRole).value<QBrush>().color(), ShownColor(kNavy));
  const QImage picture = table.View.viewport()->grab().toImage();
  const QRect area = table.View.visualRect(cell);
  EXPECT_EQ(picture.pixelColor(area.topLeft() + QPoint(3, 3)), ShownColor(kNavy));
}

TEST(GridBinding, ColumnsOfNoWidthAndRowsOfNoHeightAreNotSeen) {
  Table table(5);
  EXPECT_TRUE(table.View.isColumnHidden(kDaysColumn));
  EXPECT_FALSE(table.View.isColumnHidden(kRoutingColumn));
  table.Cells.SetColWidth(kDaysColumn, 800);
  table.Cells.SetRowHeight(3, 0);
  table.Place.Settle();
  EXPECT_FALSE(table.View.isColumnHidden(kDaysColumn));
  EXPECT_TRUE(table.View.isRowHidden(2));
  table.Cells.SetRowHeight(3, Grid::kDefaultRowHeight);
  table.Place.Settle();
  EXPECT_FALSE(table.View.isRowHidden(2));
}

TEST(GridBinding, ADoubleClickChoosesItsCellFirst) {
  Table table(6);
  std::string heard;
  table.Cells.OnDblClick = [&] {
    heard = std::to_string(table.Cells.Row()) + " " + std::to_string(table.Cells.Col());
  };
  Mouse(*table.View.viewport()).DoubleClick(table.At(4, kNameColumn));
  table.Place.Settle();
  EXPECT_EQ(heard, "4 3");
}

TEST(GridBinding, ADoubleClickOnARowThatHasGoneMeanwhileDoesNothing) {
  Table table(6);
  int heard = 0;
  table.Cells.OnDblClick = [&] { ++heard; };
  const QPoint place = table.At(5, kTimeColumn);
  table.Cells.SetRows(2);  // not yet painted
  Mouse(*table.View.viewport()).DoubleClick(place);
  table.Place.Settle();
  EXPECT_EQ(heard, 0);
  EXPECT_EQ(table.View.model()->rowCount(), 1);
}

TEST(GridBinding, TheTableBeginsWithTheRowThatTheSystemWants) {
  Table table(200);
  table.Cells.SetTopRow(120);
  table.Place.Settle();
  EXPECT_EQ(table.FirstRow(), 120);
  table.Cells.SetTopRow(200);
  table.Place.Settle();
  EXPECT_EQ(table.View.verticalScrollBar()->value(), table.View.verticalScrollBar()->maximum());
}

TEST(GridBinding, ARowChosenBeforeTheWindowIsShownIsReachedWhenItIs) {
  Desk desk;
  desk.Forms.frmMain.Load();
  FillSchedule(desk.Forms.frmMain.grdSchedule, 200);
  desk.Forms.frmMain.grdSchedule.SetTopRow(90);
  desk.ShowMain();
  desk.Settle();
  EXPECT_EQ(desk.Find<QTableView>("grdSchedule").rowAt(0) + 1, 90);
}

TEST(GridBinding, TheOperatorMayScrollAwayAndTheSystemBack) {
  Table table(200);
  table.Cells.SetTopRow(120);
  table.Place.Settle();
  table.View.verticalScrollBar()->setValue(0);
  table.Place.Settle();
  EXPECT_EQ(table.Cells.TopRow(), 1);
  table.Cells.SetTextMatrix(1, 4, "gong");
  table.Place.Settle();
  EXPECT_EQ(table.FirstRow(), 1) << "painting leaves the operator's place alone";
  table.Cells.SetTopRow(120);
  table.Place.Settle();
  EXPECT_EQ(table.FirstRow(), 120);
}

TEST(GridBinding, PassesOverTheCurrentCellDoNotScroll) {
  Table table(200);
  for (int row = 1; row <= 200; ++row) table.Cells.SetRow(row);
  table.Place.Settle();
  EXPECT_EQ(table.FirstRow(), 1);
  EXPECT_EQ(table.Cells.Row(), 200);
}

TEST(GridBinding, ATableOf32767RowsIsShownAtOnce) {
  Table table(10);
  FillSchedule(table.Cells, 32767);
  QElapsedTimer clock;
  clock.start();
  table.Place.Settle();
  const qint64 firstMs = clock.restart();
  table.Cells.SetRowHeight(20000, 0);
  PaintRow(table.Cells, 30000, kNavy, kWhite);
  table.Place.Settle();
  const qint64 againMs = clock.elapsed();
  RecordProperty("first_ms", static_cast<int>(firstMs));
  RecordProperty("again_ms", static_cast<int>(againMs));
  std::printf("shown in %lld ms, again in %lld ms\n", firstMs, againMs);
  EXPECT_EQ(table.View.model()->rowCount(), 32767);
  EXPECT_LT(firstMs, 1000);
  EXPECT_LT(againMs, 1000);
}

}  // namespace
}  // namespace marlex
