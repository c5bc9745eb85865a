#pragma once

#include <string>
#include <vector>

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// The rows of the schedule are in the order of their times, and its heading is never painted.
/// Knows which row of the table is due in a minute.
class TableInspector : public Inspector {
 public:
  explicit TableInspector(const Scene& scene);
  void Check() override;

  /// Whether this row, or no row (0), is due in the minute. The event being checked may itself have
  /// changed the table or the date after the tick's search, so it is enough that the row is right
  /// before or after the event.
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
