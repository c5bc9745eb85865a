#pragma once

#include <sys/types.h>

namespace marlex::bench {

/// What a process has used since its start.
struct ProcessUse {
  double ProcessorMs = 0;  // of all its threads, including those that have ended
  double WakeUps = 0;      // voluntary context switches of the threads that exist now
  double ResidentMiB = 0;  // now
};

/// Throws when there is no such process.
ProcessUse UseOf(pid_t process);

}  // namespace marlex::bench
