#pragma once

#include <QAbstractListModel>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QListView>
#include <QTimer>
#include <optional>
#include <vector>

#include "controls/list_box.h"
#include "desktop/windows/binding.h"
#include "desktop/windows/entry_painter.h"
#include "desktop/windows/press_watch.h"
#include "desktop/windows/swipe.h"

namespace marlex {

/// Gives a view the entries of a list box, straight from the control.
class ListModel : public QAbstractListModel {
 public:
  explicit ListModel(const ListBox& list) : List(list) {}

  /// Notifies the views of what has changed since the last call.
  void Refresh();

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : KnownRows;
  }
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const ListBox& List;
  int KnownRows = 0;
};

/// Shows a list box. While the left mouse button is held, the selection follows the mouse one entry
/// at a time, however fast the pointer moves, since the system moves the dragged entry by one place
/// at each step. A finger that moves scrolls the list; one that is lifted without moving clicks;
/// one that rests on an entry grabs it and then drags like the mouse, except in lists where a click
/// acts.
class ListBinding : public QObject, public WidgetBinding {
 public:
  ListBinding(ListBox& list, QListView& view, Hand& hand);

  void Note() override;
  void Paint() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool FilterPointer(QEvent& event);
  bool FilterKey(const QKeyEvent& event);
  bool ContinuesSearch(const QKeyEvent& event);
  void Press(const QMouseEvent& event);
  void PressAt(QPoint position, MouseButton button);
  void TakeHold();
  void Lift();
  void ForwardPress(int row, MouseButton button);
  void Select(int row);
  void ForwardDoubleClick(int row);
  void Release();
  void FollowPointer();
  void DragTo(int row);
  void SelectByKey(int row);
  int RowAt(QPoint position) const;
  int LastRow() const { return List.ListCount() - 1; }
  bool Has(int row) const { return row >= 0 && row < List.ListCount(); }
  void StepTo(int row);
  void ScrollAsSelected();
  void NoteRemoval();

  ListBox& List;
  QListView& View;
  Hand& Operator;
  ListModel Model;
  EntryPainter Painter;
  PressWatch Watch;
  Swipe Finger;
  QTimer HoldTimer;  // expires when a finger has rested long enough to grab
  QElapsedTimer LastSearchKey;
  bool TapIsDouble = false;    // the finger touched down a second time
  QTimer OutsideTimer;         // keeps scrolling while the pointer is held above or below the list
  QPoint Pointer;              // its last position in the view
  bool Dragging = false;       // the left button was pressed on an entry and is held
  bool DownForwarded = false;  // the system got a press, but not yet its release
  bool Painting = false;
  int KnownEntries;
  std::vector<int> Selections;  // since the list was last painted, in order
  /// The selection from which the arrow keys have moved on, unknown to the system.
  std::optional<int> LedFrom;
};

}  // namespace marlex
