#pragma once

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace marlex::test {

/// Runs the work in a child process. Its end skips all clean-up, so that the child never touches
/// what the parent owns.
inline pid_t StartChild(const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? 0 : 1);
  return child;
}

/// Whether the work, in a process of its own, gave true.
inline bool TrueInAChild(const std::function<bool()>& work) {
  const pid_t child = StartChild(work);
  int status = 0;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) &&
         WEXITSTATUS(status) == 0;
}

/// Gives up root's privilege to pass over permissions. For use in a child process.
inline bool BecomeNobody() {
  constexpr uid_t kNobody = 65534;
  return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

}  // namespace marlex::test
