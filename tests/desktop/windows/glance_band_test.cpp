#include "desktop/windows/glance_band.h"

#include <gtest/gtest.h>

#include "desktop/windows/shop_desk.h"

namespace marlex {
namespace {

class GlanceBandTest : public ::testing::Test {
 protected:
  template <class T>
  T& Part(const char* name) {
    return WholeDesk::Find<T>(Shop.Screen.Main(), name);
  }
  QString Text(const char* name) { return Part<QLabel>(name).text(); }
  QString Face() { return Part<QWidget>("paneOnAir").property("air").toString(); }
  QColor Ground() {
    const QImage box = Part<QWidget>("paneOnAir").grab().toImage();
    return box.pixelColor(box.width() / 2, 6);
  }

  ShopDesk Shop;
};

TEST_F(GlanceBandTest, FollowsTheSongTheCallAndTheCallOfTheAmplifier) {
  EXPECT_EQ(Face(), "silence");
  Shop.ClickButton(Shop.Screen.Main(), "cmdPlay");
  EXPECT_EQ(Face() + ": " + Text("paneOnAirName"), "music: march");
  const QColor plain = Ground();
  CommandButton& button = Shop.Sys.TheWindows.frmMain.cmdCall;
  Shop.Pc.Loop.Post([&button] { button.OnMouseDown(MouseButton::Left); });
  Shop.Advance(3000);
  EXPECT_EQ(Face() + ": " + Text("paneOnAirName"), "call: Speak");
  EXPECT_NE(Ground(), plain);
  Shop.Pc.Serial.Receive({128});
  Shop.Settle();
  EXPECT_EQ(Face() + ": " + Text("paneOnAirName"), "amplifier: Higher priority call in progress");
  EXPECT_NE(Ground(), plain);
}

TEST_F(GlanceBandTest, KeepsItsHeightWhateverIsOnTheAir) {
  const int height = Part<QWidget>("paneOnAir").height();
  Shop.Pc.Serial.Receive({128});
  Shop.Settle();
  EXPECT_EQ(Face(), "amplifier");
  EXPECT_EQ(Part<QWidget>("paneOnAir").height(), height);
}

TEST_F(GlanceBandTest, HasNoPlaceForANextMessageWhereThereIsNone) {
  EXPECT_TRUE(Part<QWidget>("paneNext").isHidden());
  Grid& table = Shop.Sys.TheWindows.frmMain.grdSchedule;
  Shop.Pc.Loop.Post([&table] {
    table.SetRows(2);
    table.SetTextMatrix(1, kTimeColumn, "23:59+");
    table.SetTextMatrix(1, kMessagesColumn, "gong,closing");
  });
  Shop.Settle();
  EXPECT_FALSE(Part<QWidget>("paneNext").isHidden());
  EXPECT_EQ(Text("paneNextTime") + " " + Text("paneNextMessages"), "23:59+ gong,closing");
}

}  // namespace
}  // namespace marlex
