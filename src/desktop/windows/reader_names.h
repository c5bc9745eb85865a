#pragma once

#include <QWidget>

namespace marlex {

/// Gives each widget of a window that shows no words of its own the name by which a screen reader
/// tells it: that of the labels beside and above it, or of its frame. Where there are none, the
/// name of the layout stays.
void NameForReaders(QWidget& window);

}  // namespace marlex
