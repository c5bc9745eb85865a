#include "desktop/windows/hand.h"

#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/mouse.h"

namespace marlex {
namespace {

TEST(Hand, AClickReachesItsControlOnce) {
  Desk desk;
  int clicks = 0;
  desk.Forms.frmMain.cmdPlay.OnClick = [&] { ++clicks; };
  desk.ShowMain();
  Mouse(desk.Find<QPushButton>("cmdPlay")).Click();
  desk.Settle();
  EXPECT_EQ(clicks, 1);
}

TEST(Hand, ADisabledControlForwardsNothing) {
  Desk desk;
  FrmMain& main = desk.Forms.frmMain;
  int events = 0;
  main.cmdCall.OnClick = [&] { ++events; };
  main.cmdCall.OnMouseDown = [&](MouseButton) { ++events; };
  main.lstPlaylist.AddItem("march");
  main.lstPlaylist.OnMouseDown = [&](MouseButton) { ++events; };
  main.cmdCall.Enabled = false;
  main.lstPlaylist.Enabled = false;
  desk.ShowMain();
  Mouse(desk.Find<QPushButton>("cmdCall")).Click();
  Mouse(*desk.Find<QListView>("lstPlaylist").viewport()).Click({20, 15});
  desk.Settle();
  EXPECT_EQ(events, 0);
}

TEST(Hand, AClickIsDroppedWhenTheControlWasDisabledJustBefore) {
  Desk desk;
  int clicks = 0;
  desk.Forms.frmMain.cmdPlay.OnClick = [&] { ++clicks; };
  desk.ShowMain();
  desk.Forms.frmMain.cmdPlay.Enabled = false;  // not yet painted
  Mouse(desk.Find<QPushButton>("cmdPlay")).Click();
  desk.Settle();
  EXPECT_EQ(clicks, 0);
}

TEST(Hand, TheSecondClickOnAKeyThatClosedItsWindowIsDropped) {
  Desk desk;
  int clicks = 0;
  FrmAbout& about = desk.Forms.frmAbout;
  about.cmdOK.OnClick = [&] {
    ++clicks;
    about.Unload();
  };
  about.Show();
  desk.Settle();
  auto* key = desk.Screen.About().findChild<QPushButton*>("cmdOK");
  Mouse(*key).Click();
  Mouse(*key).Click();
  desk.Settle();
  EXPECT_EQ(clicks, 1);
}

TEST(Hand, AToggleSetsItsValueAndTheSystemHasTheLastWord) {
  Desk desk;
  ToggleButton& zone = desk.Forms.frmMain.cmdMusicZones[1];
  desk.ShowMain();
  auto& key = desk.Find<QPushButton>("cmdMusicZones_1");
  Mouse(key).Click();
  desk.Settle();
  EXPECT_TRUE(zone.Value);
  zone.OnChange = [&] { zone.Value = true; };
  Mouse(key).Click();
  desk.Settle();
  EXPECT_TRUE(zone.Value);
  EXPECT_TRUE(key.isChecked());
}

TEST(Hand, WhatTheSystemSetsIsShownAndNotEchoed) {
  Desk desk;
  FrmMain& main = desk.Forms.frmMain;
  int changes = 0;
  main.cmdMusicZones[3].OnChange = [&] { ++changes; };
  main.lstPlaylist.OnClick = [&] { ++changes; };
  main.mnuAllDays.OnClick = [&] { ++changes; };
  desk.ShowMain();
  main.cmdMusicZones[3].Value = true;
  main.mnuAllDays.Checked = true;
  main.lstPlaylist.AddItem("march");
  main.lstPlaylist.AddItem("waltz");
  main.lstPlaylist.SetListIndex(1);
  desk.Settle();
  EXPECT_TRUE(desk.Find<QPushButton>("cmdMusicZones_3").isChecked());
  EXPECT_TRUE(desk.Find<QAction>("mnuAllDays").isChecked());
  EXPECT_EQ(desk.Find<QListView>("lstPlaylist").currentIndex().row(), 1);
  EXPECT_EQ(changes, 2) << "one for the toggle and one for the list, both from the code itself";
}

TEST(Hand, AMenuItemReachesItsControlAndShowsTheTickOfTheSystem) {
  Desk desk;
  int clicks = 0;
  desk.Forms.frmMain.mnuAllDays.OnClick = [&] { ++clicks; };
  desk.ShowMain();
  auto& item = desk.Find<QAction>("mnuAllDays");
  item.trigger();
  desk.Settle();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(item.isChecked());
  EXPECT_FALSE(desk.Find<QAction>("mnuFKeys").isVisible());
}

TEST(Hand, TheSameKeyWorksAgainWhileItsFirstClickStillWaits) {
  Desk desk;
  desk.ShowMain();
  auto& key = desk.Find<QPushButton>("cmdPlay");
  std::string story;
  int depth = 0;
  bool let_go = false;
  desk.Forms.frmMain.cmdPlay.OnClick = [&] {
    story += "in " + std::to_string(++depth) + ", ";
    if (depth == 1) {
      Mouse(key).Click();
      desk.Loop.PumpUntil([&] { return let_go; });
    } else {
      EXPECT_FALSE(key.isDown());
      let_go = true;
    }
    story += "out " + std::to_string(depth--) + ", ";
  };
  Mouse(key).Click();
  desk.Settle();
  EXPECT_EQ(story, "in 1, in 2, out 2, out 1, ");
  EXPECT_FALSE(key.isDown());
}

TEST(Hand, AFailureInAnEventGoesToTheLoopAndTheWidgetShowsWhatHolds) {
  Desk desk;
  desk.ShowMain();
  std::string told;
  desk.Loop.OnFailure = [&](const RuntimeFailure& failure) { told = failure.what(); };
  ToggleButton& zone = desk.Forms.frmMain.cmdMusicZones[0];
  zone.OnChange = [&] {
    if (!zone.Value) return;
    zone.Value = false;
    throw RuntimeFailure("no such zone");
  };
  auto& key = desk.Find<QPushButton>("cmdMusicZones_0");
  Mouse(key).Click();
  desk.Settle();
  EXPECT_EQ(told, "no such zone");
  EXPECT_FALSE(key.isChecked());
}

/// A call key that writes down what it hears.
struct CallKey {
  CallKey() {
    CommandButton& call = Place.Forms.frmMain.cmdCall;
    call.OnMouseDown = [this](MouseButton key) {
      Heard += key == MouseButton::Left ? "down " : "other ";
    };
    call.OnMouseUp = [this](MouseButton key) {
      Heard += key == MouseButton::Left ? "up " : "other-up ";
    };
    Place.ShowMain();
  }
  QPushButton& Key() { return Place.Find<QPushButton>("cmdCall"); }

