#pragma once

#include "music/fades.h"
#include "music/music_player.h"
#include "platform/wall_clock.h"
#include "state/flags.h"
#include "state/record.h"
#include "state/settings.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// Starts and stops the music by the clock. Every minute, both compare the time with the daily
/// window, whether or not it has just begun or ended, so a start or stop that was not possible is
/// tried again. Times are compared as "HH:MM" texts.
class MusicSchedule {
 public:
  MusicSchedule(Flags& flags, const Settings& settings, WallClock& clock, FrmMain& frmMain,
                FrmPlayers& frmPlayers, ZoneRouting& routing, MusicPlayer& player, Fades& fades,
                Record& record);

  /// Waits, if the music starts and the player refuses its song, for the messages that wait for the
  /// music break. Then test `CallActive`.
  void CheckMusicStart();

  /// Waits for the fade. Then test `CallActive` and `PriorityClear`; the minute may be another.
  void CheckMusicStop();

 private:
  bool TodayIsOn() const;

  Flags& TheFlags;
  const Settings& TheSettings;
  WallClock& Clock;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  ZoneRouting& Routing;
  MusicPlayer& Player;
  Fades& TheFades;
  Record& TheRecord;
};

}  // namespace marlex
