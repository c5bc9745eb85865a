#include "controls/list_box.h"

#include <utility>

namespace marlex {

void ListBox::ResetToDesign() {
  VisualControl::ResetToDesign();
  Entries.clear();
  Selected = kNoSelection;
}

const std::string& ListBox::List(int index) const {
  RequireIndex(index);
  return Entries[static_cast<std::size_t>(index)];
}

void ListBox::SetList(int index, const std::string& text) {
  RequireIndex(index);
  Entries[static_cast<std::size_t>(index)] = text;
  Changed();
}

void ListBox::AddItem(const std::string& text) {
  Entries.push_back(text);
  Changed();
}

void ListBox::RemoveItem(int index) {
  RequireIndex(index);
  Entries.erase(Entries.begin() + index);
  Selected = kNoSelection;
  Changed();
}

void ListBox::Clear() {
  Entries.clear();
  Selected = kNoSelection;
  Changed();
}

void ListBox::SetListIndex(int index) {
  if (index != kNoSelection) RequireIndex(index);
  if (index == Selected) return;
  Selected = index;
  Changed();
  if (OnClick) OnClick();
}

std::string ListBox::Text() const { return Selected == kNoSelection ? "" : List(Selected); }

void ListBox::Replace(std::vector<std::string> entries, int selected) {
  Entries = std::move(entries);
  Selected = selected;
  Changed();
}

void ListBox::RequireIndex(int index) const {
  if (index < 0 || index >= ListCount()) {
    throw RuntimeFailure("Entry " + std::to_string(index) + " is not in the list " + Name);
  }
}

}  // namespace marlex
