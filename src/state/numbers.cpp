#include "state/numbers.h"

#include <charconv>
#include <cmath>

namespace marlex {

std::optional<int> ToNumber(const std::string& text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return 0;
  const auto last = text.find_last_not_of(" \t");
  const bool plus = text[first] == '+';
  if (plus && text.find('-', first) == first + 1) return std::nullopt;
  const char* begin = text.data() + first + (plus ? 1 : 0);
  const char* end = text.data() + last + 1;
  int number = 0;
  const auto [stop, error] = std::from_chars(begin, end, number);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return number;
}

long RoundHalfEven(double value) {
  const double floor = std::floor(value);
  const double rest = value - floor;
  const long whole = static_cast<long>(floor);
  if (rest != 0.5) return rest < 0.5 ? whole : whole + 1;
  return whole % 2 == 0 ? whole : whole + 1;
}

}  // namespace marlex
