#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/desk.h"
#include "scenario/dice.h"

namespace marlex {

/// A shop as found in the field: some of its files are missing, odd or foreign.
DeskOptions DrawInstallation(Dice& dice);

/// Files in addition to those of the options: other playlists and schedules to open, songs and
/// messages that are missing or cannot be played, and the good ones.
std::function<void(SimulatedPc&)> DrawFiles(Dice& dice, const DeskOptions& options);

/// Creates or restores the good files on the disk.
void AddGoodFiles(MemoryDisk& disk);

// Names that every installation has on its disk, or that are deliberately missing there.
const std::vector<std::string>& PlaylistPaths();
const std::vector<std::string>& ScheduleNames();

}  // namespace marlex
