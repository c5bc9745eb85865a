#include "desktop/windows/grid_binding.h"

#include <gtest/gtest.h>

#include <map>

#include "desktop/windows/mouse.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/texts.h"
#include "desktop/windows/theme.h"

namespace marlex {
namespace {

constexpr int kMarginOfCell = 10;

struct GridForm {
  explicit GridForm(int rows) {
    Shown.Forms.frmMain.Load();
    Texts().Fill(Shown.Forms);
    FillSchedule(Cells, rows);
    Shown.ShowMain();
  }
  QPoint At(int row, int column) {
    return View.visualRect(View.model()->index(row - 1, column)).center();
  }
  int FirstRow() { return View.rowAt(0) + 1; }

  PaintedWindows Shown;
  Grid& Cells = Shown.Forms.frmMain.grdSchedule;
  QTableView& View = Shown.Find<QTableView>("grdSchedule");
};

TEST(GridBinding, TextsHeadingAndColoursAreThoseOfTheGrid) {
  GridForm table(4);
  PaintRow(table.Cells, 2, kNavy, kWhite);
  table.Shown.Settle();
  const QModelIndex cell = table.View.model()->index(1, kTimeColumn);
  EXPECT_EQ(cell.data().toString().toStdString(), table.Cells.TextMatrix(2, kTimeColumn));
  EXPECT_EQ(table.View.model()->headerData(4, Qt::Horizontal).toString(), "Message info");
  EXPECT_EQ(cell.data(Qt::BackgroundRole).value<QBrush>().color(), ShownColor(kNavy));
  const QImage picture = table.View.viewport()->grab().toImage();
  const QRect area = table.View.visualRect(cell);
  EXPECT_EQ(picture.pixelColor(area.topLeft() + QPoint(3, 3)), ShownColor(kNavy));
}

TEST(GridBinding, AReaderHearsTheMarkOfARowBeforeItsTime) {
  GridForm table(4);
  PaintRow(table.Cells, 2, kNavy, kWhite);
  table.Cells.SetRow(3);
  table.Cells.SetCol(kTimeColumn);
  table.Cells.SetCellColors(kRed, kWhite);
  table.Shown.Settle();
  QAccessibleTableInterface& spoken =
      *QAccessible::queryAccessibleInterface(&table.View)->tableInterface();
  for (const auto& [row, mark] : std::map<int, QString>{{1, ""}, {2, "\u25B8 "}, {3, "! "}}) {
    const QString time = QString::fromStdString(table.Cells.TextMatrix(row, kTimeColumn)).trimmed();
    EXPECT_EQ(spoken.cellAt(row - 1, kTimeColumn)->text(QAccessible::Name), mark + time) << row;
  }
}

TEST(GridBinding, ColumnsOfNoWidthAndRowsOfNoHeightAreNotSeen) {
  GridForm table(5);
  EXPECT_TRUE(table.View.isColumnHidden(kDaysColumn));
  EXPECT_FALSE(table.View.isColumnHidden(kRoutingColumn));
  table.Cells.SetColWidth(kDaysColumn, 800);
  table.Cells.SetRowHeight(3, 0);
  table.Shown.Settle();
  EXPECT_FALSE(table.View.isColumnHidden(kDaysColumn));
  EXPECT_TRUE(table.View.isRowHidden(2));
  table.Cells.SetRowHeight(3, Grid::kDefaultRowHeight);
  table.Shown.Settle();
  EXPECT_FALSE(table.View.isRowHidden(2));
}

TEST(GridBinding, ADoubleClickChoosesItsCellFirst) {
  GridForm table(6);
  std::string heard;
  table.Cells.OnDblClick = [&] {
    heard = std::to_string(table.Cells.Row()) + " " + std::to_string(table.Cells.Col());
  };
  Mouse(*table.View.viewport()).DoubleClick(table.At(4, kNameColumn));
  table.Shown.Settle();
  EXPECT_EQ(heard, "4 3");
}

TEST(GridBinding, ADoubleClickOnARowThatHasGoneMeanwhileDoesNothing) {
  GridForm table(6);
  int heard = 0;
  table.Cells.OnDblClick = [&] { ++heard; };
  const QPoint place = table.At(5, kTimeColumn);
  table.Cells.SetRows(2);  // not yet painted
  Mouse(*table.View.viewport()).DoubleClick(place);
  table.Shown.Settle();
  EXPECT_EQ(heard, 0);
  EXPECT_EQ(table.View.model()->rowCount(), 1);
}

TEST(GridBinding, TheTableBeginsWithTheRowThatTheSystemWants) {
  GridForm table(200);
  table.Cells.SetTopRow(120);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 120);
  table.Cells.SetTopRow(200);
  table.Shown.Settle();
  EXPECT_EQ(table.View.verticalScrollBar()->value(), table.View.verticalScrollBar()->maximum());
}

TEST(GridBinding, NoRowIsCutThroughWhereverTheTableBeginsAndHoweverHighItIs) {
  GridForm table(200);
  for (int height = 620; height < 760; height += 7) {
    table.Shown.Screen.Main().resize(1024, height);
    for (const int top : {1, 57, 200}) {
      table.Cells.SetTopRow(top);
      table.Shown.Settle();
      const QRect room = table.View.viewport()->rect();
      const QModelIndex first = table.View.indexAt(room.topLeft());
      const QModelIndex last = table.View.indexAt(room.bottomLeft());
      EXPECT_EQ(table.View.visualRect(first).top(), room.top()) << height << " from " << top;
      const int line = table.View.visualRect(last).bottom() + 1;
      EXPECT_EQ(line, room.bottom()) << height << " from " << top;
    }
  }
}

TEST(GridBinding, HeadingAndFirstRowKeepTheirPlacesWhenANoteComes) {
  GridForm table(200);
  Label& note = table.Shown.Forms.frmMain.lblConflict;
  const auto places = [&](const char* text) {
    note.Caption = text;
    note.Visible = *text != 0;
    table.Shown.Settle();
    return std::pair(table.View.horizontalHeader()->height(),
                     table.View.viewport()->mapTo(&table.Shown.Screen.Main(), QPoint(0, 0)));
  };
  for (int height = 810; height < 870; height += 7) {
    table.Shown.Screen.Main().resize(1024, height);
    const auto before = places("");
    EXPECT_EQ(places("Conflict"), before) << height;
    EXPECT_EQ(places("Conflict\nConflict"), before) << height;
    EXPECT_EQ(places(""), before) << height;
  }
}

void PaintTime(Grid& grid, int row, Color color) {
  grid.SetRow(row);
  grid.SetCol(kTimeColumn);
  grid.SetCellColors(color, kWhite);
}

int LastRow(GridForm& table) { return table.View.rowAt(table.View.viewport()->height() - 1) + 1; }

TEST(GridBinding, AConflictThatComesIsScrolledIntoSight) {
  GridForm table(200);
  for (const int conflict : {3, 90, 200}) {
    PaintTime(table.Cells, conflict, kRed);
    table.Shown.Settle();
    EXPECT_LE(table.FirstRow(), conflict);
    EXPECT_GE(LastRow(table), conflict);
    PaintTime(table.Cells, conflict, kWhite);
    table.Shown.Settle();
    EXPECT_EQ(table.FirstRow(), 1) << "the system's place again";
  }
  table.Cells.SetTopRow(120);
  PaintTime(table.Cells, 40, kRed);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 40) << "none follows";
}

