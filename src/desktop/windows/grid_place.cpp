#include "desktop/windows/grid_place.h"

#include <algorithm>

namespace marlex {

int GridPlace::RowsAbove(int rowsInSight) {
  const int place = RowsAboveRow(Cells.TopRow());
  const Marks marks = MarksAround(place);
  const std::optional<int> conflict = marks.Conflict ? marks.Conflict : marks.ConflictAbove;
  if (conflict && !HadConflict) RowOfHand.reset();
  HadConflict = conflict.has_value();
  if (!conflict || RowOfHand == Cells.TopRow()) return place;
  RowOfHand.reset();
  if (*conflict < place) return marks.Fired ? place : *conflict;
  for (const int last : {std::min(marks.ConflictEnd, *conflict + rowsInSight - 1), *conflict}) {
    const int least = std::max(place, last - rowsInSight + 1);
    if (!marks.Fired || *marks.Fired >= least) return least;
  }
  return place;
}

GridPlace::Marks GridPlace::MarksAround(int place) const {
  Marks marks;
  int above = 0;
  for (int row = 1; row < Cells.Rows(); ++row) {
    if (Cells.RowHeight(row) == 0) continue;
    const Color color = Cells.BackColorAt(row, Cells.MarkColumn);
    if (color == kRed && above < place) marks.ConflictAbove = above;
    if (color == kRed && above >= place && !marks.Conflict)
      marks.Conflict = marks.ConflictEnd = above;
    if (color == kRed && marks.Conflict && above == marks.ConflictEnd + 1)
      marks.ConflictEnd = above;
    if (color != kRed && color != kWhite) marks.Fired = above;
    ++above;
  }
  return marks;
}

int GridPlace::RowsAboveRow(int row) const {
  int above = 0;
  for (int other = 1; other < std::min(row, Cells.Rows()); ++other)
    above += Cells.RowHeight(other) != 0;
  return above;
}

}  // namespace marlex
