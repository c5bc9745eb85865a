#include "scenario/inspectors/music_times.h"

namespace marlex {

MusicTimes ReadMusicTimes(Desk& desk) {
  const Settings& settings = desk.Values();
  return {settings.MusicScheduled, settings.MusicStartTime, settings.MusicStopTime,
          settings.MusicWeekDays,  settings.MusicAutostart, settings.CurrentPlaylistFile};
}

MusicTimes MusicTimesOf(const std::string& file, MusicTimes otherwise, Desk& desk) {
  const auto read = [&](const char* key) { return desk.Setting("Background music", key, file); };
  MusicTimes times = std::move(otherwise);
  times.StartTime = read("Start time");
  times.StopTime = read("Stop time");
  times.WeekDays = read("Weekdays");
  const std::string autostart = read("Autostart");
  times.Autostart = autostart == "True" || autostart == "1";
  return times;
}

}  // namespace marlex
