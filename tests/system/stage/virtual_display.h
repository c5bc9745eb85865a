#pragma once

#include <memory>
#include <string>

#include "child_process.h"

namespace marlex::stage {

/// An X server without a screen, on a display number that is free, with the hand of an operator.
class VirtualDisplay {
 public:
  explicit VirtualDisplay(const std::string& folder);

  Environment Variables() const { return {{"DISPLAY", Name}, {"QT_QPA_PLATFORM", "xcb"}}; }

  /// Presses the left button at a place in pixels.
  void Click(int x, int y);
  void DoubleClick(int x, int y);
  void Press(int x, int y);
  void Release();
  void Key(const std::string& name);  // as xdotool names keys: "Return", "Escape", "alt+F4"

  /// Writes a picture of the whole screen; the ending of the name chooses the format.
  bool Picture(const std::string& file);

 private:
  int Tool(std::vector<std::string> arguments);

  std::string Name;
  std::string LogFile;
  std::unique_ptr<ChildProcess> Server;
};

}  // namespace marlex::stage
