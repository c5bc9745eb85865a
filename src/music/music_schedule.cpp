#include "music/music_schedule.h"

#include "music/playlist_files.h"
#include "state/week_time.h"

namespace marlex {

MusicSchedule::MusicSchedule(Flags& flags, SettingsStore& store, WallClock& clock, FrmMain& frmMain,
                             FrmPlayers& frmPlayers, ZoneRouting& routing, MusicPlayer& player,
                             Fades& fades)
    : TheFlags(flags),
      Store(store),
      Clock(clock),
      TheFrmMain(frmMain),
      TheFrmPlayers(frmPlayers),
      Routing(routing),
      Player(player),
      TheFades(fades) {}

void MusicSchedule::CheckMusicStart() {
  const Settings& settings = Store.Values;
  if (!settings.MusicScheduled || TheFlags.CurrentMinute < settings.MusicStartTime ||
      TheFlags.CurrentMinute >= settings.MusicStopTime) {
    return;
  }
  if (!TodayIsOn()) return;
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying || TheFlags.MusicStoppedByUser) return;
  TheFlags.MusicStoppedBySchedule = false;
  ListBox& list = TheFrmMain.lstPlaylist;
  list.SetListIndex(PlaylistPosition(settings.LastSongIndex, list.ListCount()));
  Player.cmdPlay_Click();
  TheFlags.MusicStartedBySchedule = true;
}

void MusicSchedule::CheckMusicStop() {
  const Settings& settings = Store.Values;
  if (TheFlags.MusicStopOverridden || !TheFlags.MusicStartedBySchedule) return;
  if (settings.MusicStartTime.empty() || TheFlags.CurrentMinute < settings.MusicStopTime) return;
  if (!TodayIsOn()) return;
  if (TheFrmPlayers.MP3Player.PlayState() != kPlaying) return;
  if (settings.FadeTime > 0) TheFades.FadeDown();
  TheFrmPlayers.MP3Player.Stop();
  TheFlags.MusicStartedBySchedule = false;
  TheFrmMain.EnableSkipAndStop(false);
  TheFlags.MusicStoppedBySchedule = true;
  if (!TheFlags.CallActive && !TheFlags.MessagePlaying && settings.RouterPresent) {
    Routing.Release();
  }
}

bool MusicSchedule::TodayIsOn() const {
  return DayIsOn(Store.Values.MusicWeekDays, Clock.Now().Weekday);
}

}  // namespace marlex
