#pragma once

#include "scenario/settings_hands.h"

namespace marlex {

/// One step at the playlist editor, which may also open or close it. A save may overwrite any
/// playlist that may be open, including the one in use, but never the good one.
Deed DrawPlaylistHand(Dice& dice);

}  // namespace marlex
