#include "sound/child_process.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "sound/wait.h"

extern char** environ;

namespace marlex::stage {
namespace {

constexpr int kCannotStart = 127;  // the shell's own code for a program that does not exist
constexpr int kSignalBase = 128;
constexpr int kBeforeOthers = -10;
constexpr sched_param kInRealTime = {.sched_priority = 10};

std::vector<std::string> Merge(const Environment& variables) {
  std::vector<std::string> merged;
  for (char** entry = environ; *entry; ++entry) {
    std::string text = *entry;
    if (!variables.contains(text.substr(0, text.find('=')))) merged.push_back(text);
  }
  for (const auto& [name, value] : variables) merged.push_back(name + "=" + value);
  return merged;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

int OpenLog(const std::string& path) {
  const char* name = path.empty() ? "/dev/null" : path.c_str();
  return open(name, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
}

}  // namespace

ChildProcess::ChildProcess(const Command& command) {
  // Everything is prepared before the fork: between fork and exec nothing may allocate.
  std::vector<std::string> arguments = command.Arguments;
  std::vector<std::string> variables = Merge(command.Variables);
  std::vector<char*> argumentPointers = Pointers(arguments);
  std::vector<char*> variablePointers = Pointers(variables);
  int log = OpenLog(command.LogFile);
  int output = command.Output >= 0 ? command.Output : log;
  pid_t parent = getpid();
  Id = fork();
  if (Id < 0) throw std::runtime_error("The system has no room for another process.");
  if (Id == 0) {
    prctl(PR_SET_PDEATHSIG, command.DeathSignal);
    if (command.GoesFirst || command.IsRealTime) setpriority(PRIO_PROCESS, 0, kBeforeOthers);
    if (command.IsRealTime) sched_setscheduler(0, SCHED_RR, &kInRealTime);
    if (getppid() != parent) _exit(kCannotStart);
    if (!command.Directory.empty() && chdir(command.Directory.c_str()) != 0) _exit(kCannotStart);
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    if (command.Kept >= 0) fcntl(command.Kept, F_SETFD, 0);
    execvpe(argumentPointers[0], argumentPointers.data(), variablePointers.data());
    _exit(kCannotStart);
  }
  close(log);
}

ChildProcess::~ChildProcess() { End(); }

bool ChildProcess::IsRunning() {
  if (Code) return false;
  int status = 0;
  if (waitpid(Id, &status, WNOHANG) != Id) return true;
  Code = WIFSIGNALED(status) ? kSignalBase + WTERMSIG(status) : WEXITSTATUS(status);
  return false;
}

void ChildProcess::Signal(int signal) {
  if (IsRunning()) kill(Id, signal);
}

bool ChildProcess::WaitForEnd(double limitSeconds) {
  return WaitUntil([this] { return !IsRunning(); }, limitSeconds);
}

void ChildProcess::End() {
  constexpr double kPatienceSeconds = 5;
  Signal(SIGTERM);
  if (WaitForEnd(kPatienceSeconds)) return;
  Signal(SIGKILL);
  WaitForEnd(kPatienceSeconds);
}

int Run(const Command& command, double limitSeconds) {
  ChildProcess process(command);
  process.WaitForEnd(limitSeconds);
  process.End();
  return process.ExitCode().value_or(kCannotStart);
}

std::string OutputOf(Command command) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("The system has no pipe left.");
  command.Output = ends[1];
  ChildProcess process(command);
  close(ends[1]);
  std::string output;
  std::array<char, 4096> piece;
  for (ssize_t count = 0; (count = read(ends[0], piece.data(), piece.size())) > 0;)
    output.append(piece.data(), size_t(count));
  close(ends[0]);
  return output;
}

}  // namespace marlex::stage
