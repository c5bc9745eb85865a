#pragma once

#include <semaphore.h>

#include <cstdint>
#include <limits>

namespace marlex {

inline constexpr std::int64_t kForeverUs = std::numeric_limits<std::int64_t>::max();

/// Microseconds of a clock that nobody sets.
std::int64_t SteadyUs();

/// Waits until the semaphore is posted, true, or the steady clock shows `dueUs`, false.
bool WaitUntil(sem_t& semaphore, std::int64_t dueUs);

}  // namespace marlex
