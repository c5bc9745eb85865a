#include "core/settings_loader.h"

#include <algorithm>

#include "text/numbers.h"
#include "text/paths.h"

namespace marlex {

SettingsLoader::SettingsLoader(Flags& flags, SettingsStore& store, Windows& windows,
                               FrmPlayers& frmPlayers, MixerAccess& mixer, SoundLines& lines,
                               const StringTable& strings, Notices& notices)
    : TheFlags(flags),
      Store(store),
      Values(store.Values),
      TheFrmMain(windows.frmMain),
      TheFrmSettings(windows.frmSettings),
      TheFrmPlayers(frmPlayers),
      Mixer(mixer),
      Lines(lines),
      Strings(strings),
      TheNotices(notices) {}

void SettingsLoader::LoadSettings() {
  TheFrmPlayers.Load();
  TheFrmPlayers.tmrFadeTime.Enabled = false;
  TheFlags.PriorityClear = true;
  Mixer.InitMixer();
  LoadVolumeSettings();
  if (Store.Read(keys::kMusicDirectory).empty()) {
    TheFrmPlayers.HoldSchedule();
    TheFrmSettings.Show();
    return;
  }
  ReadGeneralSettings();
  ReadPlaylistSettings();
  ReadLinkSettings();
  TheFrmPlayers.ResumeSchedule();
  TheFrmMain.Show();
}

void SettingsLoader::LoadVolumeSettings() {
  ReadVolumes();
  // A missing key means a fast fade; in the settings dialog, a slow one.
  Values.FadeTime = Store.Read(keys::kFadeTime) == "Slow" ? kSlowFadeTimeMs : kFastFadeTimeMs;
  Lines.SetMaster(Values.MasterVolume);
  Lines.MuteMaster();
  Lines.SetWave(Values.MusicVolume);
  Lines.MuteWave();
  Lines.SetMicrophone(Values.MicroVolume);
  Lines.CloseMicrophone();
}

void SettingsLoader::ReadVolumes() {
  std::string faults;
  Values.MusicVolume = ReadVolume(keys::kMusicVolume, faults);
  Values.MessageVolume = ReadVolume(keys::kMessageVolume, faults);
  Values.MasterVolume = ReadVolume(keys::kMasterVolume, faults);
  Values.MicroVolume = ReadVolume(keys::kMicroVolume, faults);
  Values.CdVolume = ReadVolume(keys::kCdVolume, faults);
  if (faults.empty()) return;
  TheNotices.Error(Strings.LoadString(kStrVolumesNoNumbers) + faults);
}

/// A slider position; a number outside the slider's range is set to its nearer end. A text that is
/// not a number counts as 0 and is added to `faults`.
int SettingsLoader::ReadVolume(const ProfileKey& key, std::string& faults) const {
  const std::string text = Store.Read(key);
  const auto number = ToNumber(text);
  if (!number) faults += "\r\n" + std::string(key.Key) + "=" + text;
  return std::clamp(number.value_or(0), 0, FrmMxr::kSilent);
}

void SettingsLoader::ReadGeneralSettings() {
  Values.MusicDirectory = Store.Read(keys::kMusicDirectory);
  Values.MessageDirectory = Store.Read(keys::kMessageDirectory);
  Values.AllDaysView = Store.ReadFlag(keys::kAllDaysView);
  for (std::size_t zone = 0; zone < Values.ZoneNames.size(); ++zone) {
    Values.ZoneNames[zone] = Store.Read({keys::kZoneNames, keys::ZoneName(static_cast<int>(zone))});
  }
  Values.PreChime = Store.Read(keys::kPreChime);
  Values.PostChime = Store.Read(keys::kPostChime);
}

void SettingsLoader::ReadPlaylistSettings() {
  Values.CurrentPlaylistFile = Store.Read(keys::kCurrentPlaylist);
  const std::string& file = Values.CurrentPlaylistFile;
  Values.MusicStartTime = Store.ReadProfileValue(keys::kStartTime, file);
  Values.MusicStopTime = Store.ReadProfileValue(keys::kStopTime, file);
  Values.MusicWeekDays = Store.ReadProfileValue(keys::kMusicWeekdays, file);
  Values.LastSongIndex = ToNumber(Store.ReadProfileValue(keys::kLastSong, file)).value_or(0);
  // Deliberate: a dot in the name of a directory cuts the text there.
  std::string name;
  if (!file.empty()) name = UpToFirstPoint(file) + " ";
  Values.MusicScheduled = !Values.MusicStartTime.empty();
  Values.MusicLabelText = "Background music playlist:" + name;
  if (Values.MusicScheduled) {
    Values.MusicLabelText += " " + Values.MusicStartTime + "-" + Values.MusicStopTime;
  }
}

void SettingsLoader::ReadLinkSettings() {
  Values.ComPortSetting = Store.Read(keys::kComPort);
  Values.RouterPresent = Store.ReadFlag(keys::kRouter);
  if (Values.RouterPresent) {
    TheFrmPlayers.TolvoPort.SetCommPort(ToNumber(Values.ComPortSetting).value_or(0));
  }
  Values.ScheduleNameView = Store.ReadFlag(keys::kScheduleNameView);
  Values.PriorityLevelText = Store.Read(keys::kPriority);
  Values.OwnPriorityLevel = PriorityLevelOf(Values.PriorityLevelText);
}

}  // namespace marlex
