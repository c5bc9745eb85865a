#pragma once

#include <functional>
#include <string>

#include "core/main_window.h"
#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "mixer/sound_lines.h"
#include "platform/process.h"
#include "schedule/schedule_table.h"
#include "state/flags.h"
#include "state/settings_store.h"
#include "windows/windows.h"

namespace marlex {

/// The dialog for all settings of the installation. The sliders take effect and are saved at once;
/// everything else is saved by OK. Cancel undoes no change in memory; while the main window is not
/// shown, as on a first run, it ends the process.
class SettingsDialog {
 public:
  SettingsDialog(Flags& flags, SettingsStore& store, Process& process, Windows& windows,
                 FrmPlayers& frmPlayers, SoundLines& lines, const StringTable& strings,
                 Notices& notices, ScheduleTable& table, MainWindow& mainWindow);

  /// `SerialLink::ForgetAmplifier`; wired at composition.
  std::function<void()> ForgetAmplifier;

 private:
  void Wire();
  void WireSliders();

  void Load();
  void NameSelectButtons();
  void ShowMicrophone();
  void ReadDirectories();
  void ReadChimes();
  void ReadAmplifier();
  void ReadZoneNames();
  void ReadVolumes();
  void ReadFadeTime();

  void ShowRouterFrames(bool shown, int buttonTop);
  void ChooseAmplifier(int index);  // optTolvo
  void CheckChime(const CheckBox& check, CommandButton& select, Label& label);

  // The sliders.
  void ChangeMasterVolume();
  void ChangeMusicVolume();
  void ChangeMicroVolume();
  void ChangeMessageVolume();
  void ChangeVolume(const Slider& slider, int& value, const ProfileKey& key);

  void cmdOK_Click();
  bool Refuse(const Label& directory, int messageId);
  void WriteDirectories();
  void WriteZoneNames();
  void WriteAmplifier();
  void UseRouter();
  void UseNoRouter();
  void WritePriority();
  void WriteFadeTime();
  void WriteChimes();
  void RefreshMainWindow();
  void cmdCancel_Click();

  Flags& TheFlags;
  SettingsStore& Store;
  Settings& Values;
  Process& TheProcess;
  FrmSettings& TheFrmSettings;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  const StringTable& Strings;
  Notices& TheNotices;
  ScheduleTable& Table;
  MainWindow& TheMainWindow;
};

}  // namespace marlex
