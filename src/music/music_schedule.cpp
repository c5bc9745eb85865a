#include "music/music_schedule.h"

#include "music/playlist_files.h"
#include "state/week_time.h"

namespace marlex {

MusicSchedule::MusicSchedule(Flags& flags, const Settings& settings, WallClock& clock,
                             FrmMain& frmMain, FrmPlayers& frmPlayers, ZoneRouting& routing,
                             MusicPlayer& player, Fades& fades, Record& record)
    : TheFlags(flags),
      TheSettings(settings),
      Clock(clock),
      TheFrmMain(frmMain),
      TheFrmPlayers(frmPlayers),
      Routing(routing),
      Player(player),
      TheFades(fades),
      TheRecord(record) {}

void MusicSchedule::CheckMusicStart() {
  if (!TheSettings.MusicScheduled || TheFlags.CurrentMinute < TheSettings.MusicStartTime ||
      TheFlags.CurrentMinute >= TheSettings.MusicStopTime) {
    return;
  }
  if (!TodayIsOn()) return;
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying || TheFlags.MusicStoppedByUser) return;
  TheFlags.MusicStoppedBySchedule = false;
  ListBox& list = TheFrmMain.lstPlaylist;
  list.SetListIndex(PlaylistPosition(TheSettings.LastSongIndex, list.ListCount()));
  Player.cmdPlay_Click();
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying) TheRecord.ClockStartsMusic();
  TheFlags.MusicStartedBySchedule = true;
}

void MusicSchedule::CheckMusicStop() {
  if (TheFlags.MusicStopOverridden || !TheFlags.MusicStartedBySchedule) return;
  if (TheSettings.MusicStartTime.empty() || TheFlags.CurrentMinute < TheSettings.MusicStopTime)
    return;
  if (!TodayIsOn()) return;
  if (TheFrmPlayers.MP3Player.PlayState() != kPlaying) return;
  if (TheSettings.FadeTime > 0) TheFades.FadeDown();
  TheFrmPlayers.MP3Player.Stop();
  TheFlags.MusicStartedBySchedule = false;
  TheFrmMain.EnableSkipAndStop(false);
  TheFlags.MusicStoppedBySchedule = true;
  TheRecord.ClockStopsMusic();
  if (!TheFlags.CallActive && !TheFlags.MessagePlaying && TheSettings.RouterPresent) {
    Routing.Release();
  }
}

bool MusicSchedule::TodayIsOn() const {
  return DayIsOn(TheSettings.MusicWeekDays, Clock.Now().Weekday);
}

}  // namespace marlex
