#pragma once

#include <memory>
#include <string>

#include "sound/child_process.h"
#include "window_manager.h"

namespace marlex::stage {

/// A rectangle on the screen, in pixels.
struct ScreenArea {
  int X = 0;
  int Y = 0;
  int Width = 0;
  int Height = 0;

  bool operator==(const ScreenArea&) const = default;
};

/// An X server without a screen, on a display number that no other process of the machine uses,
/// with the hand of an operator.
class VirtualDisplay {
 public:
  static constexpr int kWidth = 1280;
  static constexpr int kHeight = 800;

  explicit VirtualDisplay(const std::string& folder, int width = kWidth);

  Environment Variables() const { return {{"DISPLAY", Name}, {"QT_QPA_PLATFORM", "xcb"}}; }

  /// Presses the left mouse button at a place, in pixels.
  void Click(int x, int y);
  void DoubleClick(int x, int y);
  void Move(int x, int y);
  void Press(int x, int y);
  void Release();
  /// Asks the window with this title to close, as a window manager does when the cross in its frame
  /// is clicked. False when there is no such window.
  bool CloseWindow(const std::string& title);

  /// Moves the window with this title, by its upper left corner.
  void Place(const std::string& title, int x, int y);

  /// Gives the window with this title another size, as a hand at its frame would.
  void Resize(const std::string& title, int width, int height);

  /// Opens a window of another program, which exists as long as the result.
  std::unique_ptr<ForeignWindow> Open(ForeignWindow::Kind kind) {
    return std::make_unique<ForeignWindow>(Name, kind);
  }

  void Key(const std::string& name);  // as xdotool names keys: "Return", "Escape", "alt+F4"

  /// Kills it without warning.
  void Kill();

  /// Writes a picture of a part of the screen; the extension of the file name sets the format.
  bool Picture(const std::string& file, const ScreenArea& area = {0, 0, kWidth, kHeight});

  /// The colour of a pixel, as "#12306b".
  std::string ColourAt(int x, int y) const;

 private:
  /// Starts the server on this display. Without effect where the number is taken.
  void Start(int number, int width);
  int Tool(std::vector<std::string> arguments);

  std::string Name;
  std::string LogFile;
  std::unique_ptr<ChildProcess> Server;
};

}  // namespace marlex::stage
