#pragma once

#include <functional>
#include <string>

#include "i18n/string_table.h"
#include "mixer/mixer_access.h"
#include "state/flags.h"
#include "state/notices.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_mxr.h"
#include "windows/frm_players.h"

namespace marlex {

/// Turns the settings file into the values that the rest of the program reads.
class SettingsLoader {
 public:
  SettingsLoader(Flags& flags, SettingsStore& store, FrmMain& frmMain, FrmPlayers& frmPlayers,
                 FrmMxr& frmMxr, MixerAccess& mixer, const StringTable& strings, Notices& notices);

  /// Lets the operator enter the settings on a first run, when there is no music directory; wired
  /// at composition.
  std::function<void()> ShowSettings;

  /// Starts the engine and the mixer, reads all settings and shows the main window.
  void LoadSettings();

  /// Levels to the mixer's lines, all of them muted; music, messages and calls lift the mutes.
  void LoadVolumeSettings();

 private:
  void ReadVolumes();
  int ReadVolume(const std::string& key, std::string& faults) const;
  void ReadGeneralSettings();
  void ReadPlaylistSettings();
  void ReadLinkSettings();

  Flags& TheFlags;
  SettingsStore& Store;
  Settings& Values;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  FrmMxr& TheFrmMxr;
  MixerAccess& Mixer;
  const StringTable& Strings;
  Notices& TheNotices;
};

}  // namespace marlex
