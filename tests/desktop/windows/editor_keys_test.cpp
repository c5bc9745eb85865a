// The keyboard in the windows of the whole system.

#include <gtest/gtest.h>

#include "desktop/windows/shop_desk.h"

namespace marlex {
namespace {

/// Everything that the keys could have caused: events of the PC, and the look of every window.
std::string Trace(ShopDesk& desk) {
  std::string trace = desk.Pc.Journal.Text() + desk.Pc.Heard();
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) trace += "\n" + window->objectName().toStdString();
  }
  for (Form* form : {static_cast<Form*>(&desk.Sys.TheWindows.frmMain),
                     static_cast<Form*>(&desk.Sys.TheWindows.TheWavWindow),
                     static_cast<Form*>(&desk.Sys.TheWindows.frmPlaylist)}) {
    trace += "\n" + form->Caption.Get();
    for (Control* control : form->Controls) {
      if (auto* list = dynamic_cast<ListBox*>(control))
        trace += " " + std::to_string(list->ListCount()) + "/" + std::to_string(list->ListIndex());
      if (auto* visual = dynamic_cast<VisualControl*>(control))
        trace += visual->Caption.Get() + (visual->Enabled ? "+" : "-");
    }
  }
  return trace;
}

/// Presses each function key, with every part of the window in turn having the keyboard focus.
void PressFunctionKeys(ShopDesk& desk, QWidget& window) {
  std::vector<QWidget*> parts = {&window};
  for (QWidget* part : window.findChildren<QWidget*>()) {
    const bool takesKeys = part->focusPolicy() != Qt::NoFocus && part->isVisibleTo(&window);
    // On any desktop, a function key opens the list of a combo box.
    if (takesKeys && !qobject_cast<QComboBox*>(part)) parts.push_back(part);
  }
  ASSERT_GT(parts.size(), 5u);
  for (QWidget* part : parts) {
    part->setFocus();
    desk.Settle();
    desk.Pc.Journal.Clear();
    const std::string before = Trace(desk);
    for (int key = Qt::Key_F1; key <= Qt::Key_F12; ++key) {
      QTest::keyClick(part, static_cast<Qt::Key>(key));
      desk.Settle();
      EXPECT_EQ(Trace(desk), before)
          << "F" << key - Qt::Key_F1 + 1 << " on " << part->objectName().toStdString();
    }
  }
}

TEST(EditorKeys, FunctionKeysFireNothingInAnyWindow) {
  ShopDesk desk;
  PressFunctionKeys(desk, desk.Screen.Main());
  desk.Choose(desk.Screen.Main(), "mnuSchedule");
  desk.Choose(desk.Screen.Main(), "mnuPlaylist");
  ASSERT_TRUE(desk.Screen.ScheduleEditor().isVisible());
  ASSERT_TRUE(desk.Screen.Playlist().isVisible());
  PressFunctionKeys(desk, desk.Screen.Main());
  PressFunctionKeys(desk, desk.Screen.ScheduleEditor());
  PressFunctionKeys(desk, desk.Screen.Playlist());
}

TEST(EditorKeys, OtherKeysThatArePressedInTheSameWayDoTheirWork) {
  ShopDesk desk;
  const std::string before = Trace(desk);
  desk.PressKey(desk.Find<QPushButton>(desk.Screen.Main(), "cmdPlay"), Qt::Key_Space);
  EXPECT_NE(Trace(desk), before);
  EXPECT_NE(desk.Pc.Heard().find("march.mp3"), std::string::npos);
}

/// The shortcuts of a window's menus, in the order of the menus.
QStringList Shortcuts(const QWidget& window) {
  QStringList keys;
  for (const QAction* action : window.findChildren<QAction*>()) {
    if (!action->shortcut().isEmpty()) keys.append(action->shortcut().toString());
  }
  return keys;
}

TEST(EditorKeys, TheMenusForFilesHaveShortcutsOfTheirOwn) {
  ShopDesk desk;
  EXPECT_EQ(Shortcuts(desk.Screen.Main()), QStringList({"Ctrl+O", "Ctrl+Shift+O"}));
  for (const QWidget* editor : {&desk.Screen.ScheduleEditor(), &desk.Screen.Playlist()})
    EXPECT_EQ(Shortcuts(*editor), QStringList({"Ctrl+O", "Ctrl+S"}));
  desk.Choose(desk.Screen.Main(), "mnuPlaylist");
  QTest::keyClick(&desk.Screen.Playlist(), Qt::Key_S, Qt::ControlModifier);
  desk.Settle();
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body, "No songs selected");
  EXPECT_TRUE(desk.Screen.Playlist().isVisible());
}

