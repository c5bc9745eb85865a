#pragma once

#include <string>
#include <vector>

#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "mixer/sound_lines.h"
#include "music/fades.h"
#include "music/music_player.h"
#include "music/playlist_times.h"
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "platform/wall_clock.h"
#include "state/previews.h"
#include "state/settings_store.h"
#include "windows/frm_players.h"
#include "windows/windows.h"

namespace marlex {

/// The editor for playlist files. It works on its own list: its songs reach the main window
/// when the file is opened there, its times and its autostart at once. It closes without asking.
class PlaylistEditor {
 public:
  PlaylistEditor(SettingsStore& store, Directories& directories, WallClock& clock, Dialogs& dialogs,
                 Windows& windows, FrmPlayers& frmPlayers, SoundLines& lines, Fades& fades,
                 MusicPlayer& player, Previews& previews, const StringTable& strings,
                 Notices& notices);

  /// Stops a preview that is playing or paused, but not the music of the main window.
  void EndPreview();

 private:
  void WireSelection();
  void WireFile();
  void mnuPlaylist_Click();
  void Load();

  void AddClicked();  // AvailMP3s
  void cmdSelectAll_Click();
  void RemoveKey_Click();
  void RemAll_Key_Click();
  void cmdRandomize_Click();
  void PrevKey_Click();
  void StartPreview();
  void StopPreview();
  void optScheduled_Click(int index);

  void mnuOpen_Click();
  void Open(const std::string& file);
  void ShowName(const std::string& file);
  void ShowTimes();

  void mnuSave_Click();
  bool RefuseEmptyList();
  void Save(const std::string& file);
  std::vector<ProfileEntry> SongEntries() const;
  void AddStart(std::vector<ProfileEntry>& entries, bool timed) const;

  SettingsStore& Store;
  Settings& Values;
  Directories& TheDirectories;
  WallClock& Clock;
  Dialogs& TheDialogs;
  FrmMain& TheFrmMain;
  FrmSettings& TheFrmSettings;
  FrmPlaylist& TheFrmPlaylist;
  PlaylistTimes Times;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  Fades& TheFades;
  MusicPlayer& Player;
  Previews& ThePreviews;
  const StringTable& Strings;
  Notices& TheNotices;
  Lifeline::Tie PreviewOpening;  // the opening of the window in which the last preview began
};

/// Name of a song: its file name up to the first ".mp3", ignoring case.
std::string SongName(const std::string& fileName);

}  // namespace marlex
