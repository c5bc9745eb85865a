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
  void LoadPlaylist();

  /// Menu: makes another playlist the current one. The song that plays goes on.
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

/// The dialog in which a playlist file is chosen.
FileDialog PlaylistDialog(const SettingsStore& store);

/// Reads the daily window, its weekdays and the autostart of a playlist file into the settings; all
/// of them are empty where the file, or its name, is none.
void ReadPlaylistTimes(SettingsStore& store, const std::string& file);

/// The selection that a position of an earlier run means in a list of this many songs: a position
/// that the list does not have means the first song, and an empty list has none.
int PlaylistPosition(int lastSongIndex, int songCount);

}  // namespace marlex
