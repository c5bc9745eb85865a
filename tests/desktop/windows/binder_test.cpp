#include "desktop/windows/binder.h"

#include <gtest/gtest.h>

#include <set>

#include "desktop/windows/mouse.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/theme.h"

namespace marlex {
namespace {

std::set<std::string> ControlNames(const Form& form) {
  std::set<std::string> names;
  for (const Control* control : form.Controls) names.insert(control->ObjectName());
  return names;
}

/// Names in a layout that belong to a control; those of panes and of Qt's own parts do not.
std::set<std::string> WidgetNames(const QWidget& window) {
  std::set<std::string> names;
  for (const QObject* object : window.findChildren<QObject*>()) {
    if (!qobject_cast<const QWidget*>(object) && !qobject_cast<const QAction*>(object)) continue;
    const QString name = object->objectName();
    if (name.isEmpty() || name.startsWith("pane") || name.startsWith("qt_")) continue;
    names.insert(name.toStdString());
  }
  return names;
}

/// Whether a control has no visible part: a timer, or a list that the design hides.
bool IsBehindTheWindow(const Control& control) {
  const auto* list = dynamic_cast<const ListBox*>(&control);
  return control.Kind() == ControlKind::Timer || control.Kind() == ControlKind::Form ||
         control.NeverShown || (list && !list->Visible);
}

void ExpectSameNames(const Form& form, const QWidget& window) {
  std::set<std::string> controls = ControlNames(form);
  for (const Control* control : form.Controls) {
    if (IsBehindTheWindow(*control)) controls.erase(control->ObjectName());
  }
  EXPECT_EQ(WidgetNames(window), controls) << form.Name;
  EXPECT_EQ(window.objectName().toStdString(), form.Name);
}

TEST(Binder, EveryControlHasAWidgetAndEveryWidgetAControl) {
  PaintedWindows windows;
  ExpectSameNames(windows.Forms.frmMain, windows.Screen.Main());
  ExpectSameNames(windows.Forms.frmLogo, windows.Screen.Logo());
  ExpectSameNames(windows.Forms.frmlangSel, windows.Screen.LangSel());
  ExpectSameNames(windows.Forms.frmAbout, windows.Screen.About());
  ExpectSameNames(windows.Forms.frmSettings, windows.Screen.Settings());
  ExpectSameNames(windows.Forms.frmDirSel, windows.Screen.DirSel());
  ExpectSameNames(windows.Forms.frmChimeSelect, windows.Screen.ChimeSelect());
  ExpectSameNames(windows.Forms.TheWavWindow, windows.Screen.ScheduleEditor());
  ExpectSameNames(windows.Forms.frmPlaylist, windows.Screen.Playlist());
}

TEST(Binder, AControlWithoutAWidgetIsRefusedByName) {
  VirtualLoop loop;
  Form form("frmTest", "");
  Label label(form, "lblGone");
  QWidget window;
  try {
    Binder binder(form, window, loop);
    FAIL() << "bound to nothing";
  } catch (const RuntimeFailure& failure) {
    EXPECT_NE(std::string(failure.what()).find("lblGone"), std::string::npos);
  }
}

TEST(Binder, AControlOfAKindThatNoWidgetShowsIsRefusedByName) {
  VirtualLoop loop;
  Form form("frmTest", "");
  Picture picture(form, "PicMeter");
  QWidget window;
  QFrame frame(&window);
  frame.setObjectName("PicMeter");
  try {
    Binder binder(form, window, loop);
    FAIL() << "left out in silence";
  } catch (const RuntimeFailure& failure) {
    EXPECT_NE(std::string(failure.what()).find("PicMeter"), std::string::npos);
  }
}

TEST(Binder, WindowsComeAndGoWithTheirForms) {
  PaintedWindows windows;
  windows.Settle();
  EXPECT_FALSE(windows.Screen.Main().isVisible());
  windows.ShowMain();
  EXPECT_TRUE(windows.Screen.Main().isVisible());
  EXPECT_EQ(windows.Screen.Main().windowTitle(), "Tolvo Marlex");
  windows.Forms.frmMain.Unload();
  windows.Settle();
  EXPECT_FALSE(windows.Screen.Main().isVisible());
}

TEST(Binder, ClosingAWindowAsksItsFormAndNothingElse) {
  PaintedWindows windows;
  int closed = 0;
  windows.Forms.frmMain.OnClose = [&] { ++closed; };
  windows.ShowMain();
  EXPECT_FALSE(windows.Screen.Main().close());
  windows.Settle();
  EXPECT_EQ(closed, 1);
  EXPECT_TRUE(windows.Screen.Main().isVisible()) << "the form has not unloaded itself";
}

TEST(Binder, EscapeClosesTheAboutBoxAsItsCloseDoes) {
  PaintedWindows windows;
  for (const bool byEscape : {true, false}) {
    windows.Forms.frmAbout.Show();
    windows.Settle();
    ASSERT_TRUE(windows.Screen.About().isVisible());
    if (byEscape) QTest::keyClick(&windows.Screen.About(), Qt::Key_Escape);
    if (!byEscape) windows.Screen.About().close();
    EXPECT_TRUE(windows.Screen.About().isVisible()) << "until the form says so";
    windows.Settle();
    EXPECT_FALSE(windows.Forms.frmAbout.Loaded());
    EXPECT_FALSE(windows.Screen.About().isVisible());
  }
}

/// Closing this window ends the program, which must not happen by one stray key.
TEST(Binder, EscapeInTheLanguageDialogNeitherChoosesNorCloses) {
  PaintedWindows windows;
  std::string heard;
  windows.Forms.frmlangSel.OnClose = [&] { heard += "close "; };
  windows.Forms.frmlangSel.cmdOK.OnClick = [&] { heard += "ok "; };
  windows.Forms.frmlangSel.Show();
  windows.Settle();
  QTest::keyClick(&windows.Screen.LangSel(), Qt::Key_Escape);
  windows.Settle();
  EXPECT_EQ(heard, "");
  EXPECT_TRUE(windows.Screen.LangSel().isVisible());
}

TEST(Binder, EscapeLeavesADialogOpenWhoseCloseWouldChoose) {
  PaintedWindows windows;
  windows.Forms.frmSettings.Show();
  windows.Forms.frmDirSel.Show();
  windows.Settle();
  int closed = 0;
  windows.Forms.frmDirSel.OnClose = [&] { ++closed; };
  QTest::keyClick(&windows.Screen.DirSel(), Qt::Key_Escape);
  windows.Settle();
  EXPECT_TRUE(windows.Screen.DirSel().isVisible());
  EXPECT_EQ(closed, 0);
}

TEST(Binder, ManyChangesArePaintedOnce) {
  PaintedWindows windows;
  windows.ShowMain();
  Grid& grid = windows.Forms.frmMain.grdSchedule;
  grid.SetRows(100);
  windows.Settle();
  QSignalSpy painted(windows.Find<QTableView>("grdSchedule").model(),
                     &QAbstractItemModel::dataChanged);
  for (int row = 1; row < 100; ++row) grid.SetTextMatrix(row, 4, "gong");
  EXPECT_EQ(painted.count(), 0);
  windows.Settle();
  EXPECT_EQ(painted.count(), 1);
}

TEST(Binder, CaptionsShowAmpersandsAndNewLinesAsTheyAre) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  windows.ShowMain();
  main.cmdPlay.Caption = "Rock & roll\rnow";
  main.frRouting.Caption = "Hall & yard";
  main.mnuFile.Caption = "Lists & more";
  main.lblConflict.Caption = "<b>one</b> & two\r\nthree";
  windows.Settle();
  EXPECT_EQ(windows.Find<QPushButton>("cmdPlay").text(), "Rock && roll\nnow");
  EXPECT_EQ(windows.Find<QGroupBox>("frRouting").title(), "Hall && yard");
  EXPECT_EQ(windows.Find<QMenu>("mnuFile").title(), "Lists && more");
  EXPECT_EQ(windows.Find<QLabel>("lblConflict").text(), "<b>one</b> & two\nthree");
  EXPECT_EQ(windows.Find<QLabel>("lblConflict").textFormat(), Qt::PlainText);
}

QColor MiddleOf(QWidget& widget) {
  const QImage picture = widget.grab().toImage();
  return picture.pixelColor(picture.width() / 5, picture.height() / 2);
}

TEST(Binder, SignalsShowTheColoursOfTheSystem) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  main.lblConflict.Visible = true;
  main.lblConflict.BackColor = kButtonFace;
  windows.ShowMain();
  auto& note = windows.Find<QLabel>("lblConflict");
  const QColor plain = MiddleOf(note);
  for (const Color color : {kRed, kGreen, kDarkGreen}) {
    main.lblConflict.BackColor = color;
    windows.Settle();
    EXPECT_EQ(MiddleOf(note), ShownColor(color));
  }
  main.lblConflict.BackColor = kButtonFace;
  windows.Settle();
  EXPECT_EQ(MiddleOf(note), plain);
}

