#include "text/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace marlex {

std::optional<int> ToNumber(const std::string& text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return 0;
  const auto last = text.find_last_not_of(" \t");
  const bool plus = text[first] == '+';
  if (plus && text.find('-', first) == first + 1) return std::nullopt;
  const char* begin = text.data() + first + (plus ? 1 : 0);
  const char* end = text.data() + last + 1;
  double number = 0;
  const auto [stop, error] = std::from_chars(begin, end, number, std::chars_format::fixed);
  if (error != std::errc{} || stop != end || !std::isfinite(number)) return std::nullopt;
  using Limits = std::numeric_limits<int>;
  if (number <= Limits::min() - 1.0 || number >= Limits::max() + 1.0) return std::nullopt;
  const long rounded = RoundHalfEven(number);
  if (rounded < Limits::min() || rounded > Limits::max()) return std::nullopt;
  return static_cast<int>(rounded);
}

long RoundHalfEven(double value) {
  const double floor = std::floor(value);
  const double rest = value - floor;
  const long whole = static_cast<long>(floor);
  if (rest != 0.5) return rest < 0.5 ? whole : whole + 1;
  return whole % 2 == 0 ? whole : whole + 1;
}

}  // namespace marlex
