#pragma once

#include <string>

#include "controls/list_box.h"

namespace marlex {

/// Reorders a list by dragging: the entry under the pointer follows it, swapping places with one
/// neighbour at a time, as the selection moves with the held button.
struct ListDrag {
  bool DragActive = false;  // a drag is in progress
  bool DragMoved = false;   // it has moved an entry
  int DragIndex = 0;        // current place of the dragged entry
  std::string DragText;     // the dragged entry

  /// Call when the button is pressed. Without a selection nothing is dragged.
  void Start(const ListBox& list);

  /// Call when the pointer has moved. False when no drag is in progress; the drag ends when its
  /// entry is deleted, alone or with the whole list.
  bool Move(ListBox& list);

  void End() { DragActive = false; }
};

}  // namespace marlex
