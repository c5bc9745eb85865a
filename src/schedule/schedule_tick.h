#pragma once

#include <string>

#include "music/music_schedule.h"
#include "platform/wall_clock.h"
#include "schedule/message_playback.h"
#include "schedule/message_wavs.h"
#include "schedule/schedule_table.h"
#include "state/flags.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The heart of the schedule. Once a minute, in the first tick whose "HH:MM" is another than the
/// last, it starts and stops the music, rebuilds the table at midnight, and hands the row of the
/// minute to playback. A minute that is not seen is lost: there is no queue.
class ScheduleTick {
 public:
  ScheduleTick(Flags& flags, WallClock& clock, FrmMain& frmMain, FrmPlayers& frmPlayers,
               MusicSchedule& music, ScheduleTable& table, MessageWavs& wavs,
               MessagePlayback& playback);

  std::string LastMinute;          // the minute that the tick last accepted; empty at start
  int ScheduleRow = 0;             // row under examination, after a hit the firing row
  std::string CurrentMessageInfo;  // messages of the firing row
  std::string CurrentRouting;      // its zones
  std::string WaitingTime;         // of the row that last waited for the music break

  /// Waits for the fade of the music's stop, and for the announcement of a row.
  void Tick();

  /// Whether a row of the table has today's weekday on.
  bool RunsToday(int row) const;

 private:
  bool AcceptMinute();
  void StartNewDay();
  bool FindDueRow();
  void MarkFiringRow();
  void PaintRow(int row, Color back, Color text);
  void Dispatch();

  Flags& TheFlags;
  WallClock& Clock;
  Grid& Table;
  FrmPlayers& TheFrmPlayers;
  MusicSchedule& Music;
  ScheduleTable& TheTable;
  MessageWavs& Wavs;
  MessagePlayback& Playback;
};

}  // namespace marlex
