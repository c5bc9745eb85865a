#pragma once

#include <optional>

#include "controls/grid.h"

namespace marlex {

/// The row that a table begins with: the one that the system wants, or to which the operator has
/// scrolled. Where the system's would leave all rows in conflict out of sight, the table is
/// scrolled to the next one, and to the others of its minute; the row that fired last stays in
/// sight, and so does the operator's place until another conflict comes.
class GridPlace {
 public:
  explicit GridPlace(const Grid& grid) : Cells(grid) {}

  /// The operator has scrolled the table so that it begins with `row`.
  void ScrolledByHand(int row) { RowOfHand = row; }

  /// The number of rows above the first one in sight, of which there are `rowsInSight`. Rows that
  /// have no height do not count.
  int RowsAbove(int rowsInSight);

 private:
  struct Marks {                       // by the number of rows above
    std::optional<int> ConflictAbove;  // the last one above the system's place
    std::optional<int> Conflict;       // the first one from there on ...
    int ConflictEnd = 0;               // ... and the last of those that follow it at once
    std::optional<int> Fired;
  };
  Marks MarksAround(int place) const;
  int RowsAboveRow(int row) const;

  const Grid& Cells;
  std::optional<int> RowOfHand;
  bool HadConflict = false;
};

}  // namespace marlex
