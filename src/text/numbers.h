#pragma once

#include <optional>
#include <string>

namespace marlex {

/// Number that the text holds, blanks around it ignored, rounded as `RoundHalfEven` does; the empty
/// text is 0. The decimal sign is a point. Nothing for any other text and for a number outside 32
/// bits.
std::optional<int> ToNumber(const std::string& text);

/// `value` rounded to the nearest whole number, ties to the even one.
long RoundHalfEven(double value);

}  // namespace marlex
