#include "desktop/sound/process_cost.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace marlex {

ProcessCost CostOf(pid_t process) {
  ProcessCost cost;
  const std::filesystem::path home = "/proc/" + std::to_string(process);
  std::error_code ignored;
  for (const auto& thread : std::filesystem::directory_iterator(home / "task", ignored)) {
    std::ifstream status(thread.path() / "status");
    for (std::string line; std::getline(status, line);) {
      if (line.rfind("voluntary_ctxt_switches:", 0) == 0)
        cost.Wakeups += std::stol(line.substr(24));
    }
    std::ifstream time(thread.path() / "schedstat");
    double nanoseconds = 0;
    time >> nanoseconds;
    cost.Seconds += nanoseconds / 1e9;
  }
  return cost;
}

}  // namespace marlex
