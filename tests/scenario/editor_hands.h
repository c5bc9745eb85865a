#pragma once

#include "scenario/settings_hands.h"

namespace marlex {

/// One step at the message schedule editor, which may also open or close it. A save may overwrite
/// any schedule that may be open, but never the good one.
Deed DrawEditorHand(Dice& dice);

}  // namespace marlex
