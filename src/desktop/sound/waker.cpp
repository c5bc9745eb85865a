#include "desktop/sound/waker.h"

#include <time.h>

#include <cerrno>

#include "desktop/sound/steady_time.h"

namespace marlex {

bool Waker::WaitUntil(std::int64_t dueUs) {
  timespec due = {};
  due.tv_sec = dueUs / kUsPerSecond;
  due.tv_nsec = dueUs % kUsPerSecond * kNsPerUs;
  int result = -1;
  do {
    result = dueUs == kForeverUs ? sem_wait(&Count) : sem_clockwait(&Count, CLOCK_MONOTONIC, &due);
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

}  // namespace marlex
