#include "desktop/windows/fault_line.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/windows/shop_desk.h"

namespace marlex {
namespace {

constexpr int kPromisedMs = 10'000;  // until a fault is in sight, and until it is gone

class FaultLineTest : public ::testing::Test {
 protected:
  template <class T>
  T& Part(const char* name) {
    return WholeDesk::Find<T>(Shop.Screen.Main(), name);
  }
  QWidget& Line() { return Part<QWidget>("paneFaults"); }
  QString Shown() {
    const auto& more = Part<QLabel>("paneMoreFaults");
    const QString count = more.isHidden() ? QString() : " " + more.text();
    return Line().isHidden() ? QString() : Part<QLabel>("paneNewestFault").text() + count;
  }
  void LoseTheMicrophone() {
    Shop.Pc.Sound.NoMicrophone = true;
    Shop.Advance(kPromisedMs);
  }

  ShopDesk Shop;
};

TEST_F(FaultLineTest, IsHiddenWhenAllIsWell) {
  Shop.Advance(kPromisedMs);
  EXPECT_TRUE(Line().isHidden());
}

TEST_F(FaultLineTest, ShowsTheNewestFaultAndHowManyMoreThereAre) {
  LoseTheMicrophone();
  EXPECT_EQ(Shown(), "The microphone is missing");
  Shop.Pc.Serial.Unplug();
  Shop.Pc.Sound.OutletNow = SoundOutlet::Pretended;
  Shop.Advance(kPromisedMs);
  EXPECT_EQ(Shown(), "No sound: the sound server has no sound card +2");
  Shop.Pc.Sound = {};
  Shop.Pc.Serial.Plug();
  Shop.Advance(kPromisedMs);
  EXPECT_TRUE(Line().isHidden());
}

TEST_F(FaultLineTest, CountsNothingWhenAllIsWellAgain) {
  LoseTheMicrophone();
  Shop.Pc.Sound = {};
  Shop.Advance(kPromisedMs);
  EXPECT_EQ(Part<QLabel>("paneMoreFaults").text(), "");
}

TEST_F(FaultLineTest, NamesAllForTheMouseAndForScreenReaders) {
  LoseTheMicrophone();
  Shop.Pc.Serial.Unplug();
  Shop.Advance(kPromisedMs);
  EXPECT_EQ(Line().accessibleName(),
            "The com port cannot be opened: COM1\nThe microphone is missing");
  EXPECT_EQ(Part<QLabel>("paneNewestFault").accessibleName(), Line().accessibleName());
  EXPECT_TRUE(Line().toolTip().contains("COM1"));
  EXPECT_TRUE(Line().toolTip().contains("The microphone is missing"));
  const QPoint onText = Part<QLabel>("paneNewestFault").geometry().center();
  EXPECT_EQ(Line().childAt(onText), nullptr);  // so the tool tip is that of the line
}

TEST_F(FaultLineTest, NamesTwelveAndThatThereAreMore) {
  const auto lines = [this](int faults) {
    for (int file = 1; file <= faults; ++file)
      Shop.Sys.Store.RebuildProfile({}, "/nowhere/" + std::to_string(file) + ".ini");
    Shop.Advance(kPromisedMs);
    return Line().accessibleName().split('\n');
  };
  EXPECT_EQ(lines(12).size(), 12);
  EXPECT_TRUE(lines(12).last().endsWith(".ini"));
  EXPECT_EQ(lines(14).size(), 13);
  EXPECT_EQ(lines(14).last(), "...");
}

TEST_F(FaultLineTest, TakesTheFocusFromNobodyAndOpensNoBox) {
  auto& songs = Part<QWidget>("lstPlaylist");
  songs.setFocus();
  const auto shown = [] {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::ranges::count_if(windows, &QWidget::isVisible);
  };
  const auto before = shown();
  LoseTheMicrophone();
  ASSERT_FALSE(Line().isHidden());
  EXPECT_EQ(Shop.Screen.Main().focusWidget(), &songs);
  EXPECT_EQ(Line().focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(shown(), before);
  EXPECT_TRUE(Shop.Pc.Dialogs.Boxes.empty());
}

TEST_F(FaultLineTest, LeavesTheCallButtonAndTheBandWhereTheyAre) {
  QWidget& window = Shop.Screen.Main();
  const auto placeOf = [&](const char* name) {
    return Part<QWidget>(name).mapTo(&window, QPoint(0, 0));
  };
  const QPoint call = placeOf("cmdCall");
  const QPoint band = placeOf("paneOnAir");
  const QSize size = window.size();
  LoseTheMicrophone();
  ASSERT_FALSE(Line().isHidden());
  EXPECT_EQ(placeOf("cmdCall"), call);
  EXPECT_EQ(placeOf("paneOnAir"), band);
  EXPECT_EQ(window.size(), size);
}

}  // namespace
}  // namespace marlex
