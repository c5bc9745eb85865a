#include <gtest/gtest.h>

#include "screen/parts.h"
#include "sheets/scenes.h"

namespace marlex {
namespace {

/// The window of the same name in another set of windows.
QWidget& Twin(const QWidget& window) {
  for (QWidget* other : QApplication::topLevelWidgets()) {
    if (other != &window && other->objectName() == window.objectName()) return *other;
  }
  throw RuntimeFailure("No second window " + window.objectName().toStdString());
}

class LateWindows : public ::testing::TestWithParam<std::size_t> {};

/// What a window was before does not matter: it is a picture of the present state.
TEST_P(LateWindows, LookLikeThoseThatWereThereBeforeTheScene) {
  const Scene& scene = Scenes()[GetParam()];
  ShownDesk desk(scene.Options);
  QWidget& early = scene.Reach(desk);
  if (qobject_cast<QMenu*>(&early)) return;
  const std::string before = PartsOf(early).toStdString();
  VirtualLoop painting;
  Views late(desk.Sys->TheWindows, painting, [&desk] { return desk.Sys->ThePasserby.Look(); });
  late.Main().resize(desk.Screen().Main().size());
  for (int round = 0; round < 3; ++round) {
    painting.Pump();
    QApplication::processEvents();
  }
  EXPECT_EQ(PartsOf(Twin(early)).toStdString(), before);
}

INSTANTIATE_TEST_SUITE_P(Of, LateWindows, ::testing::Range(std::size_t(0), Scenes().size()),
                         [](const auto& scene) { return Scenes()[scene.param].Name; });

}  // namespace
}  // namespace marlex
