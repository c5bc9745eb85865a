#pragma once

#include <signal.h>
#include <sys/types.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace marlex::stage {

using Environment = std::map<std::string, std::string>;

/// What to start, and where.
struct Command {
  std::vector<std::string> Arguments;  // the first is the program, searched in PATH
  Environment Variables;               // on top of our own environment
  std::string Directory;               // working directory; empty keeps ours
  std::string LogFile;                 // takes what it writes to both outputs; empty throws it away
  int Output = -1;            // descriptor that takes its standard output instead; -1 is none
  int Kept = -1;              // one more descriptor that stays open in it; -1 is none
  bool GoesFirst = false;     // before the other work of the machine, where we may ask for that
  int DeathSignal = SIGKILL;  // what it gets from the system when we die, however we die
};

/// A process of ours that never outlives us. To be started from the main thread only: the system
/// ties the death signal to the thread that starts the process.
class ChildProcess {
 public:
  explicit ChildProcess(const Command& command);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Pid() const { return Id; }
  bool IsRunning();
  void Signal(int signal);

  /// Waits for the end; false when the limit passed first.
  bool WaitForEnd(double limitSeconds);

  /// Asks for the end, then insists.
  void End();

  /// Exit code, or 128 plus the signal that ended it; absent while it runs.
  std::optional<int> ExitCode() const { return Code; }

 private:
  pid_t Id = -1;
  std::optional<int> Code;
};

/// Runs a program to its end. Returns its exit code.
int Run(const Command& command, double limitSeconds = 60);

}  // namespace marlex::stage
