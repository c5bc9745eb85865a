#pragma once

#include <sys/types.h>

namespace marlex {

/// Processor time of a process in seconds, and how often its threads went to sleep.
struct ProcessCost {
  double Seconds = 0;
  long Wakeups = 0;
};
ProcessCost CostOf(pid_t process);

}  // namespace marlex
