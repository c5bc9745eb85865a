#pragma once

#include <functional>
#include <string>

#include "platform/system_log.h"
#include "simulation/journal.h"

namespace marlex {

/// Writes to the journal, as category "record".
class SimulatedSystemLog : public SystemLog {
 public:
  explicit SimulatedSystemLog(Journal& journal) : TheJournal(journal) {}

  void Write(const std::string& line) override {
    TheJournal.Write("record", line);
    if (OnLine) OnLine(line);
  }

  std::function<void(const std::string& line)> OnLine;  // until the PC restarts

 private:
  Journal& TheJournal;
};

}  // namespace marlex
