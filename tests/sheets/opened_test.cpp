#include "sheets/opened.h"

#include <gtest/gtest.h>

#include "screen/measure.h"
#include "sheets/dark_desktop.h"
#include "sheets/sheet.h"

namespace marlex {
namespace {

void Paint(const Scene& scene, const char* look, Sheet& sheet) {
  SCOPED_TRACE(scene.Name + " " + look);
  ShownDesk desk(scene.Options);
  QWidget& opened = scene.Reach(desk);
  ExpectNothingClipped(opened);
  sheet.Add(look, opened.grab());
}

TEST(Opened, ListAndMenuAreWholeInLightAndDark) {
  for (const Scene& scene : OpenedScenes()) {
    Sheet sheet;
    Paint(scene, "light", sheet);
    const DarkDesktop dark;
    Paint(scene, "dark", sheet);
    sheet.Save(QString::fromStdString(scene.Name));
  }
}

}  // namespace
}  // namespace marlex
