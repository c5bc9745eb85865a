#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/mouse.h"
#include "desktop/windows/weekday_header.h"

namespace marlex {
namespace {

/// The message schedule editor, open.
struct EditorPlace : Desk {
  EditorPlace() { Open(); }

  void Open() {
    Editor.Load();
    Editor.frInterval.Visible = false;
    Editor.Show();
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

  WavWindow& Editor = Forms.TheWavWindow;
};

TEST(ScheduleEditorWindow, WhatIsTypedAndClickedReachesItsControls) {
  EditorPlace desk;
  QTest::keyClicks(&desk.Part<QLineEdit>("txtHours"), "8-10");
  for (const char* key : {"WkDays_6", "cmdZone_2", "optBetween"}) desk.Click(key);
  EXPECT_EQ(desk.Editor.txtHours.Text.Get(), "8-10");
  EXPECT_EQ(desk.Editor.WkDays[6].Value, 1);
  EXPECT_TRUE(desk.Editor.cmdZone[2].Value);
  EXPECT_TRUE(desk.Editor.optBetween.Value());
  EXPECT_FALSE(desk.Editor.optExact.Value());
}

TEST(ScheduleEditorWindow, ThePanelsChangePlacesAndTheSequencesModeStays) {
  EditorPlace desk;
  desk.Editor.frMinutes.Visible = false;
  desk.Editor.frInterval.Visible = true;
  desk.Settle();
  const int top = desk.Part<QWidget>("frInterval").y();
  desk.Click("optInterval_15");
  desk.Click("optInterval_30");
  EXPECT_FALSE(desk.Editor.optInterval[15].Value());
  EXPECT_TRUE(desk.Editor.optInterval[30].Value());
  EXPECT_TRUE(desk.Editor.optExact.Value());
  desk.Editor.frInterval.Visible = false;
  desk.Editor.frMinutes.Visible = true;
  desk.Settle();
  EXPECT_EQ(desk.Part<QWidget>("frMinutes").y(), top);
}

TEST(ScheduleEditorWindow, AGivenPlaceAndSizeAreKeptUntilTheNextOpening) {
  EditorPlace desk;
  QWidget& window = desk.Screen.ScheduleEditor();
  window.setGeometry(60, 50, 1000, 700);
  desk.Settle();
  desk.Editor.Unload();
  desk.Settle();
  EXPECT_FALSE(window.isVisible());
  desk.Open();
  EXPECT_EQ(window.size(), QSize(1000, 700));
}

TEST(ScheduleEditorWindow, ItsListsTakeTheRoomOfALargerWindow) {
  EditorPlace desk;
  auto& list = desk.Part<QListView>("SelectedWavs");
  desk.Screen.ScheduleEditor().resize(900, 720);
  desk.Settle();
  const QSize before = list.size();
  desk.Screen.ScheduleEditor().resize(1200, 900);
  desk.Settle();
  EXPECT_GT(list.width(), before.width() + 100);
  EXPECT_GT(list.height(), before.height() + 100);
}

TEST(ScheduleEditorWindow, FitsASmallScreen) {
  EditorPlace desk;
  const QSize need = desk.Screen.ScheduleEditor().minimumSizeHint();
  EXPECT_LE(need.width(), 1024);
  EXPECT_LE(need.height(), 728);
}

TEST(ScheduleEditorWindow, EachWeekdayStandsOverItsBox) {
  EditorPlace desk;
  auto& header = desk.Part<WeekdayHeader>("lblWeekdays");
  for (int day = 0; day < kWeekdays; ++day) {
    auto& box = desk.Part<QCheckBox>(("WkDays_" + std::to_string(day)).c_str());
    const QPoint middle = box.mapTo(&desk.Screen.ScheduleEditor(), box.rect().center());
    const int left = header.mapTo(&desk.Screen.ScheduleEditor(), QPoint()).x();
    EXPECT_NEAR(middle.x(), left + header.width() * (2 * day + 1) / 14, 3) << day;
  }
}

TEST(ScheduleEditorWindow, TheTabGoesFromTheMessagesToTheMode) {
  EditorPlace desk;
  const QStringList sequence{"AvailWavs",  "SelectedWavs", "RemoveKey",
                             "RemAll_Key", "PrevKey",      "txtHours"};
  const QStringList rest = Numbered("WkDays", kWeekdays) + Numbered("cmdZone", kZones) +
                           QStringList{"optExact", "optBetween"};
  auto& first = desk.Part<QWidget>("AvailWavs");
  const QStringList minutes{"txtMinutes", "cmdInterval"};
  EXPECT_EQ(TabOrder(first), sequence + minutes + rest);
  desk.Editor.frMinutes.Visible = false;
  desk.Editor.frInterval.Visible = true;
  desk.Settle();
  const QStringList panel{"optInterval_2",  "optInterval_5",  "optInterval_10",
                          "optInterval_15", "optInterval_20", "optInterval_30",
                          "cmbStart",       "cmdOK",          "cmdCancel"};
  EXPECT_EQ(TabOrder(first), sequence + panel + rest);
}

TEST(ScheduleEditorWindow, ANewEntryOfTheSequenceIsInView) {
  EditorPlace desk;
  for (int entry = 0; entry < 100; ++entry)
    desk.Editor.SelectedWavs.AddItem("m" + std::to_string(entry));
  desk.Settle();
  auto& view = desk.Part<QListView>("SelectedWavs");
  const auto sees = [&](int entry) {
    return view.viewport()->rect().intersects(view.visualRect(view.model()->index(entry, 0)));
  };
  EXPECT_TRUE(sees(0));
  desk.Editor.SelectedWavs.AddItem("newest");
  desk.Settle();
  EXPECT_TRUE(sees(100));
}

}  // namespace
}  // namespace marlex
