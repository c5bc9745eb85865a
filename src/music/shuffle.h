#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <vector>

#include "platform/wall_clock.h"

namespace marlex {

/// Random numbers of single precision, 0 or more and less than 1, each as likely as any other. The
/// same seed gives the same numbers.
class RandomNumbers {
 public:
  explicit RandomNumbers(std::uint32_t seed) : Bits(seed) {}

  float operator()();

 private:
  std::mt19937 Bits;
};

/// A seed that is another one at each second.
std::uint32_t ClockSeed(const LocalTime& now);

/// The entries 0 to `count` - 1 in an order drawn without replacement: of n entries that are left,
/// a number r draws the one at the whole part of r times n, counted from 0. Takes `count` numbers.
std::vector<int> DrawOrder(int count, const std::function<float()>& random);

}  // namespace marlex
