#pragma once

#include <cstdint>
#include <limits>

namespace marlex {

inline constexpr std::int64_t kUsPerSecond = 1'000'000;
inline constexpr std::int64_t kUsPerMs = 1000;
inline constexpr std::int64_t kNsPerUs = 1000;
inline constexpr std::int64_t kForeverUs = std::numeric_limits<std::int64_t>::max();

/// Microseconds on the monotonic clock, which nobody can set.
std::int64_t SteadyUs();

}  // namespace marlex
