#pragma once

#include <QWidget>

namespace marlex {

/// Gives each widget of a window that takes the keyboard focus a unique name for screen readers:
/// its own text; if it has none, or another widget has the same, also the text of the labels beside
/// and above it, or the title of its frame. Widgets that still share a name get a number, as in
/// "Zone names 2/6". A widget with no text around it keeps the name from the layout.
void NameForReaders(QWidget& window);

}  // namespace marlex
