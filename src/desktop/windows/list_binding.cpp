#include "desktop/windows/list_binding.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <algorithm>
#include <utility>

namespace marlex {

namespace {

constexpr int kOutsideStepMs = 70;
constexpr std::size_t kMostSelections = 16;

}  // namespace

void ListModel::Refresh() {
  const int rows = List.ListCount();
  // Rows are added and removed at the end, so that the view keeps its position; what they show is
  // read again in any case.
  if (rows > KnownRows) {
    beginInsertRows({}, KnownRows, rows - 1);
    KnownRows = rows;
    endInsertRows();
  } else if (rows < KnownRows) {
    beginRemoveRows({}, rows, KnownRows - 1);
    KnownRows = rows;
    endRemoveRows();
  }
  if (rows > 0) emit dataChanged(index(0), index(rows - 1));
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  // The control may have lost entries since the view was last notified.
  if (role != Qt::DisplayRole || index.row() >= List.ListCount()) return {};
  return QString::fromStdString(List.ShownText(index.row()));
}

ListBinding::ListBinding(ListBox& list, QListView& view, Hand& hand)
    : WidgetBinding(list, view),
      List(list),
      View(view),
      Operator(hand),
      Model(list),
      Watch(*view.viewport()),
      Finger(view),
      KnownEntries(list.ListCount()) {
  view.ensurePolished();  // otherwise the view would keep an entry height measured too early
  view.setModel(&Model);
  view.setItemDelegate(&Painter);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setUniformItemSizes(true);
  view.setTextElideMode(Qt::ElideMiddle);
  view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
  // Filters before the one installed above, which lets no pointer event through.
  view.viewport()->installEventFilter(&Watch);
  Watch.OnPress = [this](const QMouseEvent& event) { Press(event); };
  Watch.OnLift = [this] { Lift(); };
  Watch.OnRelease = [this](Qt::MouseButton) { Release(); };
  HoldTimer.setSingleShot(true);
  connect(&HoldTimer, &QTimer::timeout, this, [this] { TakeHold(); });
  OutsideTimer.setInterval(kOutsideStepMs);
  connect(&OutsideTimer, &QTimer::timeout, this, [this] { FollowPointer(); });
  // A list that merely gets the focus makes an entry current, but selects none.
  connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this](const QItemSelection& selected) {
            if (Painting) return;
            if (selected.isEmpty()) {
              if (List.Watcher) List.Watcher();  // keep showing what the system selected
            } else if (List.ClickActs) {
              LedFrom = List.ListIndex();
            } else {
              SelectByKey(selected.indexes().first().row());
            }
          });
}

void ListBinding::Note() {
  const int selected = List.ListIndex();
  NoteRemoval();
  if (!Selections.empty() && Selections.back() == selected) return;
  if (Selections.size() == kMostSelections) Selections.erase(Selections.begin());
  Selections.push_back(selected);
}

/// An entry that is removed takes the selection with it; the arrow keys continue from its place.
void ListBinding::NoteRemoval() {
  const int entries = List.ListCount();
  if (entries == 0) {
    LedFrom.reset();
  } else if (entries == KnownEntries - 1 && List.ListIndex() == ListBox::kNoSelection) {
    LedFrom = ListBox::kNoSelection;
  }
  KnownEntries = entries;
}

void ListBinding::Paint() {
  WidgetBinding::Paint();
  const PaintGuard guard(Painting);
  const int before = Model.rowCount();
  Model.Refresh();
  if (List.ShowsNewest && Model.rowCount() == before + 1) View.scrollToBottom();
  ScrollAsSelected();
}

/// Scrolls to each entry that was selected, even briefly: the system first selects an entry further
/// down when it wants the next ones in view.
void ListBinding::ScrollAsSelected() {
  const std::vector<int> selections = std::exchange(Selections, {});
  // The system does not know an entry that the arrow keys reached until it is clicked.
  if (LedFrom == List.ListIndex()) {
    if (!List.ClickActs) View.selectionModel()->clearSelection();
    return;
  }
  LedFrom.reset();
  for (const int row : selections) {
    if (Has(row) && row != View.currentIndex().row()) View.scrollTo(Model.index(row));
  }
  const QModelIndex current = Has(List.ListIndex()) ? Model.index(List.ListIndex()) : QModelIndex();
  const bool isSelected = View.selectionModel()->isSelected(current);
  if (current == View.currentIndex() && isSelected == current.isValid()) return;
  View.selectionModel()->clear();
  View.setCurrentIndex(current);
}

bool ListBinding::eventFilter(QObject* object, QEvent* event) {
  if (object == View.viewport()) return FilterPointer(*event);
  if (event->type() == QEvent::FocusIn) {
    Operator.Forward(List, [this] {
      if (List.OnGotFocus) List.OnGotFocus();
    });
    return false;
  }
  return event->type() == QEvent::KeyPress && FilterKey(static_cast<QKeyEvent&>(*event));
}

/// Where a click acts, the arrow keys only move to an entry, and Enter or the space bar clicks it.
/// Where a double-click acts, Enter is a double-click. Each acts once, however long the key is
/// held.
bool ListBinding::FilterKey(const QKeyEvent& event) {
  const int row = View.currentIndex().row();
  if (ContinuesSearch(event)) return true;
  if (List.ClickActs && (IsEnter(event) || event.key() == Qt::Key_Space)) {
    if (!event.isAutoRepeat()) Operator.Forward(List, [this, row] { Select(row); });
    return true;
  }
  if (List.OnDblClick && IsEnter(event)) {
    if (!event.isAutoRepeat()) ForwardDoubleClick(row);
    return true;
  }
  if (event.key() != Qt::Key_Delete) return false;
  Operator.Forward(List, [this] {
    if (List.OnKeyDown) List.OnKeyDown(kKeyDelete);
  });
  return true;
}

