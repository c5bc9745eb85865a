#include "sound/wait.h"

#include <time.h>

#include <chrono>
#include <thread>

namespace marlex::stage {

double Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

bool WaitUntil(const std::function<bool()>& condition, double limitSeconds) {
  constexpr std::chrono::milliseconds kBetweenTests{5};
  double end = Now() + limitSeconds;
  while (!condition()) {
    if (Now() > end) return false;
    std::this_thread::sleep_for(kBetweenTests);
  }
  return true;
}

}  // namespace marlex::stage
