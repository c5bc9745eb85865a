#pragma once

#include <array>
#include <string>
#include <vector>

#include "desk/desk.h"
#include "scenario/inspectors/music_times.h"

namespace marlex {

/// What the playlist editor shows.
struct PlaylistDraft {
  std::vector<std::string> Songs;
  std::array<int, 4> Times{};  // hour and minute of the start, then of the stop
  std::string Days;
  bool TimesShown = false;
  bool Autostart = false;

  bool operator==(const PlaylistDraft&) const = default;
  bool HasTimes() const;  // lists that are hidden, or were never touched, hold no times
  bool LacksTimes() const;

  /// The times that the file of such a list has; everything else as in `otherwise`.
  MusicTimes TimesWhenSaved(MusicTimes otherwise) const;
};

/// Empty when the editor is closed.
PlaylistDraft ReadPlaylistDraft(Desk& desk);

}  // namespace marlex
