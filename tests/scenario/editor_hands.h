#pragma once

#include "scenario/settings_hands.h"

namespace marlex {

/// One step at the message schedule editor, which may open it, or close it again. What it saves
/// goes over the schedules that may be open, but never over the good one.
Deed DrawEditorHand(Dice& dice);

}  // namespace marlex
