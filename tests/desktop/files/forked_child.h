#pragma once

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace marlex::test {

/// Runs the work in a child process. The child exits without any clean-up, so that it never touches
/// what the parent owns.
inline pid_t StartChild(const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? 0 : 1);
  return child;
}

/// Whether the work, run in its own process, returned true.
inline bool TrueInAChild(const std::function<bool()>& work) {
  const pid_t child = StartChild(work);
  int status = 0;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) &&
         WEXITSTATUS(status) == 0;
}

/// Drops root's privilege to bypass file permissions. For use in a child process.
inline bool BecomeNobody() {
  constexpr uid_t kNobody = 65534;
  return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

}  // namespace marlex::test
