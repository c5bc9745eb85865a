#pragma once

#include <string>

namespace marlex::stage {

/// Asks the window of a title to close, as a window manager does for the cross in its frame. False
/// when the display has no such window.
bool CloseWindow(const std::string& display, const std::string& title);

}  // namespace marlex::stage
