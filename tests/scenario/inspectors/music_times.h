#pragma once

#include <string>

#include "desk/desk.h"

namespace marlex {

/// When the music's clock starts and stops the music, as it is in force.
struct MusicTimes {
  bool Scheduled = false;
  std::string StartTime, StopTime, WeekDays;
  bool Autostart = false;
  std::string File;  // of the playlist

  bool operator==(const MusicTimes&) const = default;
};

/// Those in force.
MusicTimes ReadMusicTimes(Desk& desk);

/// The times that the file of a playlist has, and all else as in `otherwise`.
MusicTimes MusicTimesOf(const std::string& file, MusicTimes otherwise, Desk& desk);

}  // namespace marlex
