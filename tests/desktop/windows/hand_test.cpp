#include "desktop/windows/hand.h"

#include <gtest/gtest.h>

#include "desktop/windows/finger.h"
#include "desktop/windows/mouse.h"
#include "desktop/windows/painted_windows.h"

namespace marlex {
namespace {

TEST(Hand, AClickReachesItsControlOnce) {
  PaintedWindows windows;
  int clicks = 0;
  windows.Forms.frmMain.cmdPlay.OnClick = [&] { ++clicks; };
  windows.ShowMain();
  Mouse(windows.Find<QPushButton>("cmdPlay")).Click();
  windows.Settle();
  EXPECT_EQ(clicks, 1);
}

TEST(Hand, ADisabledControlForwardsNothing) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  int events = 0;
  main.cmdCall.OnClick = [&] { ++events; };
  main.cmdCall.OnMouseDown = [&](MouseButton) { ++events; };
  main.lstPlaylist.AddItem("march");
  main.lstPlaylist.OnMouseDown = [&](MouseButton) { ++events; };
  main.cmdCall.Enabled = false;
  main.lstPlaylist.Enabled = false;
  windows.ShowMain();
  Mouse(windows.Find<QPushButton>("cmdCall")).Click();
  Mouse(*windows.Find<QListView>("lstPlaylist").viewport()).Click({20, 15});
  windows.Settle();
  EXPECT_EQ(events, 0);
}

TEST(Hand, AClickIsDroppedWhenTheControlWasDisabledJustBefore) {
  PaintedWindows windows;
  int clicks = 0;
  windows.Forms.frmMain.cmdPlay.OnClick = [&] { ++clicks; };
  windows.ShowMain();
  windows.Forms.frmMain.cmdPlay.Enabled = false;  // not yet painted
  Mouse(windows.Find<QPushButton>("cmdPlay")).Click();
  windows.Settle();
  EXPECT_EQ(clicks, 0);
}

TEST(Hand, TheSecondClickOnAButtonThatClosedItsWindowIsDropped) {
  PaintedWindows windows;
  int clicks = 0;
  FrmAbout& about = windows.Forms.frmAbout;
  about.cmdOK.OnClick = [&] {
    ++clicks;
    about.Unload();
  };
  about.Show();
  windows.Settle();
  auto* button = windows.Screen.About().findChild<QPushButton*>("cmdOK");
  Mouse(*button).Click();
  Mouse(*button).Click();
  windows.Settle();
  EXPECT_EQ(clicks, 1);
}

TEST(Hand, AToggleSetsItsValueAndTheSystemHasTheLastWord) {
  PaintedWindows windows;
  ToggleButton& zone = windows.Forms.frmMain.cmdMusicZones[1];
  windows.ShowMain();
  auto& button = windows.Find<QPushButton>("cmdMusicZones_1");
  Mouse(button).Click();
  windows.Settle();
  EXPECT_TRUE(zone.Value);
  zone.OnChange = [&] { zone.Value = true; };
  Mouse(button).Click();
  windows.Settle();
  EXPECT_TRUE(zone.Value);
  EXPECT_TRUE(button.isChecked());
}

TEST(Hand, WhatTheSystemSetsIsShownAndNotEchoed) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  int changes = 0;
  main.cmdMusicZones[3].OnChange = [&] { ++changes; };
  main.lstPlaylist.OnClick = [&] { ++changes; };
  main.mnuAllDays.OnClick = [&] { ++changes; };
  windows.ShowMain();
  main.cmdMusicZones[3].Value = true;
  main.mnuAllDays.Checked = true;
  main.lstPlaylist.AddItem("march");
  main.lstPlaylist.AddItem("waltz");
  main.lstPlaylist.SetListIndex(1);
  windows.Settle();
  EXPECT_TRUE(windows.Find<QPushButton>("cmdMusicZones_3").isChecked());
  EXPECT_TRUE(windows.Find<QAction>("mnuAllDays").isChecked());
  EXPECT_EQ(windows.Find<QListView>("lstPlaylist").currentIndex().row(), 1);
  EXPECT_EQ(changes, 2) << "one for the toggle and one for the list, both from the code itself";
}

