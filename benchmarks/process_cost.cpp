#include "process_cost.h"

#include <time.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace marlex::bench {
namespace {

/// The number that follows a key in one of the status files of proc(5); 0 when the file is gone.
double StatusNumber(const std::string& file, const std::string& key) {
  std::ifstream stream(file);
  std::string line;
  while (std::getline(stream, line)) {
    if (line.starts_with(key + ":")) return std::stod(line.substr(key.size() + 1));
  }
  return 0;
}

/// The counters in proc(5) have a resolution of a hundredth of a second, which is too coarse for a
/// player that uses three of them; the process's own clock counts in nanoseconds.
double ProcessorMs(pid_t process) {
  clockid_t clock{};
  timespec used{};
  if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &used) != 0) {
    throw std::runtime_error("it has ended");
  }
  return double(used.tv_sec) * 1e3 + double(used.tv_nsec) / 1e6;
}

}  // namespace

ProcessUse UseOf(pid_t process) {
  constexpr double kKiBPerMiB = 1024;
  const std::string folder = "/proc/" + std::to_string(process);
  ProcessUse use;
  use.ProcessorMs = ProcessorMs(process);
  for (const auto& task : std::filesystem::directory_iterator(folder + "/task")) {
    use.WakeUps += StatusNumber(task.path().string() + "/status", "voluntary_ctxt_switches");
  }
  use.ResidentMiB = StatusNumber(folder + "/status", "VmRSS") / kKiBPerMiB;
  return use;
}

}  // namespace marlex::bench
