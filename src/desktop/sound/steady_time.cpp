#include "desktop/sound/steady_time.h"

#include <time.h>

#include <cerrno>

namespace marlex {
namespace {

constexpr std::int64_t kUsPerSecond = 1000000;
constexpr std::int64_t kNsPerUs = 1000;

}  // namespace

std::int64_t SteadyUs() {
  timespec now = {};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * kUsPerSecond + now.tv_nsec / kNsPerUs;
}

bool WaitUntil(sem_t& semaphore, std::int64_t dueUs) {
  timespec due = {};
  due.tv_sec = dueUs / kUsPerSecond;
  due.tv_nsec = dueUs % kUsPerSecond * kNsPerUs;
  int result = -1;
  do {
    result = dueUs == kForeverUs ? sem_wait(&semaphore)
                                 : sem_clockwait(&semaphore, CLOCK_MONOTONIC, &due);
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

}  // namespace marlex
