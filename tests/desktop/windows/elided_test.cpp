#include "desktop/windows/elided.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "desktop/windows/painted_windows.h"
#include "desktop/windows/shown_text.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

const char* const kLongPath =
    "/home/operator/Music/Background/Autumn and winter of a long year/Quiet/";

QString ToolTipOver(QWidget& widget) {
  QToolTip::hideText();
  const QPoint middle = widget.rect().center();
  QHelpEvent asks(QEvent::ToolTip, middle, widget.mapToGlobal(middle));
  QApplication::sendEvent(&widget, &asks);
  return QToolTip::text();
}

TEST(Elided, APathThatIsTooLongLosesItsMiddleAndIsWholeInTheToolTip) {
  PaintedWindows windows;
  windows.Forms.frmSettings.Load();
  Texts().Fill(windows.Forms);
  windows.Forms.frmSettings.Show();
  windows.Settle();
  const QSize before = windows.Screen.Settings().size();
  auto& label = *windows.Screen.Settings().findChild<ElidedLabel*>("lblBGDir_Name");
  EXPECT_EQ(ToolTipOver(label), "");
  const std::string path = std::string(kLongPath) + kLongPath;
  windows.Forms.frmSettings.lblBGDir_Name.Caption = path;
  windows.Settle();
  EXPECT_EQ(windows.Screen.Settings().size(), before);
  EXPECT_EQ(label.text().toStdString(), path);
  EXPECT_NE(label.ShownLine(), label.text());
  EXPECT_TRUE(label.ShownLine().startsWith("/home/operator/"));
  EXPECT_TRUE(label.ShownLine().endsWith("/Quiet/"));
  QString tip = ToolTipOver(label);
  EXPECT_TRUE(tip.contains("/\n")) << "a long path is broken after a folder";
  EXPECT_EQ(tip.remove('\n').toStdString(), path);
}

TEST(Elided, AZonesLongNameMakesNoWindowWider) {
  PaintedWindows windows;
  windows.Forms.frmMain.Load();
  Texts().Fill(windows.Forms);
  windows.ShowMain();
  QWidget& window = windows.Screen.Main();
  const QSize least = window.minimumSizeHint();
  const std::string name = "Departures, platforms <one> to seven & the bus station";
  for (const auto& label : windows.Forms.frmMain.lblZoneName) label->Caption = name;
  windows.Settle();
  EXPECT_EQ(window.minimumSizeHint(), least);
  auto& label = windows.Find<ElidedLabel>("lblZoneName_3");
  EXPECT_NE(label.ShownLine(), label.text());
  EXPECT_EQ(ToolTipOver(label), QString::fromStdString(name));
}

TEST(Elided, AButtonWithALongNameKeepsItsPlaceInTheEditor) {
  PaintedWindows windows;
  WavWindow& editor = windows.Forms.TheWavWindow;
  editor.Load();
  editor.Show();
  windows.Settle();
  QWidget& window = windows.Screen.ScheduleEditor();
  auto& button = *window.findChild<ElidedButton*>("cmdZone_1");
  editor.cmdZone[1].Caption = "Hall";
  windows.Settle();
  EXPECT_EQ(button.ShownLine(), "Hall");
  EXPECT_EQ(ToolTipOver(button), "");
  const int width = window.minimumSizeHint().width();
  editor.cmdZone[1].Caption = "Departures and arrivals of the upper floor";
  windows.Settle();
  EXPECT_EQ(window.minimumSizeHint().width(), width);
  EXPECT_NE(button.ShownLine(), button.text());
  EXPECT_EQ(ToolTipOver(button), button.text());
  editor.cmdZone[1].Caption = "Departures & arrivals of the upper \"B\" floor";
  windows.Settle();
  EXPECT_EQ(ToolTipOver(button), "Departures & arrivals of the upper \"B\" floor");
}

TEST(Elided, AFileOfOneLongWordInATitleMakesNoWindowWider) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  main.Load();
  Texts().Fill(windows.Forms);
  windows.ShowMain();
  const int least = windows.Screen.Main().minimumSizeHint().width();
  main.frBGMusic.Caption = "Music: Weihnachtsmusik_Erdgeschoss_und_Restaurant_2026_Nachmittag.lst";
  windows.Settle();
  EXPECT_EQ(windows.Screen.Main().minimumSizeHint().width(), least);
}

const char* const kCommonBeginning =
    "offers_of_the_day_in_the_departments_of_the_upper_and_of_the_lower_floor_and_the_hall_";