TEST(GridBinding, AllRowsOfAConflictAreScrolledIntoSight) {
  GridForm table(200);
  for (const int row : {90, 91, 95}) PaintTime(table.Cells, row, kRed);
  table.Shown.Settle();
  EXPECT_LE(table.FirstRow(), 90);
  EXPECT_EQ(LastRow(table), 91);
}

TEST(GridBinding, AConflictStaysInSightWhenItsNoteTakesTheRoom) {
  GridForm table(200);
  table.Shown.Forms.frmMain.frCall.Visible = false;
  table.Shown.Screen.Main().resize(1024, 700);
  table.Shown.Settle();
  const int last = LastRow(table);
  PaintTime(table.Cells, last, kRed);
  table.Shown.Forms.frmMain.lblConflict.Caption = "Conflict\nConflict";
  table.Shown.Forms.frmMain.lblConflict.Visible = true;
  table.Shown.Settle();
  EXPECT_EQ(LastRow(table), last);
  EXPECT_GT(table.FirstRow(), 1);
}

TEST(GridBinding, TheOperatorMayScrollAwayFromAConflictUntilAnotherComes) {
  GridForm table(200);
  PaintTime(table.Cells, 90, kRed);
  table.Shown.Settle();
  table.View.verticalScrollBar()->setValue(9);
  table.Shown.Settle();
  table.Cells.SetTextMatrix(1, 4, "gong");
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 10);
  PaintTime(table.Cells, 90, kWhite);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 10);
  PaintTime(table.Cells, 90, kRed);
  table.Shown.Settle();
  EXPECT_EQ(LastRow(table), 90);
}

