#include "desktop/windows/grid_binding.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <unordered_set>

#include "desktop/windows/shown_text.h"
#include "desktop/windows/theme.h"
#include "desktop/windows/whole_text.h"

namespace marlex {

namespace {

constexpr int kCellMargin = 10;
constexpr int kLineWidth = 1;  // between two columns
constexpr int kMarkWidth = 16;
constexpr int kMarkRole = Qt::UserRole;
constexpr int kRowAir = 5;  // least space above and below the text of a row, in total
// Column widths are designed for digits of this many pixels, at 15 twips per pixel. Fonts of the
// same height differ in width, and a time that is cut short is useless.
constexpr double kDesignDigitWidth = 6;
constexpr double kTwipsPerPixel = 15;

Qt::Alignment AlignmentOf(GridAlignment alignment) {
  return Qt::AlignVCenter | (alignment == GridAlignment::Centre ? Qt::AlignHCenter : Qt::AlignLeft);
}

QRect TextArea(const QStyleOptionViewItem& option) {
  return option.rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
}

}  // namespace

void GridModel::Refresh() {
  const int rows = Cells.Rows() - 1;
  if (rows != KnownRows) {
    beginResetModel();
    KnownRows = rows;
    endResetModel();
  } else if (rows > 0) {
    emit dataChanged(index(0, 0), index(rows - 1, Grid::kColumns - 1));
  }
  emit headerDataChanged(Qt::Horizontal, 0, Grid::kColumns - 1);
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = index.row() + 1;
  // The grid may have lost rows since the view was last notified.
  if (row >= Cells.Rows()) return {};
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(Cells.TextMatrix(row, column));
    case Qt::BackgroundRole:
      return QBrush(GroundOf(row, column));
    case Qt::ForegroundRole:
      return QBrush(TextColorOf(row, column));
    case kMarkRole:
      return MarkOf(row, column);
    case Qt::AccessibleTextRole:  // screen readers cannot see the painted mark
      return (MarkOf(row, column) + " " + ShownText(Cells.TextMatrix(row, column))).trimmed();
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(AlignmentOf(Cells.ColAlignment(column)));
    default:
      return {};
  }
}

bool GridModel::IsPlain(int row, int column) const {
  return Cells.BackColorAt(row, column) == kWhite;
}

bool GridModel::PlaysUnheard(int row, int column) const {
  return Cells.BackColorAt(row, column) == kGreen && !View.property(kSpeechIsOnProperty).toBool();
}

QColor GridModel::GroundOf(int row, int column) const {
  if (IsPlain(row, column)) return ThemeColorNow("card");
  if (PlaysUnheard(row, column)) return ThemeColorNow("fed");
  return ShownColor(Cells.BackColorAt(row, column));
}

QColor GridModel::TextColorOf(int row, int column) const {
  const bool isOurs = IsPlain(row, column) || PlaysUnheard(row, column);
  return isOurs ? ThemeColorNow("text") : ShownColor(Cells.ForeColorAt(row, column));
}

/// A mark in the time column for what the colour of a row means: "!" for a conflict, an arrow for
/// a row that is playing or fired last.
QString GridModel::MarkOf(int row, int column) const {
  if (column != Cells.MarkColumn || IsPlain(row, column)) return {};
  return Cells.BackColorAt(row, column) == kRed ? "!" : "\u25B8";
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return ShownText(Cells.TextMatrix(0, section));
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(AlignmentOf(Cells.ColAlignment(section)));
  return {};
}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  painter->fillRect(option.rect, index.data(Qt::BackgroundRole).value<QBrush>());
  painter->setPen(index.data(Qt::ForegroundRole).value<QBrush>().color());
  painter->setFont(option.font);
  const QRect area = TextArea(option);
  const QString text =
      option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle, area.width());
  painter->drawText(area, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine, text);
  const QRect margin(option.rect.left(), option.rect.top(), kMarkWidth, option.rect.height());
  painter->drawText(margin, Qt::AlignCenter, index.data(kMarkRole).toString());
  if (option.state & QStyle::State_HasFocus) painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
}