/// The schedule editor while a sequence is being edited.
struct ComposingDesk : ShopDesk {
  ComposingDesk() {
    Choose(Screen.Main(), "mnuSchedule");
    QTest::keyClicks(&Find<QLineEdit>(Window(), "txtHours"), "8-10");
    QTest::keyClicks(&Find<QLineEdit>(Window(), "txtMinutes"), "30");
    Settle();
    TheWavWindow.AvailWavs.SetListIndex(0);
    Settle();
  }
  QWidget& Window() { return Screen.ScheduleEditor(); }
  std::string Composed() {
    return TheWavWindow.txtHours.Text.Get() + " " + TheWavWindow.txtMinutes.Text.Get() + " " +
           std::to_string(TheWavWindow.SelectedWavs.ListCount());
  }

  WavWindow& TheWavWindow = Sys.TheWindows.TheWavWindow;
};

TEST(EditorKeys, EscapeLeavesTheScheduleEditorOpenWithAllThatIsComposed) {
  ComposingDesk desk;
  for (const char* part : {"AvailWavs", "SelectedWavs", "txtHours", "txtMinutes", "cmdInterval",
                           "WkDays_0", "cmdZone_0", "optExact"}) {
    desk.PressKey(desk.Find<QWidget>(desk.Window(), part), Qt::Key_Escape);
    EXPECT_TRUE(desk.Window().isVisible()) << part;
    EXPECT_TRUE(desk.TheWavWindow.Visible) << part;
    EXPECT_EQ(desk.Composed(), "8-10 30 1") << part;
    EXPECT_TRUE(desk.Find<QWidget>(desk.Window(), "frMinutes").isVisible()) << part;
  }
}

TEST(EditorKeys, NoKeyBesideTheOneThatSavesClosesAnEditorWithWorkInIt) {
  ComposingDesk desk;
  desk.Choose(desk.Screen.Main(), "mnuPlaylist");
  for (QWidget* window : {&desk.Window(), &desk.Screen.Playlist()}) {
    QTest::keyClick(window, Qt::Key_W, Qt::ControlModifier);
    desk.Settle();
    EXPECT_TRUE(window->isVisible()) << window->objectName().toStdString();
  }
  EXPECT_EQ(desk.Composed(), "8-10 30 1");
  desk.Choose(desk.Window(), "mnuExit");
  EXPECT_FALSE(desk.Window().isVisible());
  desk.Screen.Playlist().close();
  desk.Settle();
  EXPECT_FALSE(desk.Screen.Playlist().isVisible());
}

/// Walks through all menus of a window by their keys and counts the presses after which the menu of
/// that title, in the bar or in another menu, is open.
int TimesOpen(ShopDesk& desk, QMainWindow& window, const char* menu) {
  QMenuBar& bar = *window.menuBar();
  int times = 0;
  const auto press = [&](Qt::Key key) {
    QWidget* popup = QApplication::activePopupWidget();
    QTest::keyClick(popup ? popup : &bar, key);
    desk.Settle();
    auto* there = window.findChild<QMenu*>(menu);
    times += there && there->isVisible();
  };
  window.activateWindow();
  bar.setFocus();
  bar.setActiveAction(bar.actions().front());
  for (int step = 0; step < 12; ++step) {
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Down}) press(key);
  }
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  return times;
}

