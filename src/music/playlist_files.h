#pragma once

#include <string>

#include "i18n/string_table.h"
#include "music/music_player.h"
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "platform/wall_clock.h"
#include "state/flags.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"

namespace marlex {

/// Playlist files: profile files with the extension .lst that hold song names in order, an optional
/// daily window of music, and the position in the list.
class PlaylistFiles {
 public:
  PlaylistFiles(Flags& flags, SettingsStore& store, Directories& directories, WallClock& clock,
                Dialogs& dialogs, FrmMain& frmMain, MusicPlayer& player,
                const StringTable& strings);

  /// Reads `CurrentPlaylistFile` into the list and the settings; may start the music.
  ///
  /// Waits like `MusicPlayer::cmdPlay_Click` when it does.
  void LoadPlaylist();

  /// Menu: opens another playlist. The current song goes on, unless the new list starts the music.
  void mnuOpen_Click();

 private:
  void Open(const std::string& file);
  void ReadSongs();
  void ShowName();
  bool InsideWindow() const;
  void AutostartMusic();

  Flags& TheFlags;
  SettingsStore& Store;
  Directories& TheDirectories;
  WallClock& Clock;
  Dialogs& TheDialogs;
  FrmMain& TheFrmMain;
  MusicPlayer& Player;
  const StringTable& Strings;
};

/// The file dialog for playlist files.
FileDialog PlaylistDialog(const ProfileStore& store);

/// Reads the daily window, its weekdays and the autostart of a playlist file into the settings; if
/// there is no such file, the times and weekdays are empty and the autostart is off.
void ReadPlaylistTimes(SettingsStore& store, const std::string& file);

/// Index of the song to select in a list of `songCount` songs for a position saved in an earlier
/// run: the first song if the list has no such position, `ListBox::kNoSelection` if it is empty.
int PlaylistPosition(int lastSongIndex, int songCount);

}  // namespace marlex
