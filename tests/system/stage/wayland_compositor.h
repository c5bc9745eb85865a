#pragma once

#include <memory>
#include <string>

#include "sound/child_process.h"
#include "virtual_display.h"

namespace marlex::stage {

/// A Wayland compositor whose screen covers a virtual display, so that the hand of that operates
/// its windows. Each has no frame and is in the upper left corner, wherever it was to be: a program
/// on Wayland does not know where its windows are.
class WaylandCompositor {
 public:
  explicit WaylandCompositor(VirtualDisplay& display);
  ~WaylandCompositor();

  /// For a program that uses Wayland and cannot reach the X server.
  Environment Variables() const;

  /// Asks the window with this title to close. False when there is no such window.
  bool CloseWindow(const std::string& title) const;

  /// What the screen shows where no window is.
  static constexpr const char* kBackdrop = "#00ff7f";

 private:
  bool IsReady() const;
  std::string LogText() const;

  VirtualDisplay& Display;
  std::string Folder;  // of its own, since another user may run it
  std::unique_ptr<ChildProcess> Compositor;
};

}  // namespace marlex::stage
