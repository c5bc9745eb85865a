#pragma once

#include <functional>
#include <string>

#include "controls/list_drag.h"
#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "link/zone_routing.h"
#include "mixer/sound_lines.h"
#include "platform/directories.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/record.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The time as minutes, unpadded, ":" and two digits of seconds, rounded to whole seconds, ties to
/// even.
std::string FormatSeconds(double seconds);

/// Plays the songs of `lstPlaylist` one after the other, in a loop. The list's selection is the
/// position: whatever moves the selection moves the music, and the next song is always the entry
/// after the selected one.
///
/// How the end of a song gets here: the output's thread renders its last samples, and `StreamMixer`
/// notes the end -> `EndReports` takes the note to a thread that may lock, which posts it to the
/// event loop -> `EngineSongPlayer` raises `OnEndOfStream` -> `MP3Player_EndOfStream` plays the
/// messages that wait for the music break, then the next song.
class MusicPlayer {
 public:
  MusicPlayer(Flags& flags, SettingsStore& store, Directories& directories, FrmMain& frmMain,
              FrmPlayers& frmPlayers, SoundLines& lines, ZoneRouting& routing, Previews& previews,
              Record& record, const StringTable& strings, Notices& notices);

  std::string CurrentSongPath;  // path last built for the player

  /// List index of that song when it was loaded; restores the selection after a drag.
  int CurrentSongIndex = 0;

  ListDrag Drag;  // a mouse drag in lstPlaylist

  /// Plays the messages that wait for a music break; wired at composition.
  ///
  /// Waits until they are over or a call has begun. Then test `CallActive`.
  std::function<void()> AnnounceAtBreak;

  /// Waits, if the player refuses the song, like `cmdSkip_Click`.
  void cmdPlay_Click();

  /// Waits for the messages that wait for the music break. Then test `CallActive`.
  void cmdSkip_Click();
  void cmdStop_Click();
  void PlaySong();  // starts or resumes the player if CurrentSongPath exists

  /// Path of the selected entry. Without a selection the path lacks a name, and the player refuses
  /// it.
  std::string SelectedSongPath() const;

 private:
  void MP3Player_EndOfStream();  // waits for what AnnounceAtBreak waits for
  bool PlayWaitingMessages();
  bool MoveToNextSong();
  bool LoadSong(bool wrapped);
  void NewListPosition();
  void ShowNumber();
  void ShowLength();
  void ShowPosition();  // tmrMP3Position
  void WriteLastSong(int index);
  void WireList();
  void DeleteSelected(int keyCode);
  void MoveDrag();
  void EndDrag();

  Flags& TheFlags;
  SettingsStore& Store;
  Directories& TheDirectories;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  ZoneRouting& Routing;
  Previews& ThePreviews;
  Record& TheRecord;
  const StringTable& Strings;
  Notices& TheNotices;
  bool LengthAwaited = false;  // 0 is shown until the length of a song on a slow drive is known
};

}  // namespace marlex