TEST(Hand, AMenuItemReachesItsControlAndShowsTheTickOfTheSystem) {
  PaintedWindows windows;
  int clicks = 0;
  windows.Forms.frmMain.mnuAllDays.OnClick = [&] { ++clicks; };
  windows.ShowMain();
  auto& item = windows.Find<QAction>("mnuAllDays");
  item.trigger();
  windows.Settle();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(item.isChecked());
  EXPECT_TRUE(windows.Find<QAction>("mnuFKeys").isVisible());
  EXPECT_FALSE(windows.Find<QAction>("mnuFKeys").isEnabled());
}

TEST(Hand, TheSameButtonWorksAgainWhileItsFirstClickStillWaits) {
  PaintedWindows windows;
  windows.ShowMain();
  auto& button = windows.Find<QPushButton>("cmdPlay");
  std::string story;
  int depth = 0;
  bool let_go = false;
  windows.Forms.frmMain.cmdPlay.OnClick = [&] {
    story += "in " + std::to_string(++depth) + ", ";
    if (depth == 1) {
      Mouse(button).Click();
      windows.Loop.PumpUntil([&] { return let_go; });
    } else {
      EXPECT_FALSE(button.isDown());
      let_go = true;
    }
    story += "out " + std::to_string(depth--) + ", ";
  };
  Mouse(button).Click();
  windows.Settle();
  EXPECT_EQ(story, "in 1, in 2, out 2, out 1, ");
  EXPECT_FALSE(button.isDown());
}

TEST(Hand, AFailureInAnEventGoesToTheLoopAndTheWidgetShowsWhatHolds) {
  PaintedWindows windows;
  windows.ShowMain();
  std::string reported;
  windows.Loop.OnFailure = [&](const RuntimeFailure& failure) { reported = failure.what(); };
  ToggleButton& zone = windows.Forms.frmMain.cmdMusicZones[0];
  zone.OnChange = [&] {
    if (!zone.Value) return;
    zone.Value = false;
    throw RuntimeFailure("no such zone");
  };
  auto& button = windows.Find<QPushButton>("cmdMusicZones_0");
  Mouse(button).Click();
  windows.Settle();
  EXPECT_EQ(reported, "no such zone");
  EXPECT_FALSE(button.isChecked());
}

/// Either call button, which records what it receives.
class HandOnCallButton : public testing::TestWithParam<const char*> {
 protected:
  HandOnCallButton() {
    Call().OnMouseDown = [this](MouseButton button) {
      Heard += button == MouseButton::Left ? "down " : "other ";
    };
    Call().OnMouseUp = [this](MouseButton button) {
      Heard += button == MouseButton::Left ? "up " : "other-up ";
    };
    Main.frRouting.Visible = IsOfRouter();
    Main.frCall.Visible = !IsOfRouter();
    Shown.ShowMain();
  }

  bool IsOfRouter() const { return GetParam() == std::string("cmdCall"); }
  CommandButton& Call() { return IsOfRouter() ? Main.cmdCall : Main.cmdCall2; }
  Frame& Around() { return IsOfRouter() ? Main.frRouting : Main.frCall; }
  QPushButton& Button() { return Shown.Find<QPushButton>(GetParam()); }
  QWidget& Window() { return Shown.Screen.Main(); }

  /// Presses with the mouse and with a finger, loses each press in the given way, and lets go. Each
  /// press must have been released exactly once, when it was lost.
  void ExpectReleased(
      const std::string& name, const std::function<void()>& lose,
      const std::function<void()>& mend = [] {}) {
    ExpectReleasedBy<Mouse>(name + " under the mouse", lose, mend);
    ExpectReleasedBy<Finger>(name + " under the finger", lose, mend);
  }

  PaintedWindows Shown;
  FrmMain& Main = Shown.Forms.frmMain;
  std::string Heard;

