#pragma once

#include <QWidget>

namespace marlex {

/// Gives each widget of a window that takes the keyboard the name by which a screen reader tells it
/// from all others: its own words, and where it has none, or another has the same, those of the
/// labels beside and above it, or of its frame. Those of one name also have their place among them,
/// as "Zone names 2/6". Where there are no words, the name of the layout stays.
void NameForReaders(QWidget& window);

}  // namespace marlex