TEST(GridBinding, NoConflictPushesTheFiredRowOutOfSight) {
  GridForm table(200);
  table.Cells.SetTopRow(50);
  PaintTime(table.Cells, 56, kNavy);
  const int rows = LastRow(table) - table.FirstRow() + 1;
  PaintTime(table.Cells, 56 + rows, kRed);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 50);
  PaintTime(table.Cells, 55 + rows, kRed);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 56);
}

TEST(GridBinding, RowsThatHaveGoneAreLeftOutOfTheWayToTheFirstRow) {
  GridForm table(200);
  for (int row = 20; row < 60; ++row) table.Cells.SetRowHeight(row, 0);
  table.Cells.SetTopRow(120);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 120);
  table.Cells.SetTopRow(30);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 60);
}

TEST(GridBinding, ShortNamesLeaveTheirRoomToTheMessages) {
  GridForm table(3);
  const auto widthWith = [&table](const char* name) {
    table.Cells.SetColWidth(kNameColumn, 1800);
    table.Cells.SetTextMatrix(2, kNameColumn, name);
    table.Shown.Settle();
    return table.View.columnWidth(kNameColumn);
  };
  const int shortest = widthWith("Day");
  const QString name = "Offers of the summer";
  const int longer = widthWith(name.toUtf8());
  const int room = table.View.visualRect(table.View.model()->index(1, kNameColumn)).width();
  EXPECT_EQ(room - table.View.fontMetrics().horizontalAdvance(name), 2 * kMarginOfCell);
  const int longest = widthWith("Offers of the summer, of the autumn and of the winter");
  EXPECT_LT(shortest, longer);
  EXPECT_LT(longer, longest);
  EXPECT_EQ(longest, widthWith("Offers of the summer, of the autumn, of the winter and of spring"))
      << "the design's own width is the most";
}

TEST(GridBinding, ARowChosenBeforeTheWindowIsShownIsReachedWhenItIs) {
  PaintedWindows windows;
  windows.Forms.frmMain.Load();
  FillSchedule(windows.Forms.frmMain.grdSchedule, 200);
  windows.Forms.frmMain.grdSchedule.SetTopRow(90);
  windows.ShowMain();
  windows.Settle();
  EXPECT_EQ(windows.Find<QTableView>("grdSchedule").rowAt(0) + 1, 90);
}

TEST(GridBinding, TheOperatorMayScrollAwayAndTheSystemBack) {
  GridForm table(200);
  table.Cells.SetTopRow(120);
  table.Shown.Settle();
  table.View.verticalScrollBar()->setValue(0);
  table.Shown.Settle();
  EXPECT_EQ(table.Cells.TopRow(), 1);
  table.Cells.SetTextMatrix(1, 4, "gong");
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 1) << "painting leaves the operator's place alone";
  table.Cells.SetTopRow(120);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 120);
}

TEST(GridBinding, PassesOverTheCurrentCellDoNotScroll) {
  GridForm table(200);
  for (int row = 1; row <= 200; ++row) table.Cells.SetRow(row);
  table.Shown.Settle();
  EXPECT_EQ(table.FirstRow(), 1);
  EXPECT_EQ(table.Cells.Row(), 200);
}

TEST(GridBinding, ATableOf32767RowsIsShownAtOnce) {
  GridForm table(10);
  FillSchedule(table.Cells, 32767);
  QElapsedTimer clock;
  clock.start();
  table.Shown.Settle();
  const qint64 firstMs = clock.restart();
  table.Cells.SetRowHeight(20000, 0);
  PaintRow(table.Cells, 30000, kNavy, kWhite);
  table.Shown.Settle();
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