TEST(EditorKeys, TheFunctionKeysAreShownGreyedAndNoKeyOpensThem) {
  ShopDesk desk;
  auto& main = dynamic_cast<QMainWindow&>(desk.Screen.Main());
  auto& editor = dynamic_cast<QMainWindow&>(desk.Screen.ScheduleEditor());
  auto& item = desk.Find<QAction>(main, "mnuFKeys");
  EXPECT_TRUE(item.isVisible());
  EXPECT_FALSE(item.isEnabled());
  EXPECT_EQ(item.text(), "Function keys");
  const auto edit = desk.Find<QMenu>(main, "mnuEdit").actions();
  EXPECT_EQ(edit.indexOf(&item), 2) << "between the schedule editor and the settings";
  item.trigger();
  desk.Settle();
  EXPECT_FALSE(editor.isVisible());
  desk.Choose(main, "mnuSchedule");
  QAction& keys = *desk.Find<QMenu>(editor, "mnuKey").menuAction();
  EXPECT_TRUE(keys.isVisible());
  EXPECT_FALSE(keys.isEnabled());
  EXPECT_EQ(editor.menuBar()->actions().indexOf(&keys), 1) << "beside the menu of the files";
  EXPECT_GT(TimesOpen(desk, editor, "mnuFile"), 0);
  EXPECT_EQ(TimesOpen(desk, editor, "mnuKey"), 0);
  QTest::mouseClick(editor.menuBar(), Qt::LeftButton, {},
                    editor.menuBar()->actionGeometry(&keys).center());
  desk.Settle();
  EXPECT_FALSE(desk.Find<QMenu>(editor, "mnuKey").isVisible());
  EXPECT_FALSE(desk.Sys.Editor.FunctionKeyMode);
  EXPECT_EQ(desk.Sys.TheWindows.TheWavWindow.Caption.Get(), "Message schedule");
}

TEST(EditorKeys, EscapeOnTheIntervalPanelIsItsCancel) {
  ComposingDesk desk;
  for (const char* part : {"optInterval_15", "cmbStart", "cmdOK", "cmdCancel", "txtHours"}) {
    desk.PressKey(desk.Find<QPushButton>(desk.Window(), "cmdInterval"), Qt::Key_Space);
    ASSERT_TRUE(desk.Find<QWidget>(desk.Window(), "frInterval").isVisible()) << part;
    desk.PressKey(desk.Find<QWidget>(desk.Window(), part), Qt::Key_Escape);
    EXPECT_FALSE(desk.Find<QWidget>(desk.Window(), "frInterval").isVisible()) << part;
    EXPECT_TRUE(desk.Find<QWidget>(desk.Window(), "frMinutes").isVisible()) << part;
    EXPECT_EQ(desk.Composed(), "8-10 30 1") << part;
  }
}

TEST(EditorKeys, EscapeLeavesThePlaylistEditorOpenWithAllThatIsChosen) {
  ShopDesk desk;
  desk.Choose(desk.Screen.Main(), "mnuPlaylist");
  QWidget& window = desk.Screen.Playlist();
  desk.PressKey(desk.Find<QPushButton>(window, "cmdSelectAll"), Qt::Key_Space);
  desk.PressKey(desk.Find<QRadioButton>(window, "optScheduled_0"), Qt::Key_Space);
  for (const char* part : {"AvailMP3s", "SelectedMP3s", "cmdRandomize", "optScheduled_0",
                           "cmbStartHours", "chkDays_0"}) {
    desk.PressKey(desk.Find<QWidget>(window, part), Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible()) << part;
    EXPECT_TRUE(desk.Sys.TheWindows.frmPlaylist.Visible) << part;
    EXPECT_EQ(desk.Sys.TheWindows.frmPlaylist.SelectedMP3s.ListCount(), 2) << part;
  }
}

/// The parts of a window at which the tab key stops, in one round.
std::string TabStops(ShopDesk& desk, QWidget& window, const char* first) {
  std::string stops;
  desk.Find<QWidget>(window, first).setFocus();
  for (int press = 0; press < 40; ++press) {
    QTest::keyClick(&window, Qt::Key_Tab);
    stops += QApplication::focusWidget()->objectName().toStdString() + " ";
  }
  return stops;
}

TEST(EditorKeys, NoZoneIsInReachOnADeskWithoutRouter) {
  for (const bool router : {true, false}) {
    ShopDesk desk;
    desk.Sys.Store.Values.RouterPresent = router;
    desk.Choose(desk.Screen.Main(), "mnuSchedule");
    QWidget& window = desk.Screen.ScheduleEditor();
    const std::string stops = TabStops(desk, window, "AvailWavs");
    EXPECT_NE(stops.find("WkDays_0 "), std::string::npos) << stops;
    for (int zone = 0; zone < kZones; ++zone) {
      const std::string name = "cmdZone_" + std::to_string(zone);
      EXPECT_EQ(desk.Find<QPushButton>(window, name.c_str()).isVisible(), router) << name;
      EXPECT_EQ(stops.find(name) != std::string::npos, router) << stops;
    }
  }
}

}  // namespace
}  // namespace marlex
