#include "core/settings_loader.h"

#include <algorithm>

#include "text/numbers.h"
#include "text/paths.h"

namespace marlex {

SettingsLoader::SettingsLoader(Flags& flags, SettingsStore& store, Windows& windows,
                               FrmPlayers& frmPlayers, MixerAccess& mixer, SoundLines& lines,
                               Notices& notices)
    : TheFlags(flags),
      Store(store),
      Values(store.Values),
      TheFrmMain(windows.frmMain),
      TheFrmSettings(windows.frmSettings),
      TheFrmPlayers(frmPlayers),
      Mixer(mixer),
      Lines(lines),
      TheNotices(notices) {}

void SettingsLoader::LoadSettings() {
  TheFrmPlayers.Load();
  TheFrmPlayers.tmrFadeTime.Enabled = false;
  TheFlags.PriorityClear = true;
  Mixer.InitMixer();
  LoadVolumeSettings();
  if (Store.Read("Selected paths", "Music directory").empty()) {
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
  // The test is for "Slow" here: an absent key is a fast fade.
  Values.FadeTime = Store.Read("Volume", "Fade time") == "Slow" ? kSlowFadeTimeMs : kFastFadeTimeMs;
  Lines.SetMaster(Values.MasterVolume);
  Lines.MuteMaster();
  Lines.SetWave(Values.MusicVolume);
  Lines.MuteWave();
  Lines.SetMicrophone(Values.MicroVolume);
  Lines.CloseMicrophone();
}

void SettingsLoader::ReadVolumes() {
  std::string faults;
  Values.MusicVolume = ReadVolume("Music volume", faults);
  Values.MessageVolume = ReadVolume("Message volume", faults);
  Values.MasterVolume = ReadVolume("Master volume", faults);
  Values.MicroVolume = ReadVolume("Micro volume", faults);
  Values.CdVolume = ReadVolume("CD volume", faults);
  if (faults.empty()) return;
  TheNotices.Error("These volumes are no numbers and count as absent:" + faults);
}

/// A position outside the slider's range is held at its nearer end.
int SettingsLoader::ReadVolume(const std::string& key, std::string& faults) const {
  const std::string text = Store.Read("Volume", key);
  const auto number = ToNumber(text);
  if (!number) faults += "\r\n" + key + "=" + text;
  return std::clamp(number.value_or(0), 0, FrmMxr::kSilent);
}

void SettingsLoader::ReadGeneralSettings() {
  Values.MusicDirectory = Store.Read("Selected paths", "Music directory");
  Values.MessageDirectory = Store.Read("Selected paths", "Message directory");
  Values.AllDaysView = Store.ReadFlag("Schedule", "All days");
  for (std::size_t zone = 0; zone < Values.ZoneNames.size(); ++zone) {
    Values.ZoneNames[zone] = Store.Read("Zone names", "Zone:" + std::to_string(zone + 1));
  }
  Values.PreChime = Store.Read("Chime selection", "PreChime");
  Values.PostChime = Store.Read("Chime selection", "PostChime");
}

void SettingsLoader::ReadPlaylistSettings() {
  Values.CurrentPlaylistFile = Store.Read("Playlist", "Current list");
  const std::string& file = Values.CurrentPlaylistFile;
  Values.MusicStartTime = Store.ReadProfileValue("Background music", "Start time", file);
  Values.MusicStopTime = Store.ReadProfileValue("Background music", "Stop time", file);
  Values.MusicWeekDays = Store.ReadProfileValue("Background music", "WeekDays", file);
  Values.LastSongIndex =
      ToNumber(Store.ReadProfileValue("Last played", "Last song", file)).value_or(0);
  // A point in a directory's name cuts the text short, which is wanted.
  std::string name;
  if (!file.empty()) name = UpToFirstPoint(file) + " ";
  Values.MusicScheduled = !Values.MusicStartTime.empty();
  Values.MusicLabelText = "Background music playlist:" + name;
  if (Values.MusicScheduled) {
    Values.MusicLabelText += " " + Values.MusicStartTime + "-" + Values.MusicStopTime;
  }
}

void SettingsLoader::ReadLinkSettings() {
  Values.ComPortSetting = Store.Read("Used com port", "Com port");
  Values.RouterPresent = Store.ReadFlag("Selected type", "QRT4410/20");
  if (Values.RouterPresent) {
    TheFrmPlayers.TolvoPort.SetCommPort(ToNumber(Values.ComPortSetting).value_or(0));
  }
  Values.ScheduleNameView = Store.ReadFlag("Schedule", "View");
  Values.PriorityLevelText = Store.Read("Priority level", "Priority");
  Values.OwnPriorityLevel = PriorityLevelOf(Values.PriorityLevelText);
}

}  // namespace marlex
