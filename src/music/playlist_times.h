#pragma once

#include <array>
#include <string>

#include "state/settings.h"
#include "windows/frm_playlist.h"

namespace marlex {

/// The times and days in the playlist editor, at which the clock starts and stops the music.
class PlaylistTimes {
 public:
  explicit PlaylistTimes(FrmPlaylist& window) : Window(window) {}

  /// Fills the lists of hours and minutes.
  void Fill();

  /// Clears all times and days.
  void Clear();

  /// Shows the times and days of the settings.
  void Show(const Settings& settings);

  /// True if any list has a selection, while the times are visible.
  bool AnyIsChosen() const;

  /// Text id of the error for the first list without a selection; 0 if all have one.
  int Missing() const;

  std::string Start() const;  // "HH:MM"
  std::string Stop() const;   // "HH:MM"
  std::string Days() const;   // seven characters, Monday first; "0" for a day that is off

 private:
  /// Hour and minute of the start, then those of the stop.
  std::array<ComboBox*, 4> Lists() const;

  FrmPlaylist& Window;
};

}  // namespace marlex
