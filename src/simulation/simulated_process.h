#pragma once

#include <set>
#include <string>
#include <utility>

#include "platform/process.h"
#include "simulation/journal.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// The process of the simulated PC. Its end unwinds the system's stack, after which nothing of the
/// system runs.
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

  /// Whether the process has ended, by itself or by a failure.
  bool Ended() const { return Loop.Ended(); }

  /// Gives up its window, as the end of the process does.
  void Reset() { ClaimedWindow.clear(); }

  std::string Directory = "/app";
  SystemVersion Version{2, 5, 0};
  std::set<std::string> OtherWindows;  // captions of other processes' main windows
  std::string ClaimedWindow;           // caption claimed by this process; empty for none

 private:
  VirtualLoop& Loop;
  Journal& Log;
};

}  // namespace marlex
