#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/desk.h"
#include "scenario/dice.h"

namespace marlex {

/// A shop as found in the field: some of its files are missing, odd or foreign.
DeskOptions DrawInstallation(Dice& dice);

/// Files beside those of the options: other playlists and schedules to open, songs and messages
/// that are gone or cannot be played, and the good ones.
std::function<void(SimulatedPc&)> DrawFiles(Dice& dice, const DeskOptions& options);

/// Puts the good files on the disk, or back on it.
void AddGoodFiles(MemoryDisk& disk);

// Names that stand on the disk of every installation, or are missed there.
const std::vector<std::string>& PlaylistPaths();
const std::vector<std::string>& ScheduleNames();

}  // namespace marlex
