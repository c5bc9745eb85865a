#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace marlex {

inline constexpr double kReadable = 4.5;  // WCAG 2.1, criterion 1.4.3, for texts of normal size
inline constexpr double kVisible = 3;  // criterion 1.4.11, for symbols and the outlines of buttons

/// Relative luminance as WCAG 2.1 defines it, 0 to 1.
inline double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

/// Contrast ratio as WCAG 2.1 defines it, 1 to 21.
inline double Contrast(const QColor& one, const QColor& other) {
  const double lighter = std::max(Luminance(one), Luminance(other));
  const double darker = std::min(Luminance(one), Luminance(other));
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace marlex