 private:
  template <class Pointer>
  void ExpectReleasedBy(const std::string& name, const std::function<void()>& lose,
                        const std::function<void()>& mend) {
    Heard.clear();
    Pointer pointer(Button());
    pointer.Press();
    Shown.Settle();
    EXPECT_EQ(Heard, "down ") << name;
    lose();
    Shown.Settle();
    EXPECT_EQ(Heard, "down up ") << name;
    mend();
    Shown.Settle();
    pointer.Release();
    Shown.Settle();
    EXPECT_EQ(Heard, "down up ") << name << ", let go";
  }
};

INSTANTIATE_TEST_SUITE_P(BothButtons, HandOnCallButton, testing::Values("cmdCall", "cmdCall2"),
                         [](const auto& button) { return std::string(button.param); });

TEST_P(HandOnCallButton, APressAndItsReleaseArePassedOn) {
  Mouse mouse(Button());
  mouse.Press();
  Shown.Settle();
  EXPECT_EQ(Heard, "down ");
  mouse.Release();
  Shown.Settle();
  EXPECT_EQ(Heard, "down up ");
}

TEST_P(HandOnCallButton, AFingerHoldsItUntilItIsLifted) {
  Finger finger(Button());
  finger.Press();
  Shown.Settle();
  EXPECT_EQ(Heard, "down ");
  finger.Release();
  Shown.Settle();
  EXPECT_EQ(Heard, "down up ");
}

TEST_P(HandOnCallButton, AReleaseOutsideTheButtonIsPassedOnToo) {
  Mouse mouse(Button());
  mouse.Press();
  mouse.Move({-50, -50});
  Shown.Settle();
  EXPECT_EQ(Heard, "down ") << "the operator still holds the button";
  mouse.Release({-50, -50});
  Shown.Settle();
  EXPECT_EQ(Heard, "down up ");
}

TEST_P(HandOnCallButton, AFingerThatIsLiftedOutsideTheButtonIsPassedOnToo) {
  Finger finger(Button());
  finger.Press();
  finger.Move({-50, -50});
  Shown.Settle();
  EXPECT_EQ(Heard, "down ") << "the operator still holds the button";
  finger.Release({-50, -50});
  Shown.Settle();
  EXPECT_EQ(Heard, "down up ");
}

TEST_P(HandOnCallButton, AButtonThatIsHiddenWhileHeldIsReleasedOnce) {
  for (Property<bool>* way : {&Call().Visible, &Around().Visible}) {
    ExpectReleased(
        "hidden", [way] { *way = false; }, [way] { *way = true; });
  }
}

TEST_P(HandOnCallButton, AButtonThatIsDisabledWhileHeldIsReleasedWhenItIsLetGo) {
  QWindow& window = *Window().windowHandle();
  const QPoint there = Button().mapTo(&Window(), Button().rect().center());
  Finger finger(Button());
  for (Property<bool>* way : {&Call().Enabled, &Around().Enabled}) {
    for (const bool byFinger : {false, true}) {
      Heard.clear();
      byFinger ? finger.Press() : QTest::mousePress(&window, Qt::LeftButton, {}, there);
      Shown.Settle();
      *way = false;
      Shown.Settle();
      EXPECT_EQ(Heard, "down ") << "the operator still holds the button";
      byFinger ? finger.Release() : QTest::mouseRelease(&window, Qt::LeftButton, {}, there);
      Shown.Settle();
      EXPECT_EQ(Heard, "down up ");
      *way = true;
      Shown.Settle();
    }
  }
}

TEST_P(HandOnCallButton, AButtonIsReleasedWhenTheAmplifierTypeChangesWhileItIsHeld) {
  const auto swap = [this] {
    Main.frRouting.Visible = !Main.frRouting.Visible;
    Main.frCall.Visible = !Main.frCall.Visible;
  };
  ExpectReleased("type changes", swap, swap);
}

TEST_P(HandOnCallButton, AButtonIsReleasedWhenItsReleaseIsLost) {
  ExpectReleased("window deactivates", [this] {
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&Window(), &deactivate);
  });
  ExpectReleased(
      "window hides", [this] { Window().hide(); }, [this] { Window().show(); });
}

