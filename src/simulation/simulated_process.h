#pragma once

#include <set>
#include <string>
#include <utility>

#include "platform/process.h"
#include "simulation/journal.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// The process of the simulated PC. Its end unwinds the system's stack; nothing of the system runs
/// afterwards.
class SimulatedProcess : public Process {
 public:
  SimulatedProcess(VirtualLoop& loop, Journal& journal) : Loop(loop), Log(journal) {}

  std::string ApplicationDirectory() const override { return Directory; }
  bool FindWindow(const std::string& caption) const override {
    return OtherWindows.contains(caption);
  }
  bool ClaimWindow(const std::string& caption) override {
    if (FindWindow(caption)) return false;
    ClaimedWindow = caption;
    return true;
  }
  SystemVersion GetVersion() const override { return Version; }

  [[noreturn]] void End() override {
    Log.Write("process", "ends");
    ClaimedWindow.clear();
    Loop.End();
  }

  /// Whether the process has ended, by itself or by a fault.
  bool Ended() const { return Loop.Ended(); }

  /// Forgets its window, as the end of the process does.
  void Reset() { ClaimedWindow.clear(); }

  std::string Directory = "/app";
  SystemVersion Version{2, 5, 0};
  std::set<std::string> OtherWindows;  // captions of the main windows of other processes
  std::string ClaimedWindow;  // caption by which this process is known; empty when it is not

 private:
  VirtualLoop& Loop;
  Journal& Log;
};

}  // namespace marlex
