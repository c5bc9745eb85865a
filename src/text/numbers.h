#pragma once

#include <optional>
#include <string>

namespace marlex {

/// Number in the text, ignoring surrounding blanks and tabs, rounded as by `RoundHalfEven`; 0 for
/// an empty text. The decimal separator is a dot. Empty optional for any other text and for a
/// number that does not fit 32 bits.
std::optional<int> ToNumber(const std::string& text);

/// `value` rounded to the nearest integer, and to the even one in a tie.
long RoundHalfEven(double value);

}  // namespace marlex
