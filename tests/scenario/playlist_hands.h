#pragma once

#include "scenario/settings_hands.h"

namespace marlex {

/// One step at the playlist editor, which may open it, or close it again. What it saves goes over
/// the playlists that may be open, the one in force included, but never over the good one.
Deed DrawPlaylistHand(Dice& dice);

}  // namespace marlex
