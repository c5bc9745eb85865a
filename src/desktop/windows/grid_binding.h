#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <QTableView>

#include "controls/grid.h"
#include "desktop/windows/binding.h"
#include "desktop/windows/grid_place.h"

namespace marlex {

/// Property of the table: whether the loudspeakers carry speech or a message now. Unless it is
/// true, the row that plays is pale, as a zone is that is fed with anything else.
inline constexpr const char* kSpeechIsOnProperty = "onAir";

/// Gives a view the cells of a grid, straight from the control: row r of the view is row r + 1 of
/// the grid, and row 0 of the grid is the heading.
class GridModel : public QAbstractTableModel {
 public:
  GridModel(const Grid& grid, const QTableView& view) : Cells(grid), View(view) {}

  /// Notifies the views of what has changed since the last call.
  void Refresh();

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : KnownRows;
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : Grid::kColumns;
  }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  bool IsPlain(int row, int column) const;
  bool PlaysUnheard(int row, int column) const;
  QColor GroundOf(int row, int column) const;
  QColor TextColorOf(int row, int column) const;
  QString MarkOf(int row, int column) const;

  const Grid& Cells;
  const QTableView& View;
  int KnownRows = 0;
};

/// Paints a cell in its two colours and with its mark, regardless of any selection. A text that is
/// too long is shortened, and its tool tip shows it whole.
class CellPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

class GridBinding : public QObject, public WidgetBinding {
 public:
  GridBinding(Grid& grid, QTableView& view, Hand& hand);
  void Paint() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void SetUpHeaders();
  void ForwardCells();
  void ForwardScroll();
  void ForwardDoubleClick(int row, int column);
  bool FilterKey(const QKeyEvent& event);
  void PaintColumns();
  void PaintRows();
  void ShareHeight();
  void PaintPlace();
  int HeadingWidth(int column) const;
  int WantedWidth(int column) const;
  int TextWidth(int column) const;
  int DesignWidth(int column) const;
  bool Choose(int row, int column);

  Grid& Cells;
  QTableView& View;
  Hand& Operator;
  GridModel Model;
  CellPainter Painter;
  GridPlace Place;
  QWidget& Room;  // around the view alone: what is left of it below the last row stays free
  int RowsInSight = 1;
  bool Painting = false;
  bool Resizing = false;  // until painted: what the new size scrolls is not the operator's doing
};

}  // namespace marlex
