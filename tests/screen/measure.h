#pragma once

#include <QtWidgets>

namespace marlex {

/// Fails for each text of a window that is cut, each widget that extends past its frame, and each
/// pair that overlaps. The window must be on the screen.
void ExpectNothingClipped(QWidget& window);

}  // namespace marlex
