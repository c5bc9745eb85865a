#include "sheets/opened.h"

#include <gtest/gtest.h>

#include "screen/measure.h"
#include "sheets/dark_desktop.h"
#include "sheets/sheet.h"

namespace marlex {
namespace {

void Paint(const Scene& scene, bool isDark, Sheet& sheet) {
  SCOPED_TRACE(scene.Name);
  ShownDesk desk(scene.Options);
  QWidget& opened = scene.Reach(desk);
  ExpectNothingClipped(opened);
  sheet.AddLook(isDark, opened.grab());
}

TEST(Opened, ListAndMenuAreWholeInLightAndDark) {
  for (const Scene& scene : OpenedScenes()) {
    Sheet sheet;
    Paint(scene, false, sheet);
    const DarkDesktop dark;
    Paint(scene, true, sheet);
    sheet.Save(QString::fromStdString(scene.Name));
  }
}

}  // namespace
}  // namespace marlex