TEST(Elided, NamesWithACommonBeginningStayApartInLabelAndButton) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  WavWindow& editor = windows.Forms.TheWavWindow;
  main.Load();
  editor.Load();
  for (const int zone : {0, 1}) {
    main.lblZoneName[zone].Caption = kCommonBeginning + std::to_string(zone);
    editor.cmdZone[zone].Caption = kCommonBeginning + std::to_string(zone);
  }
  editor.Show();
  windows.ShowMain();
  EXPECT_NE(windows.Find<ElidedLabel>("lblZoneName_0").ShownLine(),
            windows.Find<ElidedLabel>("lblZoneName_1").ShownLine());
  const QWidget& window = windows.Screen.ScheduleEditor();
  EXPECT_NE(window.findChild<ElidedButton*>("cmdZone_0")->ShownLine(),
            window.findChild<ElidedButton*>("cmdZone_1")->ShownLine());
}

/// What the view paints of an entry.
QImage PictureOf(QAbstractItemView& view, int row, int column) {
  const QRect area = view.visualRect(view.model()->index(row, column));
  return view.viewport()->grab(area.adjusted(1, 1, -2, -2)).toImage();
}

TEST(Elided, NamesWithACommonBeginningStayApartInListAndTable) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  main.Load();
  FillSchedule(main.grdSchedule, 4);
  main.grdSchedule.SetColWidth(kMessagesColumn, 6500);
  for (const int row : {1, 2, 3, 4}) {
    const std::string name = kCommonBeginning + std::string(row == 2 ? "two" : "one");
    main.lstPlaylist.AddItem(name);
    main.grdSchedule.SetTextMatrix(row, kMessagesColumn, name);
  }
  windows.ShowMain();
  auto& list = windows.Find<QListView>("lstPlaylist");
  auto& table = windows.Find<QTableView>("grdSchedule");
  const int first = list.model()->rowCount() - 4;
  EXPECT_EQ(PictureOf(list, first + 2, 0), PictureOf(list, first + 3, 0));
  EXPECT_NE(PictureOf(list, first + 1, 0), PictureOf(list, first + 2, 0));
  EXPECT_EQ(PictureOf(table, 2, kMessagesColumn), PictureOf(table, 3, kMessagesColumn));
  EXPECT_NE(PictureOf(table, 1, kMessagesColumn), PictureOf(table, 2, kMessagesColumn));
}

QString ToolTipOf(QAbstractItemView& view, const QModelIndex& entry) {
  view.scrollTo(entry);
  QToolTip::hideText();
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
  const QPoint middle = view.visualRect(entry).center();
  EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(entry)));
  QHelpEvent asks(QEvent::ToolTip, middle, view.viewport()->mapToGlobal(middle));
  QApplication::sendEvent(view.viewport(), &asks);
  return QToolTip::text();
}

TEST(Elided, ALongSongIsShortenedInItsListAndWholeInItsToolTip) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  main.Load();
  Texts().Fill(windows.Forms);
  const std::string song =
      "A very long title of a song <live> & its two composers, remastered for the hall";
  main.lstPlaylist.AddItem("Short");
  main.lstPlaylist.AddItem(song);
  windows.ShowMain();
  auto& list = windows.Find<QListView>("lstPlaylist");
  EXPECT_FALSE(list.horizontalScrollBar()->isVisible());
  const int last = list.model()->rowCount() - 1;
  EXPECT_EQ(ToolTipOf(list, list.model()->index(last, 0)), QString::fromStdString(song));
  EXPECT_EQ(ToolTipOf(list, list.model()->index(last - 1, 0)), "Double-click to play song");
}

TEST(Elided, ALongCellOfTheTableIsWholeInItsToolTipAndOneThatFitsHasNone) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  main.Load();
  Texts().Fill(windows.Forms);
  FillSchedule(main.grdSchedule, 2);
  std::string messages = "gong";
  for (int message = 0; message < 40; ++message) messages += ",<b>wait</b>";
  main.grdSchedule.SetTextMatrix(2, kMessagesColumn, messages);
  windows.ShowMain();
  auto& table = windows.Find<QTableView>("grdSchedule");
  const auto toolTipOf = [&](int row, int column) {
    return ToolTipOf(table, table.model()->index(row - 1, column)).toStdString();
  };
  EXPECT_EQ(toolTipOf(2, kMessagesColumn), ShownToolTip(messages).toStdString());
  EXPECT_EQ(toolTipOf(1, kMessagesColumn), "");
  EXPECT_EQ(toolTipOf(2, kTimeColumn), "");
}

}  // namespace
}  // namespace marlex
