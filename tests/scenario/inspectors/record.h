#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// The record accounts for each row that is due: by the end of the minute after its own, it has
/// played, waits for the music break, or is lost for a reason. Minutes in which the clock or the
/// table is changed are passed over.
class RecordInspector : public Inspector {
 public:
  explicit RecordInspector(const Scene& scene);
  void Check() override;

 private:
  void EndMinute();
  std::set<std::string> DueRows() const;  // in `Minute`

  int MinuteOfDay = -1;
  std::string Minute;
  std::int64_t AheadMs = 0;
  std::set<std::string> Due;      // at the start of the minute
  std::set<std::string> Former;   // of the minute before it, throughout
  std::set<std::string> Settled;  // rows of which the record has said what became of them
};

}  // namespace marlex
