#pragma once

#include <functional>
#include <string>
#include <utility>

#include "scenario/dice.h"
#include "scenario/watched_desk.h"

namespace marlex {

/// Something that an operator does, and its description for the reader of the list.
using Deed = std::pair<std::string, std::function<void(WatchedDesk&)>>;

/// Does nothing when no window shows the control.
Deed ClickOn(const std::string& control);

/// A click on an entry of a list, in the middle of an event. Does nothing when the list is empty.
void ClickEntry(ListBox& list, int place);

/// One step at the settings dialog, which may also open or close it.
Deed DrawSettingsHand(Dice& dice);

/// One step at the pickers of directories and chimes, opened from the settings dialog.
Deed DrawPickerHand(Dice& dice);

}  // namespace marlex
