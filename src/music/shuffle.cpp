#include "music/shuffle.h"

#include <numeric>

namespace marlex {

/// Uses 24 bits, as many as single precision holds; more could round up to 1.
float RandomNumbers::operator()() {
  constexpr float kStep = 1.0F / (1U << 24U);
  return static_cast<float>(Bits() >> 8U) * kStep;
}

std::uint32_t ClockSeed(const LocalTime& now) {
  const std::uint64_t days = (static_cast<std::uint64_t>(now.Year) * 12 + now.Month) * 31 + now.Day;
  const std::uint64_t minutes = (days * 24 + now.Hour) * 60 + now.Minute;
  return static_cast<std::uint32_t>(minutes * 60 + now.Second);
}

/// Draws indices, not the songs themselves: moving thousands of texts up at each draw would hold up
/// the program.
std::vector<int> DrawOrder(int count, const std::function<float()>& random) {
  std::vector<int> left(static_cast<std::size_t>(count));
  std::iota(left.begin(), left.end(), 0);
  std::vector<int> drawn;
  drawn.reserve(left.size());
  while (!left.empty()) {
    const auto entry = left.begin() + static_cast<int>(random() * static_cast<float>(left.size()));
    drawn.push_back(*entry);
    left.erase(entry);
  }
  return drawn;
}

}  // namespace marlex
