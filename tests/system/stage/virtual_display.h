#pragma once

#include <memory>
#include <string>

#include "child_process.h"
#include "window_manager.h"

namespace marlex::stage {

/// A rectangle on the screen, in pixels.
struct ScreenArea {
  int X = 0;
  int Y = 0;
  int Width = 0;
  int Height = 0;
};

/// An X server without a screen, on a display number that is free, with the hand of an operator.
class VirtualDisplay {
 public:
  explicit VirtualDisplay(const std::string& folder);

  static constexpr int kWidth = 1280;
  static constexpr int kHeight = 800;

  Environment Variables() const { return {{"DISPLAY", Name}, {"QT_QPA_PLATFORM", "xcb"}}; }

  /// Presses the left button at a place in pixels.
  void Click(int x, int y);
  void DoubleClick(int x, int y);
  void Move(int x, int y);
  void Press(int x, int y);
  void Release();
  /// Asks the window of a title to close, as a window manager does for the cross in its frame.
  /// False when there is no such window.
  bool CloseWindow(const std::string& title);

  /// Opens a window of another program, which stands as long as the result.
  std::unique_ptr<ForeignWindow> Open(ForeignWindow::Kind kind) {
    return std::make_unique<ForeignWindow>(Name, kind);
  }

  void Key(const std::string& name);  // as xdotool names keys: "Return", "Escape", "alt+F4"

  /// Ends it without a farewell.
  void Kill();

  /// Writes a picture of a part of the screen; the ending of the name chooses the format.
  bool Picture(const std::string& file, const ScreenArea& area = {0, 0, kWidth, kHeight});

 private:
  int Tool(std::vector<std::string> arguments);

  std::string Name;
  std::string LogFile;
  std::unique_ptr<ChildProcess> Server;
};

}  // namespace marlex::stage