/// Another window of the program may have the keyboard, such as a notice; then the window with the
/// button receives no event when the screen is locked.
TEST_P(HandOnCallButton, AButtonIsReleasedWhenTheProgramIsLeft) {
  for (const auto left : {Qt::ApplicationInactive, Qt::ApplicationHidden, Qt::ApplicationSuspended})
    ExpectReleased(
        "the program is left", [left] { emit qGuiApp->applicationStateChanged(left); },
        [] { emit qGuiApp->applicationStateChanged(Qt::ApplicationActive); });
}

TEST_P(HandOnCallButton, AButtonStaysDownWhenTheKeyboardGoesToAZone) {
  Main.frRouting.Visible = true;
  Shown.Settle();
  auto& zone = Shown.Find<QPushButton>("cmdCallZone_2");
  QWindow& window = *Window().windowHandle();
  const QPoint there = Button().mapTo(&Window(), Button().rect().center());
  QTest::mousePress(&window, Qt::LeftButton, {}, there);
  Shown.Settle();
  EXPECT_EQ(Heard, "down ");
  zone.setFocus();
  QTest::keyClick(&zone, Qt::Key_Space);
  Shown.Settle();
  EXPECT_TRUE(Main.cmdCallZone[2].Value);
  EXPECT_EQ(Heard, "down ") << "the operator still holds the button";
  QTest::mouseRelease(&window, Qt::LeftButton, {}, there);
  Shown.Settle();
  EXPECT_EQ(Heard, "down up ");
}

TEST_P(HandOnCallButton, AButtonIsReleasedWhenItsWindowCloses) {
  Mouse mouse(Button());
  mouse.Press();
  Shown.Settle();
  EXPECT_EQ(Heard, "down ");
  Window().close();
  Shown.Settle();
  EXPECT_EQ(Heard, "down up ");
}

TEST_P(HandOnCallButton, AButtonIsReleasedWhereverACancelledTouchIsReported) {
  QObject& other = Shown.Find<QPushButton>("cmdPlay");
  for (QObject* receiver : std::initializer_list<QObject*>{&Button(), &Window(), &other, qApp,
                                                           Window().windowHandle()}) {
    ExpectReleased(receiver->metaObject()->className(), [receiver] { Finger::Cancel(*receiver); });
  }
}

TEST_P(HandOnCallButton, AButtonIsReleasedWhenThePointerIsSeenWithNoButtonDown) {
  for (QWidget* seen :
       std::initializer_list<QWidget*>{&Button(), &Shown.Find<QPushButton>("cmdPlay"), &Window()}) {
    Heard.clear();
    Mouse(Button()).Press();
    Shown.Settle();
    EXPECT_EQ(Heard, "down ");
    Mouse(*seen).Move({5, 5});
    Shown.Settle();
    EXPECT_EQ(Heard, "down up ");
  }
}

TEST_P(HandOnCallButton, AMouseThatIsPushedAboutLeavesTheFingerItsButton) {
  Finger finger(Button());
  finger.Press();
  Mouse(Button()).Move({5, 5});
  Mouse(Window()).Move({5, 5});
  Shown.Settle();
  EXPECT_EQ(Heard, "down ");
  finger.Release();
  Shown.Settle();
  EXPECT_EQ(Heard, "down up ");
}

TEST_P(HandOnCallButton, AButtonIsReleasedWhenABoxBlocksItsWindow) {
  QMessageBox box(&Window());
  box.setWindowModality(Qt::ApplicationModal);
  ExpectReleased(
      "box", [&box] { box.show(); }, [&box] { box.hide(); });
}

TEST_P(HandOnCallButton, AReleaseInTheWaitOfItsOwnPressIsPassedOnInsideThatWait) {
  Mouse mouse(Button());
  bool up = false;
  Call().OnMouseUp = [&](MouseButton) {
    Heard += "up ";
    up = true;
  };
  Call().OnMouseDown = [&](MouseButton) {
    Heard += "down ";
    mouse.Release();
    Shown.Loop.PumpUntil([&] { return up; });
    Heard += "waited ";
  };
  mouse.Press();
  Shown.Settle();
  EXPECT_EQ(Heard, "down up waited ");
}

}  // namespace
}  // namespace marlex
