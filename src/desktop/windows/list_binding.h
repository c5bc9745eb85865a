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

/// The entries of a list box as a view reads them, straight from the control.
class ListModel : public QAbstractListModel {
 public:
  explicit ListModel(const ListBox& list) : List(list) {}

  /// Tells the views what has changed since the last call.
  void Refresh();

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : KnownRows;
  }
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const ListBox& List;
  int KnownRows = 0;
};

/// A list box. The selection follows a mouse while its left key is held, one entry after the other
/// however fast the pointer moves, since the system moves the dragged entry one place at each step.
/// A finger that moves scrolls, and clicks as it is lifted where it did not; one that rests on an
/// entry takes hold of it, and then drags as the mouse does, except where a click acts.
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
  QTimer HoldTimer;  // runs out when a finger has rested long enough to take hold
  QElapsedTimer LastSearchKey;
  bool TapIsDouble = false;  // the finger came down a second time
  QTimer OutsideTimer;       // goes on scrolling while the pointer is held above or below the list
  QPoint Pointer;            // its last place in the view
  bool Dragging = false;     // the left key went down on an entry and is held
  bool DownForwarded = false;  // the system has been told of a press and not of its release
  bool Painting = false;
  int KnownEntries;
  std::vector<int> Selections;  // since the last painting, in order
  std::optional<int> LedFrom;  // the selection from which the arrows have led on without the system
};

}  // namespace marlex
