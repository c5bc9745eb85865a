#pragma once

#include <QtWidgets>

namespace marlex {

/// Fails for each two parts of a window that a screen reader names alike when they have the
/// keyboard focus. Returns the number of parts that can have it.
std::size_t ExpectNamedUniquely(const QWidget& window);

}  // namespace marlex
