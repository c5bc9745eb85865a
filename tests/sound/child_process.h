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
  std::vector<std::string> Arguments;  // the first is the program, looked up in PATH
  Environment Variables;               // on top of our own environment
  std::string Directory;               // working directory; empty keeps ours
  std::string LogFile;                 // receives both outputs of the program; empty discards them
  int Output = -1;            // descriptor that receives its standard output instead; -1 for none
  int Kept = -1;              // one more descriptor that stays open in it; -1 for none
  bool GoesFirst = false;     // runs at higher priority, where the system permits it
  bool IsRealTime = false;    // also runs in real time, where the system permits it
  int DeathSignal = SIGKILL;  // sent to it by the system when we die, however we die
};

/// A child process that never outlives us. Start it from the main thread only: the system ties the
/// death signal to the thread that starts the process.
class ChildProcess {
 public:
  explicit ChildProcess(const Command& command);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Pid() const { return Id; }
  bool IsRunning();
  void Signal(int signal);

  /// Waits for the process to end; false when the limit passed first.
  bool WaitForEnd(double limitSeconds);

  /// Asks the process to end, then kills it.
  void End();

  /// Exit code, or 128 plus the signal that ended it; empty while it runs.
  std::optional<int> ExitCode() const { return Code; }

 private:
  pid_t Id = -1;
  std::optional<int> Code;
};

/// Runs a program to its end and returns its exit code.
int Run(const Command& command, double limitSeconds = 60);

/// Runs a program to its end and returns what it writes to its standard output.
std::string OutputOf(Command command);

}  // namespace marlex::stage
