#pragma once

#include <ostream>

#include "desktop/windows/theme_colors.h"

namespace marlex {

/// How a failed test names its parameter.
inline void PrintTo(Scheme scheme, std::ostream* out) {
  *out << (scheme == Scheme::Light ? "Light" : "Dark");
}

}  // namespace marlex
