#pragma once

#include <semaphore.h>

#include <cstdint>
#include <limits>

namespace marlex {

inline constexpr std::int64_t kForeverUs = std::numeric_limits<std::int64_t>::max();

/// Microseconds on the monotonic clock, which nobody can set.
std::int64_t SteadyUs();

/// Waits until the semaphore is posted (true), or until the steady clock reaches `dueUs` (false).
bool WaitUntil(sem_t& semaphore, std::int64_t dueUs);

}  // namespace marlex
