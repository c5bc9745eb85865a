#pragma once

#include <memory>
#include <string>

struct xcb_connection_t;

namespace marlex::stage {

/// Sends the window with this title on a display the message by which a window manager asks it to
/// close. False when the display has no such window.
bool CloseWindow(const std::string& display, const std::string& title);

/// A window of another program that takes the keyboard: either for itself, as any window does, or
/// for the whole screen without asking a window manager, as a screen lock does. The keyboard is
/// given back when the window goes away.
class ForeignWindow {
 public:
  enum class Kind { Plain, Lock };
  ForeignWindow(const std::string& display, Kind kind);
  ~ForeignWindow();

  /// Whether it has the keyboard.
  bool HasKeyboard() const;

 private:
  xcb_connection_t* Server;
  unsigned Window;
  bool Locks;
  bool Grabbed = false;
};

}  // namespace marlex::stage
