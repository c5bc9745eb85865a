#pragma once

#include <string>

#include "i18n/notices.h"
#include "mixer/sound_lines.h"
#include "state/flags.h"
#include "state/settings_store.h"
#include "windows/frm_players.h"
#include "windows/windows.h"

namespace marlex {

/// Turns the settings file into the values that the rest of the program reads.
class SettingsLoader {
 public:
  SettingsLoader(Flags& flags, SettingsStore& store, Windows& windows, FrmPlayers& frmPlayers,
                 MixerAccess& mixer, SoundLines& lines, Notices& notices);

  /// Starts the engine and the mixer, reads all settings and shows the main window; on a first run,
  /// when there is no music directory, the settings dialog, whose OK shows it afterwards.
  void LoadSettings();

  /// Levels to the mixer's lines, all of them muted; music, messages and calls lift the mutes.
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
  Notices& TheNotices;
};

}  // namespace marlex
