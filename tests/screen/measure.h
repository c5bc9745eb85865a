#pragma once

#include <QtWidgets>

namespace marlex {

/// Fails for each text of a window that is cut, each widget that leaves its frame, and each two
/// that lie over each other. The window must be on the screen.
void ExpectNothingClipped(QWidget& window);

}  // namespace marlex
