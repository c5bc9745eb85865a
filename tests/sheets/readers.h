#pragma once

#include <QtWidgets>

namespace marlex {

/// Fails for each part of a window of which a screen reader says nothing when it has the keyboard
/// focus, and for each two that it names alike. Returns the number of parts that can have it.
std::size_t ExpectNamedUniquely(const QWidget& window);

}  // namespace marlex
