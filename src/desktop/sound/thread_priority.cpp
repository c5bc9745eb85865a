#include "desktop/sound/thread_priority.h"

#include <pthread.h>
#include <sched.h>
#include <sys/resource.h>
#include <unistd.h>

namespace marlex {
namespace {

constexpr int kRealTimePriority = 5;  // the lowest that sound servers use themselves
constexpr int kNiceness = -11;        // likewise

}  // namespace

void PreferThisThread() {
  sched_param realTime = {};
  realTime.sched_priority = kRealTimePriority;
  if (pthread_setschedparam(pthread_self(), SCHED_RR | SCHED_RESET_ON_FORK, &realTime) == 0) return;
  setpriority(PRIO_PROCESS, id_t(gettid()), kNiceness);
}

}  // namespace marlex