/// A blank that follows within the time limit of the view's keyboard search is part of the search.
bool ListBinding::ContinuesSearch(const QKeyEvent& event) {
  const bool isLetter = !event.text().isEmpty() && event.text().front().isPrint() &&
                        !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (!isLetter) return false;
  const bool isBlank = event.key() == Qt::Key_Space;
  const bool isSearching =
      LastSearchKey.isValid() && LastSearchKey.elapsed() < QApplication::keyboardInputInterval();
  if (isBlank && !isSearching) return false;
  LastSearchKey.start();
  if (isBlank) View.keyboardSearch(event.text());
  return isBlank;
}

/// Blocks the view's own handling of the pointer: the system decides what is selected.
bool ListBinding::FilterPointer(QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseMove:
      Pointer = static_cast<QMouseEvent&>(event).pos();
      if (Finger.IsOn()) Finger.Move(static_cast<QMouseEvent&>(event));
      if (Dragging) FollowPointer();
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
      return true;
    default:
      return false;
  }
}

void ListBinding::Press(const QMouseEvent& event) {
  // Two quick clicks are a double-click only where a single click does nothing yet.
  const bool isDouble = event.type() == QEvent::MouseButtonDblClick && !List.ClickActs;
  if (Swipe::IsOfFinger(event)) {
    TapIsDouble = isDouble;
    Finger.Begin(event);
    if (!List.ClickActs)
      HoldTimer.start(QGuiApplication::styleHints()->mousePressAndHoldInterval());
  } else if (isDouble) {
    ForwardDoubleClick(event.button() == Qt::LeftButton ? RowAt(event.pos())
                                                        : ListBox::kNoSelection);
  } else {
    PressAt(event.pos(), MouseButtonOf(event.button()));
  }
}

void ListBinding::PressAt(QPoint position, MouseButton button) {
  const int row = button == MouseButton::Left ? RowAt(position) : ListBox::kNoSelection;
  Dragging = row != ListBox::kNoSelection && !List.ClickActs;
  ForwardPress(row, button);
}

/// The finger has rested: from now on it acts like a mouse with its button down.
void ListBinding::TakeHold() {
  if (!Finger.IsTap()) return;
  Finger.End();
  PressAt(Finger.Start(), MouseButton::Left);
}

void ListBinding::Lift() {
  if (!Finger.IsTap()) return;
  const int row = RowAt(Finger.Start());
  TapIsDouble ? ForwardDoubleClick(row) : ForwardPress(row, MouseButton::Left);
}

void ListBinding::ForwardPress(int row, MouseButton button) {
  Operator.Forward(List, [this, row, button] {
    Select(row);
    DownForwarded = true;
    if (List.OnMouseDown) List.OnMouseDown(button);
  });
}

/// Selects an entry as a click does. Clicking the selected entry is still a click.
void ListBinding::Select(int row) {
  if (!Has(row)) return;
  LedFrom.reset();
  const bool isClickAlone = row == List.ListIndex();
  List.SetListIndex(row);
  if (isClickAlone && List.OnClick) List.OnClick();
}

void ListBinding::ForwardDoubleClick(int row) {
  Operator.Forward(List, [this, row] {
    if (!Has(row)) return;
    List.SetListIndex(row);
    if (List.OnDblClick) List.OnDblClick();
  });
}

void ListBinding::Release() {
  Dragging = false;
  HoldTimer.stop();
  Finger.End();
  OutsideTimer.stop();
  Operator.ForwardAlways([this] {
    if (!DownForwarded) return;
    DownForwarded = false;
    if (List.OnMouseUp) List.OnMouseUp();
  });
}

void ListBinding::FollowPointer() {
  const QRect area = View.viewport()->rect();
  const bool isAbove = Pointer.y() < area.top();
  const bool isBelow = Pointer.y() > area.bottom();
  if (!isAbove && !isBelow) OutsideTimer.stop();
  if ((isAbove || isBelow) && !OutsideTimer.isActive()) OutsideTimer.start();
  int row = RowAt(QPoint(area.center().x(), std::clamp(Pointer.y(), area.top(), area.bottom())));
  if (row == ListBox::kNoSelection) row = LastRow();
  DragTo(std::clamp(row - isAbove + isBelow, 0, std::max(LastRow(), 0)));
}

void ListBinding::DragTo(int row) {
  Operator.Forward(List, [this, row] {
    for (int steps = List.ListCount(); steps > 0 && DownForwarded && Has(row); --steps) {
      StepTo(row);
      if (List.OnMouseMove) List.OnMouseMove();
      if (List.ListIndex() == row) break;
    }
  });
}

void ListBinding::StepTo(int row) {
  const int selected = List.ListIndex();
  if (selected == ListBox::kNoSelection) return List.SetListIndex(row);
  if (selected != row) List.SetListIndex(selected < row ? selected + 1 : selected - 1);
}

void ListBinding::SelectByKey(int row) {
  Operator.Forward(List, [this, row] {
    if (Has(row)) List.SetListIndex(row);
  });
}

int ListBinding::RowAt(QPoint position) const { return View.indexAt(position).row(); }

}  // namespace marlex
