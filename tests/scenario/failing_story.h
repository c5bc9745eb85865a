#pragma once

#include "scenario/watched_desk.h"

namespace marlex {

/// A shop whose music begins by the clock at ten to twelve, with rows before and after midnight, at
/// their minute and at the break between two songs, and with chimes around each call.
DeskOptions StoryInstallation();

/// From a quarter to twelve until after midnight: music by the clock, rows, a call, takeovers, a
/// sequence and a list that are composed, heard and saved, other settings, the new day, and an exit
/// and a start. What a fault has put out of reach, the operator leaves out; a program that has
/// ended is started again.
void LiveTheStory(WatchedDesk& desk);

}  // namespace marlex
