#include "music/shuffle.h"

#include <numeric>

namespace marlex {

/// A number of single precision holds 24 bits; more of them could round up to 1.
float RandomNumbers::operator()() {
  constexpr float kStep = 1.0F / (1U << 24U);
  return static_cast<float>(Bits() >> 8U) * kStep;
}

std::uint32_t ClockSeed(const LocalTime& now) {
  const std::uint64_t days = (static_cast<std::uint64_t>(now.Year) * 12 + now.Month) * 31 + now.Day;
  const std::uint64_t minutes = (days * 24 + now.Hour) * 60 + now.Minute;
  return static_cast<std::uint32_t>(minutes * 60 + now.Second);
}

/// Numbers are drawn and not the songs themselves, since thousands of texts that each make room for
/// the next would hold up the desk.
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
