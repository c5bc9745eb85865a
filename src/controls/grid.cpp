#include "controls/grid.h"

#include <algorithm>

namespace marlex {

void Grid::ResetToDesign() {
  VisualControl::ResetToDesign();
  RowData.assign(1, {});
  ColumnData.assign(kColumns, {});
  CurrentRow = 0;
  CurrentCol = 0;
  FirstVisibleRow = 1;
}

void Grid::SetRows(int rows) {
  if (rows < 1) throw RuntimeFailure("A table needs its heading row");
  RowData.resize(static_cast<std::size_t>(rows));
  CurrentRow = std::min(CurrentRow, rows - 1);
  FirstVisibleRow = std::min(FirstVisibleRow, std::max(rows - 1, 1));
  Changed();
}

void Grid::SetTextMatrix(int row, int column, const std::string& text) {
  At(row, column).Text = text;
  Changed();
}

void Grid::SetRowHeight(int row, int height) {
  RowAt(row);
  RowData[static_cast<std::size_t>(row)].Height = height;
  Changed();
}

void Grid::SetColWidth(int column, int width) {
  ColumnAt(column);
  ColumnData[static_cast<std::size_t>(column)].Width = width;
  Changed();
}

void Grid::SetColAlignment(int column, GridAlignment alignment) {
  ColumnAt(column);
  ColumnData[static_cast<std::size_t>(column)].Alignment = alignment;
  Changed();
}

void Grid::SetRow(int row) {
  RowAt(row);
  if (row == CurrentRow) return;
  CurrentRow = row;
  Changed();
}

void Grid::SetCol(int column) {
  ColumnAt(column);
  if (column == CurrentCol) return;
  CurrentCol = column;
  Changed();
}

void Grid::SetCellColors(Color back, Color text) {
  Cell& cell = At(CurrentRow, CurrentCol);
  if (cell.BackColor == back && cell.ForeColor == text) return;
  cell.BackColor = back;
  cell.ForeColor = text;
  Changed();
}

void Grid::SetTopRow(int row) {
  RowAt(row);
  FirstVisibleRow = row;
  Changed();
}

void Grid::Sort() {
  const auto column = static_cast<std::size_t>(CurrentCol);
  std::stable_sort(RowData.begin() + 1, RowData.end(),
                   [column](const RowRecord& a, const RowRecord& b) {
                     return a.Cells[column].Text < b.Cells[column].Text;
                   });
  Changed();
}

const Grid::RowRecord& Grid::RowAt(int row) const {
  if (row < 0 || row >= Rows())
    throw RuntimeFailure("Row " + std::to_string(row) + " is not in the table");
  return RowData[static_cast<std::size_t>(row)];
}

const Grid::Cell& Grid::At(int row, int column) const {
  ColumnAt(column);
  return RowAt(row).Cells[static_cast<std::size_t>(column)];
}

Grid::Cell& Grid::At(int row, int column) {
  return const_cast<Cell&>(std::as_const(*this).At(row, column));
}

const Grid::Column& Grid::ColumnAt(int column) const {
  if (column < 0 || column >= kColumns) {
    throw RuntimeFailure("Column " + std::to_string(column) + " is not in the table");
  }
  return ColumnData[static_cast<std::size_t>(column)];
}

}  // namespace marlex
