#include "desktop/windows/even_row.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace marlex {

namespace {

int EvenWidthOfRow(const QHBoxLayout& row) {
  int widest = 0;
  for (int cell = 0; cell < row.count(); ++cell) {
    if (row.stretch(cell) == 0 || row.stretch(cell) != row.stretch(0)) return 0;
    widest = qMax(widest, row.itemAt(cell)->minimumSize().width());
  }
  return row.count() * (widest + row.spacing()) - row.spacing();
}

/// A cell that spans several columns needs no even width.
int EvenWidthOfGrid(const QGridLayout& grid) {
  for (int column = 0; column < grid.columnCount(); ++column) {
    if (grid.columnStretch(column) == 0 || grid.columnStretch(column) != grid.columnStretch(0))
      return 0;
  }
  int widest = 0;
  for (int cell = 0; cell < grid.count(); ++cell) {
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid.getItemPosition(cell, &row, &column, &rows, &columns);
    if (columns == 1) widest = qMax(widest, grid.itemAt(cell)->minimumSize().width());
  }
  const int gap = grid.horizontalSpacing();
  return grid.columnCount() * (widest + gap) - gap;
}

}  // namespace

int EvenWidth(const QLayout* layout) {
  if (const auto* row = qobject_cast<const QHBoxLayout*>(layout)) return EvenWidthOfRow(*row);
  const auto* grid = qobject_cast<const QGridLayout*>(layout);
  return grid ? EvenWidthOfGrid(*grid) : 0;
}

QSize EvenRow::minimumSizeHint() const {
  return QWidget::minimumSizeHint().expandedTo(QSize(EvenWidth(layout()), 0));
}

}  // namespace marlex
