#include "desktop/windows/binder.h"

#include <gtest/gtest.h>

#include <set>

#include "desktop/windows/desk.h"
#include "desktop/windows/mouse.h"
#include "desktop/windows/theme.h"

namespace marlex {
namespace {

std::set<std::string> ControlNames(const Form& form) {
  std::set<std::string> names;
  for (const Control* control : form.Controls) names.insert(control->ObjectName());
  return names;
}

/// Names in a layout that stand for a control: those of panes and of Qt's own parts do not.
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

/// Whether a control works behind its window: a timer, or a list that the design hides.
bool IsBehindTheWindow(const Control& control) {
  const std::string kind = control.Kind();
  const auto* list = dynamic_cast<const ListBox*>(&control);
  return kind == "Timer" || kind == "Form" || control.NeverShown || (list && !list->Visible);
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
  Desk desk;
  ExpectSameNames(desk.Forms.frmMain, desk.Screen.Main());
  ExpectSameNames(desk.Forms.frmLogo, desk.Screen.Logo());
  ExpectSameNames(desk.Forms.frmlangSel, desk.Screen.LangSel());
  ExpectSameNames(desk.Forms.frmAbout, desk.Screen.About());
  ExpectSameNames(desk.Forms.frmSettings, desk.Screen.Settings());
  ExpectSameNames(desk.Forms.frmDirSel, desk.Screen.DirSel());
  ExpectSameNames(desk.Forms.frmChimeSelect, desk.Screen.ChimeSelect());
  ExpectSameNames(desk.Forms.TheWavWindow, desk.Screen.ScheduleEditor());
  ExpectSameNames(desk.Forms.frmPlaylist, desk.Screen.Playlist());
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
  Desk desk;
  desk.Settle();
  EXPECT_FALSE(desk.Screen.Main().isVisible());
  desk.ShowMain();
  EXPECT_TRUE(desk.Screen.Main().isVisible());
  EXPECT_EQ(desk.Screen.Main().windowTitle(), "Tolvo Marlex");
  desk.Forms.frmMain.Unload();
  desk.Settle();
  EXPECT_FALSE(desk.Screen.Main().isVisible());
}

TEST(Binder, ClosingAWindowAsksItsFormAndNothingElse) {
  Desk desk;
  int closed = 0;
  desk.Forms.frmMain.OnClose = [&] { ++closed; };
  desk.ShowMain();
  EXPECT_FALSE(desk.Screen.Main().close());
  desk.Settle();
  EXPECT_EQ(closed, 1);
  EXPECT_TRUE(desk.Screen.Main().isVisible()) << "the form has not unloaded itself";
}

TEST(Binder, EscapeClosesTheAboutBoxAsItsCloseDoes) {
  Desk desk;
  for (const bool byEscape : {true, false}) {
    desk.Forms.frmAbout.Show();
    desk.Settle();
    ASSERT_TRUE(desk.Screen.About().isVisible());
    if (byEscape) QTest::keyClick(&desk.Screen.About(), Qt::Key_Escape);
    if (!byEscape) desk.Screen.About().close();
    EXPECT_TRUE(desk.Screen.About().isVisible()) << "until the form says so";
    desk.Settle();
    EXPECT_FALSE(desk.Forms.frmAbout.Loaded());
    EXPECT_FALSE(desk.Screen.About().isVisible());
  }
}

/// Its close ends the program, for which one stray key is too little.
TEST(Binder, EscapeInTheLanguageDialogNeitherChoosesNorCloses) {
  Desk desk;
  std::string heard;
  desk.Forms.frmlangSel.OnClose = [&] { heard += "close "; };
  desk.Forms.frmlangSel.cmdOK.OnClick = [&] { heard += "ok "; };
  desk.Forms.frmlangSel.Show();
  desk.Settle();
  QTest::keyClick(&desk.Screen.LangSel(), Qt::Key_Escape);
  desk.Settle();
  EXPECT_EQ(heard, "");
  EXPECT_TRUE(desk.Screen.LangSel().isVisible());
}

TEST(Binder, EscapeLeavesADialogOpenWhoseCloseWouldChoose) {
  Desk desk;
  desk.Forms.frmSettings.Show();
  desk.Forms.frmDirSel.Show();
  desk.Settle();
  int closed = 0;
  desk.Forms.frmDirSel.OnClose = [&] { ++closed; };
  QTest::keyClick(&desk.Screen.DirSel(), Qt::Key_Escape);
  desk.Settle();
  EXPECT_TRUE(desk.Screen.DirSel().isVisible());
  EXPECT_EQ(closed, 0);
}

TEST(Binder, ManyChangesArePaintedOnce) {
  Desk desk;
  desk.ShowMain();
  Grid& grid = desk.Forms.frmMain.grdSchedule;
  grid.SetRows(100);
  desk.Settle();
  QSignalSpy painted(desk.Find<QTableView>("grdSchedule").model(),
                     &QAbstractItemModel::dataChanged);
  for (int row = 1; row < 100; ++row) grid.SetTextMatrix(row, 4, "gong");
  EXPECT_EQ(painted.count(), 0);
  desk.Settle();
  EXPECT_EQ(painted.count(), 1);
}

TEST(Binder, CaptionsShowAmpersandsAndNewLinesAsTheyAre) {
  Desk desk;
  FrmMain& main = desk.Forms.frmMain;
  desk.ShowMain();
  main.cmdPlay.Caption = "Rock & roll\rnow";
  main.frRouting.Caption = "Hall & yard";
  main.mnuFile.Caption = "Lists & more";
  main.lblConflict.Caption = "<b>one</b> & two\r\nthree";
  desk.Settle();
  EXPECT_EQ(desk.Find<QPushButton>("cmdPlay").text(), "Rock && roll\nnow");
  EXPECT_EQ(desk.Find<QGroupBox>("frRouting").title(), "Hall && yard");
  EXPECT_EQ(desk.Find<QMenu>("mnuFile").title(), "Lists && more");
  EXPECT_EQ(desk.Find<QLabel>("lblConflict").text(), "<b>one</b> & two\nthree");
  EXPECT_EQ(desk.Find<QLabel>("lblConflict").textFormat(), Qt::PlainText);
}

QColor MiddleOf(QWidget& widget) {
  const QImage picture = widget.grab().toImage();
  return picture.pixelColor(picture.width() / 5, picture.height() / 2);
}

TEST(Binder, LampsShowTheColoursOfTheSystem) {
  Desk desk;
  FrmMain& main = desk.Forms.frmMain;
  main.lblConflict.Visible = true;
  desk.ShowMain();
  auto& lamp = desk.Find<QLabel>("lblCurrentZone_2");
  const QColor dark = MiddleOf(lamp);
  main.lblCurrentZone[2].BackColor = kGreen;
  main.lblConflict.BackColor = kRed;
  desk.Settle();
  EXPECT_EQ(MiddleOf(lamp), ShownColor(kGreen));
  main.lblCurrentZone[2].BackColor = kDarkGreen;
  desk.Settle();
  EXPECT_EQ(MiddleOf(lamp), ShownColor(kDarkGreen));
  main.lblCurrentZone[2].BackColor = kButtonFace;
  desk.Settle();
  EXPECT_EQ(MiddleOf(lamp), dark);
}

TEST(Binder, KeysShrinkAndGrowInTheRelationOfTheirHeights) {
  Desk desk;
  FrmMain& main = desk.Forms.frmMain;
  desk.ShowMain();
  auto& play = desk.Find<QPushButton>("cmdPlay");
  auto& zone = desk.Find<QPushButton>("cmdMusicZones_0");
  const int tall = play.height();
  const int low = zone.height();
  main.cmdPlay.Height = FrmMain::kShrunkenKeyHeight;
  main.cmdMusicZones[0].Height = FrmMain::kTallZoneKeyHeight;
  desk.Settle();
  EXPECT_NEAR(play.height(), tall * 255 / 615, 4);
  EXPECT_GE(play.height(), play.minimumSizeHint().height());
  EXPECT_NEAR(zone.height(), low * 616 / 255, 2);
  main.cmdPlay.Height = FrmMain::kTransportKeyHeight;
  desk.Settle();
  EXPECT_EQ(play.height(), tall);
}

TEST(Binder, TheTableTakesTheRoomOfAHiddenFrame) {
  Desk desk;
  FrmMain& main = desk.Forms.frmMain;
  main.frRouting.Visible = false;
  desk.ShowMain();
  auto& table = desk.Find<QTableView>("grdSchedule");
  const int low = table.height();
  main.frCall.Visible = false;
  desk.Settle();
  const int high = table.height();
  EXPECT_GT(high, low + 80);
  main.lblConflict.Caption = "Time conflict(s)";
  main.lblConflict.Visible = true;
  desk.Settle();
  EXPECT_LT(table.height(), high);
  EXPECT_GT(desk.Find<QLabel>("lblConflict").y(), table.y() + table.height() - 1);
}

}  // namespace
}  // namespace marlex