bool CellPainter::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
  const QString text = index.data().toString();
  const int room = TextArea(option).width();
  return ShowWhole(*event, *view, text, option.fontMetrics.horizontalAdvance(text) <= room) ||
         QStyledItemDelegate::helpEvent(event, view, option, index);
}

GridBinding::GridBinding(Grid& grid, QTableView& view, Hand& hand)
    : WidgetBinding(grid, view),
      Cells(grid),
      View(view),
      Operator(hand),
      Model(grid, view),
      Place(grid),
      Room(*view.parentWidget()) {
  view.setModel(&Model);
  view.setItemDelegate(&Painter);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setSelectionMode(QAbstractItemView::NoSelection);
  view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  view.setWordWrap(false);
  view.setTabKeyNavigation(false);
  view.setAutoScroll(false);  // the current cell may be anywhere; the table does not scroll to it
  SetUpHeaders();
  ForwardCells();
  ForwardScroll();
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
  Room.installEventFilter(this);
}

void GridBinding::SetUpHeaders() {
  View.verticalHeader()->hide();
  View.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  View.verticalHeader()->setMinimumSectionSize(1);
  View.horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  View.horizontalHeader()->setStretchLastSection(true);
  View.horizontalHeader()->setHighlightSections(false);
  View.horizontalHeader()->setSectionsClickable(false);
}

void GridBinding::ForwardCells() {
  const auto choose = [this](const QModelIndex& cell) {
    if (Painting || !cell.isValid()) return;
    Operator.Forward(Cells,
                     [this, row = cell.row() + 1, column = cell.column()] { Choose(row, column); });
  };
  connect(&View, &QTableView::pressed, this, choose);
  // A direct connection, since only now is it known whether the table is being painted.
  connect(
      View.selectionModel(), &QItemSelectionModel::currentChanged, this,
      [this, choose](const QModelIndex& cell) {
        choose(cell);
        if (!Painting && cell.isValid()) View.scrollTo(cell);
      },
      Qt::DirectConnection);
  connect(&View, &QTableView::doubleClicked, this,
          [this](const QModelIndex& cell) { ForwardDoubleClick(cell.row() + 1, cell.column()); });
}

void GridBinding::ForwardDoubleClick(int row, int column) {
  Operator.Forward(Cells, [this, row, column] {
    if (Choose(row, column) && Cells.OnDblClick) Cells.OnDblClick();
  });
}

void GridBinding::ForwardScroll() {
  const auto report = [this] {
    const int row = View.rowAt(0) + 1;
    if (Painting || Resizing || row == 0) return;
    Operator.Forward(Cells, [this, row] {
      if (row >= Cells.Rows()) return;
      Place.ScrolledByHand(row);
      if (row != Cells.TopRow()) Cells.SetTopRow(row);
    });
  };
  connect(View.verticalScrollBar(), &QScrollBar::valueChanged, this, report, Qt::DirectConnection);
}

/// Makes a cell the current one; false if the table has lost it in the meantime.
bool GridBinding::Choose(int row, int column) {
  if (row >= Cells.Rows()) return false;
  Cells.SetRow(row);
  Cells.SetCol(column);
  return true;
}

void GridBinding::Paint() {
  WidgetBinding::Paint();
  const PaintGuard guard(Painting);
  Resizing = false;
  Model.Refresh();
  PaintColumns();
  PaintRows();
  ShareHeight();
  PaintPlace();
}

void GridBinding::PaintColumns() {
  int needed = 2 * View.frameWidth() + View.verticalScrollBar()->sizeHint().width();
  for (int column = 0; column < Grid::kColumns; ++column) {
    const bool hidden = Cells.ColWidth(column) == 0;
    if (View.isColumnHidden(column) != hidden) View.setColumnHidden(column, hidden);
    if (hidden) continue;
    const bool isLast = column == Grid::kColumns - 1;  // takes the room that the others leave
    const int width = std::max(HeadingWidth(column), isLast ? 0 : WantedWidth(column));
    if (!isLast) View.setColumnWidth(column, width);
    needed += width;
  }
  if (needed != Room.minimumWidth()) Room.setMinimumWidth(needed);
}

