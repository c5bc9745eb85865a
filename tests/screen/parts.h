#pragma once

#include <QWidget>

namespace marlex {

/// What a window shows, as text: a line for each of its named parts that can be seen, in the order
/// of the names, with its place, its main colour, its text and its state. Two windows that look
/// alike have the same text. The first line is the window's own.
QString PartsOf(QWidget& window);

}  // namespace marlex
