#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <vector>

#include "platform/wall_clock.h"

namespace marlex {

/// Uniformly distributed random numbers of single precision, at least 0 and less than 1. The same
/// seed gives the same numbers.
class RandomNumbers {
 public:
  explicit RandomNumbers(std::uint32_t seed) : Bits(seed) {}

  float operator()();

 private:
  std::mt19937 Bits;
};

/// A seed that is different every second.
std::uint32_t ClockSeed(const LocalTime& now);

/// The indices 0 to `count` - 1 in an order drawn without replacement: of n that are left, a random
/// number r draws the one at floor(r * n), counted from 0. Calls `random` `count` times; it must
/// return at least 0 and less than 1.
std::vector<int> DrawOrder(int count, const std::function<float()>& random);

}  // namespace marlex