int GridBinding::HeadingWidth(int column) const {
  return View.horizontalHeader()->sectionSizeHint(column);
}

/// A name column wider than its names leaves the rest to the messages.
int GridBinding::WantedWidth(int column) const {
  const int design = DesignWidth(column);
  return column == Cells.NarrowColumn ? std::min(design, TextWidth(column)) : design;
}

/// Width of the longest text below the heading. The rows of a sequence share one name, which is
/// measured once.
int GridBinding::TextWidth(int column) const {
  std::unordered_set<std::string_view> measured;
  int widest = 0;
  for (int row = 1; row < Cells.Rows(); ++row) {
    const std::string& text = Cells.TextMatrix(row, column);
    if (!measured.insert(text).second) continue;
    widest = std::max(widest, View.fontMetrics().horizontalAdvance(ShownText(text)));
  }
  return widest + 2 * kCellMargin + kLineWidth;
}

int GridBinding::DesignWidth(int column) const {
  const double digit = View.fontMetrics().horizontalAdvance('0');
  const double scale = digit / kDesignDigitWidth / kTwipsPerPixel;
  return static_cast<int>(Cells.ColWidth(column) * scale) + 2 * kCellMargin;
}

void GridBinding::PaintRows() {
  for (int row = 0; row < Model.rowCount(); ++row) {
    const bool hidden = Cells.RowHeight(row + 1) == 0;
    if (View.isRowHidden(row) == hidden) continue;
    View.setRowHidden(row, hidden);
    // The common height may have changed while the row was hidden.
    if (!hidden) View.setRowHeight(row, View.verticalHeader()->defaultSectionSize());
  }
}

/// Cuts no row off: as many rows as fit share the height, and the few pixels that are left over
/// stay free below the table. So its heading and its first row keep their places, whatever comes
/// and goes below it.
void GridBinding::ShareHeight() {
  const int around = View.height() - View.viewport()->height();
  const int room = Room.height() - around;
  const int least = View.fontMetrics().height() + kRowAir;
  RowsInSight = std::max(room / least, 1);
  const int height = std::max(room / RowsInSight, least);
  if (height != View.verticalHeader()->defaultSectionSize())
    View.verticalHeader()->setDefaultSectionSize(height);
  const int left = std::max(room - RowsInSight * height, 0);
  View.setGeometry(0, 0, Room.width(), Room.height() - left);
}

/// Sets the view's current cell to that of the grid, and its first row.
void GridBinding::PaintPlace() {
  const QModelIndex current = Model.index(Cells.Row() - 1, Cells.Col());
  if (current != View.currentIndex())
    View.selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  View.verticalScrollBar()->setValue(Place.RowsAbove(RowsInSight));
}

/// Enter is a double-click on the first cell of the current row, from any column. It counts only
/// once, however long it is held, since the current row may have changed by then.
bool GridBinding::FilterKey(const QKeyEvent& event) {
  const QModelIndex current = View.currentIndex();
  if (!IsEnter(event) || !current.isValid()) return false;
  if (!event.isAutoRepeat()) ForwardDoubleClick(current.row() + 1, Cells.MarkColumn);
  return true;
}

bool GridBinding::eventFilter(QObject* object, QEvent* event) {
  if (object == &View)
    return event->type() == QEvent::KeyPress && FilterKey(static_cast<QKeyEvent&>(*event));
  // A table that grows, or is shown for the first time, can scroll closer to the row that it should
  // begin with.
  const bool isResized = event->type() == QEvent::Resize || event->type() == QEvent::Show;
  if (!isResized) return false;
  Resizing = true;
  if (!Painting) {
    const PaintGuard guard(Painting);
    ShareHeight();
  }
  if (Cells.Watcher) Cells.Watcher();
  return false;
}

}  // namespace marlex
