#include "desktop/windows/lamps.h"

#include <gtest/gtest.h>

#include <set>

#include "desktop/windows/shop_desk.h"
#include "desktop/windows/theme.h"
#include "desktop/windows/theme_colors.h"

namespace marlex {
namespace {

class LampsTest : public ::testing::Test {
 protected:
  LampsTest() {
    FrmMain& form = Shop.Sys.TheWindows.frmMain;
    Shop.Pc.Loop.Post([&form] {
      for (int zone = 0; zone < 2; ++zone) form.cmdMusicZones[zone].Value = true;
      form.cmdCallZone[1].Value = form.cmdCallZone[2].Value = true;
    });
    Shop.ClickButton(Shop.Screen.Main(), "cmdPlay");
  }

  /// The colour in which a part is filled, below its text.
  std::string Ground(const char* part) {
    const QImage picture = WholeDesk::Find<QWidget>(Shop.Screen.Main(), part).grab().toImage();
    const QColor ground = picture.pixelColor(picture.width() / 5, picture.height() - 5);
    for (const ThemeColor& color : ThemeColors()) {
      const bool isSignal = QStringList({"live", "fed", "face", "wait-line", "wait", "notice",
                                         "accent", "on", "card"})
                                .contains(color.Name);
      if (isSignal && color.Light == ground) return color.Name.toStdString();
    }
    return ground.name().toStdString();
  }

  std::string Zones() {
    std::string zones;
    for (const char* zone : {"lblCurrentZone_0", "lblCurrentZone_1", "lblCurrentZone_2"})
      zones += Ground(zone) + " ";
    return zones;
  }

  /// What was seen while the chime played, which the press waits for.
  struct Sights {
    std::set<std::string> Lamp;
    std::set<std::string> Band;
    std::string AllZones;
  };

  void LookInTheChime(Sights& sights) {
    for (int look = 1; look <= 10; ++look) {
      Shop.Pc.Loop.Schedule(look * 101, [this, &sights] {
        sights.Lamp.insert(Ground("lblBusy_0"));
        sights.Band.insert(Ground("paneOnAir"));
        sights.AllZones += Zones();
      });
    }
  }

  void Press() {
    CommandButton& button = Shop.Sys.TheWindows.frmMain.cmdCall;
    Shop.Pc.Loop.Post([&button] { button.OnMouseDown(MouseButton::Left); });
    Shop.Settle();
  }

  ShopDesk Shop;
};

TEST_F(LampsTest, AZoneThatTheMusicFeedsIsPale) { EXPECT_EQ(Zones(), "fed fed face "); }

TEST_F(LampsTest, NothingIsGreenBeforeTheFirstWordIsHeard) {
  Shop.Sys.Store.Values.PreChime = "gong";
  Sights sights;
  LookInTheChime(sights);
  Press();
  EXPECT_EQ(sights.Lamp, (std::set<std::string>{"face", "wait-line"}));
  EXPECT_EQ(sights.Band, std::set<std::string>{"wait"});
  EXPECT_NE(sights.AllZones.find("face fed fed"), std::string::npos) << sights.AllZones;
  EXPECT_EQ(sights.AllZones.find("live"), std::string::npos);
  Shop.Advance(2000);
  EXPECT_EQ(Ground("lblBusy_0") + " " + Ground("paneOnAir"), "live live");
  EXPECT_EQ(Zones(), "face live live ");
}

TEST_F(LampsTest, AreNotGreenDuringACallOfTheAmplifier) {
  Press();
  Shop.Advance(3000);
  Shop.Pc.Serial.Receive({128});
  Shop.Settle();
  EXPECT_EQ(Zones(), "fed fed face ");
  EXPECT_EQ(Ground("lblHiPrio") + " " + Ground("paneOnAir"), "notice notice");
  EXPECT_EQ(Ground("lblBusy_0"), "face") << "nobody waits for a call that has been cut off";
}

/// How often a widget has been painted.
struct PaintCount : QObject {
  explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++Count;
    return false;
  }

  int Count = 0;
};

TEST_F(LampsTest, TheRowOfAMessageThatATakeoverMutesIsPale) {
  Shop.Pc.Loop.Post([this] {
    Grid& table = Shop.Sys.TheWindows.frmMain.grdSchedule;
    table.SetRows(2);
    table.SetRow(1);
    table.SetCol(kTimeColumn);
    table.SetCellColors(kGreen, kBlack);
    Shop.Sys.TheFlags.MessagePlaying = true;
  });
  Shop.Settle();
  auto& view = WholeDesk::Find<QTableView>(Shop.Screen.Main(), "grdSchedule");
  const QModelIndex cell = view.model()->index(0, kTimeColumn);
  const auto color = [&](int role) { return cell.data(role).value<QBrush>().color().name(); };
  EXPECT_EQ(color(Qt::BackgroundRole), ThemeColorNow("live").name());
  PaintCount painted(*view.viewport());
  Shop.Settle();
  ASSERT_EQ(painted.Count, 0);
  Shop.Pc.Serial.Receive({128});
  Shop.Settle();
  EXPECT_EQ(color(Qt::BackgroundRole), ThemeColorNow("fed").name());
  EXPECT_EQ(color(Qt::ForegroundRole), ThemeColorNow("text").name());
  EXPECT_GT(painted.Count, 0);
}

TEST_F(LampsTest, ACallThatDoesNotHoldUsBackIsNoted) {
  Shop.Sys.Store.Values.OwnPriorityLevel = 128;
  Shop.Pc.Serial.Receive({64});
  Shop.Settle();
  EXPECT_TRUE(WholeDesk::Find<QLabel>(Shop.Screen.Main(), "lblHiPrio").isVisible());
  EXPECT_EQ(Ground("lblHiPrio") + " " + Ground("paneOnAir"), "wait card");
}

TEST_F(LampsTest, ButtonsThatAreOnAreTintedAndCallAloneIsFullBlue) {
  EXPECT_EQ(Ground("cmdCall"), "accent");
  EXPECT_EQ(Ground("cmdMusicZones_0") + " " + Ground("cmdCallZone_1"), "on on");
  for (const QPushButton* button : Shop.Screen.Main().findChildren<QPushButton*>()) {
    const bool isShown = button->isVisible() && button->objectName() != "cmdCall";
    if (!isShown) continue;
    EXPECT_NE(Ground(button->objectName().toUtf8()), "accent")
        << button->objectName().toStdString();
  }
}

}  // namespace
}  // namespace marlex
