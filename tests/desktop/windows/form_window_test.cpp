#include "desktop/windows/form_window.h"

#include <gtest/gtest.h>

#include "desktop/windows/painted_windows.h"

namespace marlex {
namespace {

/// A form and its window, with a count of how often the window was made.
struct OneWindow {
  VirtualLoop Loop;
  Form Shown{"frmOne", "One"};
  int Made = 0;
  FormWindow Window{Shown, Loop, {[this] { return Make(); }, nullptr}};

  std::unique_ptr<QWidget> Make() {
    ++Made;
    return std::make_unique<QWidget>();
  }
};

TEST(FormWindow, IsMadeWhenItsFormIsFirstShownAndKept) {
  OneWindow one;
  one.Shown.Load();
  one.Loop.Pump();
  EXPECT_EQ(one.Made, 0);
  for (int opening = 0; opening < 2; ++opening) {
    one.Shown.Show();
    for (int round = 0; round < 3; ++round) one.Loop.Pump();
    EXPECT_TRUE(one.Window.Widget().isVisible());
    one.Shown.Unload();
    one.Loop.Pump();
    EXPECT_FALSE(one.Window.Widget().isVisible());
  }
  EXPECT_EQ(one.Made, 1);
}

TEST(FormWindow, IsNotMadeInTheMiddleOfTheSystemsWork) {
  OneWindow one;
  one.Shown.Show();
  EXPECT_EQ(one.Made, 0);
  one.Loop.Pump();
  EXPECT_EQ(one.Made, 1);
}

TEST(FormWindow, OfAFormThatIsShownAlreadyIsMadeToo) {
  VirtualLoop loop;
  Form shown("frmOne", "One");
  shown.Show();
  FormWindow window(shown, loop, {[] { return std::make_unique<QWidget>(); }, nullptr});
  for (int round = 0; round < 3; ++round) loop.Pump();
  EXPECT_TRUE(window.Widget().isVisible());
}

TEST(FormWindow, AtTheStartOnlyTheMainWindowIsMade) {
  const PaintedWindows windows;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    const bool isMenu = qobject_cast<const QMenu*>(window) != nullptr;
    EXPECT_TRUE(isMenu || window->objectName() == "frmMain") << window->objectName().toStdString();
  }
}

}  // namespace
}  // namespace marlex
