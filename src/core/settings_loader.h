#pragma once

#include <string>

#include "i18n/notices.h"
#include "mixer/sound_lines.h"
#include "state/flags.h"
#include "state/settings_store.h"
#include "windows/frm_players.h"
#include "windows/windows.h"

namespace marlex {

/// Reads the settings file into the values that the rest of the program uses.
class SettingsLoader {
 public:
  SettingsLoader(Flags& flags, SettingsStore& store, Windows& windows, FrmPlayers& frmPlayers,
                 MixerAccess& mixer, SoundLines& lines, const StringTable& strings,
                 Notices& notices);

  /// Loads the engine window, opens the mixer, reads all settings and shows the main window. On a
  /// first run, when there is no music directory, shows the settings dialog instead; its OK then
  /// shows the main window.
  ///
  /// Without a mixer, waits for the answer to its box, after which the process ends. Otherwise
  /// waits like `PlaylistFiles::LoadPlaylist`.
  void LoadSettings();

  /// Reads the volumes and the fade time. Sets the levels of the lines and mutes them all; music,
  /// messages and calls open them.
  void LoadVolumeSettings();

 private:
  void ReadVolumes();
  int ReadVolume(const ProfileKey& key, std::string& faults) const;
  void ReadGeneralSettings();
  void ReadPlaylistSettings();
  void ReadLinkSettings();

  Flags& TheFlags;
  SettingsStore& Store;
  Settings& Values;
  FrmMain& TheFrmMain;
  FrmSettings& TheFrmSettings;
  FrmPlayers& TheFrmPlayers;
  MixerAccess& Mixer;
  SoundLines& Lines;
  const StringTable& Strings;
  Notices& TheNotices;
};

}  // namespace marlex