TEST(Binder, ButtonsShrinkAndGrowInProportionToTheirHeights) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  windows.ShowMain();
  auto& play = windows.Find<QPushButton>("cmdPlay");
  auto& zone = windows.Find<QPushButton>("cmdMusicZones_0");
  const int tall = play.height();
  const int low = zone.height();
  main.cmdPlay.Height = FrmMain::kShrunkenTransportHeight;
  main.cmdMusicZones[0].Height = FrmMain::kTallZoneButtonHeight;
  windows.Settle();
  EXPECT_NEAR(play.height(), tall * 255.0 / 615, 4);
  EXPECT_GE(play.height(), play.minimumSizeHint().height());
  EXPECT_NEAR(zone.height(), low * 616.0 / 255, 2);
  main.cmdPlay.Height = FrmMain::kTransportHeight;
  windows.Settle();
  EXPECT_EQ(play.height(), tall);
}

TEST(Binder, TheTableTakesTheRoomOfAHiddenFrame) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  main.frRouting.Visible = false;
  windows.ShowMain();
  auto& table = windows.Find<QTableView>("grdSchedule");
  const int low = table.height();
  main.frCall.Visible = false;
  windows.Settle();
  const int high = table.height();
  EXPECT_GT(high, low + 80);
  main.lblConflict.Caption = "Time conflict(s)";
  main.lblConflict.Visible = true;
  windows.Settle();
  EXPECT_LT(table.height(), high);
  EXPECT_GT(windows.Find<QLabel>("lblConflict").y(), table.y() + table.height() - 1);
}

}  // namespace
}  // namespace marlex
