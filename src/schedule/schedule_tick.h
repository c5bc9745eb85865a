#pragma once

#include <string>
#include <vector>

#include "music/music_schedule.h"
#include "platform/wall_clock.h"
#include "schedule/message_playback.h"
#include "schedule/message_wavs.h"
#include "schedule/schedule_table.h"
#include "state/flags.h"
#include "state/record.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The heart of the schedule. Once a minute, in the first tick with a new "HH:MM", it starts and
/// stops the music, rebuilds the table at midnight, and hands the row of the minute to playback.
/// There is no queue: a minute that no tick accepts, as while the schedule is held
/// (windows/frm_players.h), is lost.
class ScheduleTick {
 public:
  ScheduleTick(Flags& flags, WallClock& clock, FrmMain& frmMain, FrmPlayers& frmPlayers,
               MusicSchedule& music, ScheduleTable& table, MessageWavs& wavs,
               MessagePlayback& playback, Record& record);

  std::string LastMinute;          // the last accepted minute, "HH:MM"; empty at start
  int ScheduleRow = 0;             // row being examined; after a match, the firing row
  std::string CurrentTime;         // time cell of the row that fired last
  std::string CurrentMessageInfo;  // its messages
  std::string CurrentRouting;      // its zones

  /// Waits for the fade of the music's stop, and for the announcement of a row. Another tick, a
  /// call or a takeover may happen during the wait.
  void Tick();

  /// Whether the tick would fire a row on a weekday, 1 for Monday to 7 for Sunday, going by the
  /// row's weekdays.
  bool RunsOn(int row, int weekday) const;

  /// Whether the row that fired last still waits for the music break. A call or a takeover drops
  /// its messages, and after Stop no song ends.
  bool RowWaits() const;

  /// Whether the schedule is held although no call, message or fade is in progress and no row
  /// waits: its editor is open, the amplifier has cut off a call, or Stop has ended the song that a
  /// row was waiting for.
  bool HasStopped() const;

  /// The rows of a minute that the tick would fire on a weekday if each were the only one, and
  /// those of the minutes between two others.
  std::vector<RecordedRow> RowsOf(const std::string& minute, int weekday) const;
  std::vector<RecordedRow> RowsBetween(const std::string& after, const std::string& before,
                                       int weekday) const;

 private:
  bool AcceptMinute();
  bool LosesToCall(const std::string& minute) const;
  void Lose(const std::string& minute, LossReason reason) const;
  void StartNewDay();
  bool FindDueRow();
  void LoseOtherRows() const;
  void MarkFiringRow();
  void PaintRow(int row, Color back, Color text);
  void Dispatch();

  Flags& TheFlags;
  WallClock& Clock;
  Grid& TheGrid;
  FrmPlayers& TheFrmPlayers;
  MusicSchedule& MusicClock;
  ScheduleTable& Table;
  MessageWavs& Wavs;
  MessagePlayback& Playback;
  Record& TheRecord;
};

}  // namespace marlex
