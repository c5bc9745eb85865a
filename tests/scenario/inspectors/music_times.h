#pragma once

#include <string>

#include "desk/desk.h"

namespace marlex {

/// When the music's clock starts and stops the music, by the values in force.
struct MusicTimes {
  bool Scheduled = false;
  std::string StartTime, StopTime, WeekDays;
  bool Autostart = false;
  std::string File;  // of the playlist

  bool operator==(const MusicTimes&) const = default;
};

/// The values in force.
MusicTimes ReadMusicTimes(Desk& desk);

/// The times from a playlist file; everything else as in `otherwise`.
MusicTimes MusicTimesOf(const std::string& file, MusicTimes otherwise, Desk& desk);

}  // namespace marlex
