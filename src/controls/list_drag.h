#pragma once

#include <string>

#include "controls/list_box.h"

namespace marlex {

/// Reorders a list by dragging: the entry under the pointer follows it, one neighbour at a time, as
/// the list's selection moves with the held button.
struct ListDrag {
  bool DragActive = false;  // a drag is on
  bool DragMoved = false;   // it has moved an entry
  int DragIndex = 0;        // where the dragged entry stands now
  std::string DragText;     // the dragged entry

  void Start(const ListBox& list);  // the button goes down; nothing is dragged without a selection

  /// The pointer has moved. False when no drag is on: an entry that was deleted, or that went with
  /// its list, is dragged no further.
  bool Move(ListBox& list);

  void End() { DragActive = false; }
};

}  // namespace marlex
