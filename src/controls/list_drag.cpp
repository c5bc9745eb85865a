#include "controls/list_drag.h"

namespace marlex {

void ListDrag::Start(const ListBox& list) {
  DragActive = list.ListIndex() != ListBox::kNoSelection;
  DragMoved = false;
  DragIndex = list.ListIndex();
  DragText = list.Text();
}

bool ListDrag::Move(ListBox& list) {
  if (!DragActive) return false;
  const int index = list.ListIndex();
  DragActive = index != ListBox::kNoSelection && DragIndex < list.ListCount() &&
               list.List(DragIndex) == DragText;
  if (!DragActive || index == DragIndex) return DragActive;
  const int neighbour = index < DragIndex ? index + 1 : index - 1;
  DragMoved = true;
  DragIndex = index;
  list.SetList(neighbour, list.List(index));
  list.SetList(index, DragText);
  return true;
}

}  // namespace marlex
