#include <gtest/gtest.h>

#include "sheets/scenes.h"

namespace marlex {
namespace {

int FirstRow(const QWidget& window) {
  return window.findChild<QTableView*>("grdSchedule")->rowAt(0) + 1;
}

/// The system decides which row and column the table shows first, even while rows and columns come
/// and go.
TEST(Place, ATableThatIsRebuiltBeginsWhereTheSystemHasIt) {
  const Scene& scene = Scenes().front();
  ShownDesk desk(scene.Options);
  const QWidget& window = scene.Reach(desk);
  EXPECT_EQ(FirstRow(window), desk.Main().grdSchedule.TopRow());
  FrmMain& main = desk.Main();
  for (const Menu* menu : {&main.mnuAllDays, &main.mnuScheduleName, &main.mnuCurrentDay}) {
    desk.Do([menu] { menu->OnClick(); });
    desk.Settle();
    EXPECT_EQ(main.grdSchedule.TopRow(), 1) << menu->Name;
    EXPECT_EQ(FirstRow(window), 1) << menu->Name;
  }
}

}  // namespace
}  // namespace marlex
