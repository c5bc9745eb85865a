#pragma once

#include <optional>
#include <string>
#include <vector>

namespace marlex {

/// Builds a mask such as "1030500": position i, counted from 1, holds the digit i if `on` is set
/// there, else "0".
std::string DigitMask(const std::vector<bool>& on);

/// Which of the first `length` characters of a mask are the digit of their position; any other
/// character means off. Empty optional for a shorter mask.
std::optional<std::vector<bool>> DigitsInPlace(const std::string& mask, std::size_t length);

}  // namespace marlex
