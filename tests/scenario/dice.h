#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace marlex {

/// Reproducible random numbers: a seed gives the same numbers on every platform. The distributions
/// of the standard library do not, so the ranges are computed here.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : Numbers(seed) {}

  int Between(int lowest, int highest) {  // both included
    const auto choices = static_cast<std::uint64_t>(highest - lowest) + 1;
    return lowest + static_cast<int>(Numbers() % choices);
  }

  bool OneIn(int chances) { return Between(1, chances) == 1; }

  template <class T>
  const T& Of(const std::vector<T>& choices) {
    return choices[static_cast<std::size_t>(Between(0, static_cast<int>(choices.size()) - 1))];
  }

 private:
  std::mt19937_64 Numbers;
};

}  // namespace marlex
