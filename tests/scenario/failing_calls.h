#pragma once

#include <map>
#include <string>
#include <utility>

#include "simulation/simulated_pc.h"

namespace marlex {

/// Counts the calls that a system makes to the ports of its PC, by operation ("mixer set"), and
/// makes one of them fail as the port's header says that it may fail. Must outlive the PC.
class FailingCalls {
 public:
  /// Which call fails: the `At`th of its operation, counted from 1 over all runs of the program; 0
  /// for none.
  struct Plan {
    std::string Operation;
    int At = 0;
  };

  FailingCalls() = default;  // counts only
  explicit FailingCalls(Plan plan) : ThePlan(std::move(plan)) {}

  /// From now on, each system that starts on this PC makes its calls through here.
  void StandBetween(SimulatedPc& pc);

  /// From now on, nothing is counted and nothing fails.
  void Heal() { Healed = true; }

  /// Counts a call, and says whether it fails; one that does becomes a line of the journal.
  bool Fails(const char* operation);

  const std::map<std::string, int>& Counts() const { return Counted; }
  bool HasFailed() const { return Failed; }

 private:
  const Plan ThePlan;
  Journal* Log = nullptr;
  std::map<std::string, int> Counted;
  bool Failed = false;
  bool Healed = false;
};

}  // namespace marlex
