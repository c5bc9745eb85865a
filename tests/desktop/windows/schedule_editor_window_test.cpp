#include <gtest/gtest.h>

#include "desktop/windows/mouse.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/weekday_header.h"

namespace marlex {
namespace {

/// The message schedule editor, open.
struct EditorPlace : PaintedWindows {
  EditorPlace() { Open(); }

  void Open() {
    TheWavWindow.Load();
    TheWavWindow.frInterval.Visible = false;
    TheWavWindow.Show();
    Settle();
  }

  template <class T>
  T& Part(const char* name) {
    auto* found = Screen.ScheduleEditor().findChild<T*>(name);
    if (!found) throw RuntimeFailure(std::string("No widget ") + name);
    return *found;
  }
  void Click(const char* name) {
    Mouse(Part<QAbstractButton>(name)).Click();
    Settle();
  }

  WavWindow& TheWavWindow = Forms.TheWavWindow;
};

TEST(ScheduleEditorWindow, WhatIsTypedAndClickedReachesItsControls) {
  EditorPlace windows;
  QTest::keyClicks(&windows.Part<QLineEdit>("txtHours"), "8-10");
  for (const char* name : {"WkDays_6", "cmdZone_2", "optBetween"}) windows.Click(name);
  EXPECT_EQ(windows.TheWavWindow.txtHours.Text.Get(), "8-10");
  EXPECT_EQ(windows.TheWavWindow.WkDays[6].Value, 1);
  EXPECT_TRUE(windows.TheWavWindow.cmdZone[2].Value);
  EXPECT_TRUE(windows.TheWavWindow.optBetween.Value());
  EXPECT_FALSE(windows.TheWavWindow.optExact.Value());
}

TEST(ScheduleEditorWindow, ThePanelsChangePlacesAndTheSequencesModeStays) {
  EditorPlace windows;
  windows.TheWavWindow.frMinutes.Visible = false;
  windows.TheWavWindow.frInterval.Visible = true;
  windows.Settle();
  const int top = windows.Part<QWidget>("frInterval").y();
  windows.Click("optInterval_15");
  windows.Click("optInterval_30");
  EXPECT_FALSE(windows.TheWavWindow.optInterval[15].Value());
  EXPECT_TRUE(windows.TheWavWindow.optInterval[30].Value());
  EXPECT_TRUE(windows.TheWavWindow.optExact.Value());
  windows.TheWavWindow.frInterval.Visible = false;
  windows.TheWavWindow.frMinutes.Visible = true;
  windows.Settle();
  EXPECT_EQ(windows.Part<QWidget>("frMinutes").y(), top);
}

TEST(ScheduleEditorWindow, AGivenPlaceAndSizeAreKeptUntilTheNextOpening) {
  EditorPlace windows;
  QWidget& window = windows.Screen.ScheduleEditor();
  window.setGeometry(60, 50, 1000, 700);
  windows.Settle();
  windows.TheWavWindow.Unload();
  windows.Settle();
  EXPECT_FALSE(window.isVisible());
  windows.Open();
  EXPECT_EQ(window.size(), QSize(1000, 700));
}

TEST(ScheduleEditorWindow, ItsListsTakeTheRoomOfALargerWindow) {
  EditorPlace windows;
  auto& list = windows.Part<QListView>("SelectedWavs");
  windows.Screen.ScheduleEditor().resize(900, 720);
  windows.Settle();
  const QSize before = list.size();
  windows.Screen.ScheduleEditor().resize(1200, 900);
  windows.Settle();
  EXPECT_GT(list.width(), before.width() + 100);
  EXPECT_GT(list.height(), before.height() + 100);
}

TEST(ScheduleEditorWindow, FitsASmallScreen) {
  EditorPlace windows;
  const QSize need = windows.Screen.ScheduleEditor().minimumSizeHint();
  EXPECT_LE(need.width(), 1024);
  EXPECT_LE(need.height(), 728);
}

TEST(ScheduleEditorWindow, EachWeekdayIsOverItsBox) {
  EditorPlace windows;
  auto& header = windows.Part<WeekdayHeader>("lblWeekdays");
  for (int day = 0; day < kWeekdays; ++day) {
    auto& box = windows.Part<QCheckBox>(("WkDays_" + std::to_string(day)).c_str());
    const QPoint middle = box.mapTo(&windows.Screen.ScheduleEditor(), box.rect().center());
    const int left = header.mapTo(&windows.Screen.ScheduleEditor(), QPoint()).x();
    EXPECT_NEAR(middle.x(), left + header.width() * (2 * day + 1) / 14.0, 3) << day;
  }
}

TEST(ScheduleEditorWindow, TheTabGoesFromTheMessagesToTheMode) {
  EditorPlace windows;
  const QStringList sequence{"AvailWavs",  "SelectedWavs", "RemoveKey",
                             "RemAll_Key", "PrevKey",      "txtHours"};
  const QStringList rest = Numbered("WkDays", kWeekdays) + Numbered("cmdZone", kZones) +
                           QStringList{"optExact", "optBetween"};
  auto& first = windows.Part<QWidget>("AvailWavs");
  const QStringList minutes{"txtMinutes", "cmdInterval"};
  EXPECT_EQ(TabOrder(first), sequence + minutes + rest);
  windows.TheWavWindow.frMinutes.Visible = false;
  windows.TheWavWindow.frInterval.Visible = true;
  windows.Settle();
  const QStringList panel{"optInterval_2",  "optInterval_5",  "optInterval_10",
                          "optInterval_15", "optInterval_20", "optInterval_30",
                          "cmbStart",       "cmdOK",          "cmdCancel"};
  EXPECT_EQ(TabOrder(first), sequence + panel + rest);
}

TEST(ScheduleEditorWindow, ANewEntryOfTheSequenceIsInView) {
  EditorPlace windows;
  for (int entry = 0; entry < 100; ++entry)
    windows.TheWavWindow.SelectedWavs.AddItem("m" + std::to_string(entry));
  windows.Settle();
  auto& view = windows.Part<QListView>("SelectedWavs");
  const auto sees = [&](int entry) {
    return view.viewport()->rect().intersects(view.visualRect(view.model()->index(entry, 0)));
  };
  EXPECT_TRUE(sees(0));
  windows.TheWavWindow.SelectedWavs.AddItem("newest");
  windows.Settle();
  EXPECT_TRUE(sees(100));
}

}  // namespace
}  // namespace marlex