  Desk Place;
  std::string Heard;
};

TEST(Hand, APressAndItsReleaseAreTold) {
  CallKey call;
  Mouse mouse(call.Key());
  mouse.Press();
  call.Place.Settle();
  EXPECT_EQ(call.Heard, "down ");
  mouse.Release();
  call.Place.Settle();
  EXPECT_EQ(call.Heard, "down up ");
}

TEST(Hand, AReleaseOutsideTheKeyIsToldToo) {
  CallKey call;
  Mouse mouse(call.Key());
  mouse.Press();
  mouse.Move({-50, -50});
  call.Place.Settle();
  EXPECT_EQ(call.Heard, "down ") << "the operator still holds the key";
  mouse.Release({-50, -50});
  call.Place.Settle();
  EXPECT_EQ(call.Heard, "down up ");
}

TEST(Hand, AKeyThatIsDisabledOrHiddenWhileHeldIsReleasedOnce) {
  CallKey call;
  CommandButton& control = call.Place.Forms.frmMain.cmdCall;
  for (Property<bool>* way : {&control.Enabled, &control.Visible}) {
    call.Heard.clear();
    Mouse mouse(call.Key());
    mouse.Press();
    call.Place.Settle();
    *way = false;
    call.Place.Settle();
    EXPECT_EQ(call.Heard, "down up ");
    *way = true;
    call.Place.Settle();
    mouse.Release();
    call.Place.Settle();
    EXPECT_EQ(call.Heard, "down up ");
  }
}

TEST(Hand, AKeyIsReleasedWhenItsReleaseIsLost) {
  CallKey call;
  const std::vector<std::pair<const char*, std::function<void()>>> ways = {
      {"focus moves",
       [&] { call.Key().setFocus(), call.Place.Find<QPushButton>("cmdPlay").setFocus(); }},
      {"window deactivates",
       [&] {
         QEvent e(QEvent::WindowDeactivate);
         QApplication::sendEvent(&call.Place.Screen.Main(), &e);
       }},
      {"window hides", [&] { call.Place.Screen.Main().hide(), call.Place.Screen.Main().show(); }},
      {"touch is cancelled",
       [&] {
         QEvent e(QEvent::TouchCancel);
         QApplication::sendEvent(&call.Key(), &e);
       }},
      {"pointer comes back with no key down",
       [&] {
         Mouse(call.Key()).Move({5, 5});
       }},
  };
  for (const auto& [name, lose] : ways) {
    call.Heard.clear();
    Mouse(call.Key()).Press();
    call.Place.Settle();
    EXPECT_EQ(call.Heard, "down ") << name;
    lose();
    call.Place.Settle();
    EXPECT_EQ(call.Heard, "down up ") << name;
  }
}

TEST(Hand, AKeyIsReleasedWhenABoxBlocksItsWindow) {
  CallKey call;
  Mouse(call.Key()).Press();
  call.Place.Settle();
  QMessageBox box(&call.Place.Screen.Main());
  box.setWindowModality(Qt::ApplicationModal);
  box.show();
  call.Place.Settle();
  EXPECT_EQ(call.Heard, "down up ");
}

TEST(Hand, AReleaseDuringTheWaitOfItsOwnPressIsToldInsideThatWait) {
  CallKey call;
  Mouse mouse(call.Key());
  bool up = false;
  CommandButton& control = call.Place.Forms.frmMain.cmdCall;
  control.OnMouseUp = [&](MouseButton) {
    call.Heard += "up ";
    up = true;
  };
  control.OnMouseDown = [&](MouseButton) {
    call.Heard += "down ";
    mouse.Release();
    call.Place.Loop.PumpUntil([&] { return up; });
    call.Heard += "waited ";
  };
  mouse.Press();
  call.Place.Settle();
  EXPECT_EQ(call.Heard, "down up waited ");
}

}  // namespace
}  // namespace marlex
