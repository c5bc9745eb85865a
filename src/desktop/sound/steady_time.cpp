#include "desktop/sound/steady_time.h"

#include <time.h>

namespace marlex {

std::int64_t SteadyUs() {
  timespec now = {};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * kUsPerSecond + now.tv_nsec / kNsPerUs;
}

}  // namespace marlex
