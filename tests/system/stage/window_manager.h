#pragma once

#include <string>

namespace marlex::stage {

/// Sends the window of a title on a display the message by which a window manager asks it to close.
/// False when the display has no such window.
bool CloseWindow(const std::string& display, const std::string& title);

}  // namespace marlex::stage
