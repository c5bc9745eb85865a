#pragma once

#include <string>
#include <vector>

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// The rows of the schedule are in the order of their times, and its heading is never painted.
/// Knows which row of the table a minute makes due.
class TableInspector : public Inspector {
 public:
  explicit TableInspector(const Scene& scene);
  void Check() override;

  /// Whether the minute makes this row due, 0 for none. The event that is checked may itself have
  /// come after the tick's search and have changed the table or the date: the row need be right in
  /// one of the states around it.
  bool IsDue(int row, const std::string& minute) const;

 private:
  /// What the tick reads of a row.
  struct Row {
    std::string Minute;
    std::string Days;
    bool Removed = false;
  };
  using Rows = std::vector<Row>;
  Rows Read() const;
  static int RowDueIn(const Rows& rows, const std::string& minute, int weekday);

  bool Changed = false;
  Rows BeforeChange;
};

}  // namespace marlex
