#include <gtest/gtest.h>

#include "i18n/languages.h"
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

/// The marks of the rows in sight: "!" for each one in conflict.
QString MarksInSight(const QTableView& table) {
  QString marks;
  const int last = table.rowAt(table.viewport()->height() - 1);
  for (int row = table.rowAt(0); row <= last; ++row) {
    const QModelIndex time = table.model()->index(row, 0);
    marks += time.data(Qt::AccessibleTextRole).toString().left(1);
  }
  return marks;
}

TEST(Place, ARowInConflictIsInSightWithItsNoteInEveryLanguage) {
  for (const Scene& scene : Scenes()) {
    if (!QString::fromStdString(scene.Name).startsWith("main_conflict")) continue;
    for (const Language& language : PaintedLanguages()) {
      DeskOptions options = scene.Options;
      options.Language = language.Name;
      ShownDesk desk(options);
      const QWidget& window = scene.Reach(desk);
      EXPECT_TRUE(MarksInSight(*window.findChild<QTableView*>("grdSchedule")).contains('!'))
          << scene.Name << " in " << language.Name;
    }
  }
}

}  // namespace
}  // namespace marlex
