#include "schedule/schedule_tick.h"

#include "state/week_time.h"
#include "text/text_case.h"

namespace marlex {

ScheduleTick::ScheduleTick(Flags& flags, WallClock& clock, FrmMain& frmMain, FrmPlayers& frmPlayers,
                           MusicSchedule& music, ScheduleTable& table, MessageWavs& wavs,
                           MessagePlayback& playback)
    : TheFlags(flags),
      Clock(clock),
      Table(frmMain.grdSchedule),
      TheFrmPlayers(frmPlayers),
      Music(music),
      TheTable(table),
      Wavs(wavs),
      Playback(playback) {
  frmPlayers.tmrMessage.OnTimer = [this] { Tick(); };
}

void ScheduleTick::Tick() {
  // A minute under a call or an announcement is not seen, even when the closing of an editor has
  // resumed the schedule under it. What is due then comes when that is over, if the minute lasts.
  if (TheFlags.CallActive || TheFlags.MessagePlaying) return;
  if (!AcceptMinute() || !TheFlags.PriorityClear) return;
  Music.CheckMusicStart();
  Music.CheckMusicStop();
  // A call may have begun in the fade of the music's stop, here or at the amplifier.
  if (TheFlags.CallActive || !TheFlags.PriorityClear) return;
  if (TheFlags.CurrentMinute == "00:00") StartNewDay();
  if (!FindDueRow() || !RunsToday(ScheduleRow)) return;
  MarkFiringRow();
  CurrentMessageInfo = Table.TextMatrix(ScheduleRow, kMessagesColumn);
  CurrentRouting = Table.TextMatrix(ScheduleRow, kRoutingColumn);
  Wavs.BuildMessageList(CurrentMessageInfo);
  Dispatch();
}

/// From its acceptance on a minute is used up, whatever follows.
bool ScheduleTick::AcceptMinute() {
  TheFlags.CurrentMinute = MinuteText(Clock.Now());
  if (TheFlags.CurrentMinute == LastMinute) return false;
  LastMinute = TheFlags.CurrentMinute;
  return true;
}

void ScheduleTick::StartNewDay() {
  TheTable.RebuildScheduleTable();
  TheFlags.MusicStoppedByUser = false;
}

/// Only the first row of a minute goes on; a second one is never played.
bool ScheduleTick::FindDueRow() {
  for (ScheduleRow = 1; ScheduleRow < Table.Rows(); ++ScheduleRow) {
    if (Table.RowHeight(ScheduleRow) != 0 && TimeOf(Table, ScheduleRow) == TheFlags.CurrentMinute)
      return true;
  }
  return false;
}

/// Deliberate: the test reads the mask without its sixth character. On a Saturday it finds Sunday's
/// digit, on a Sunday none, and the row fires. An empty cell fires on every day.
bool ScheduleTick::RunsToday(int row) const {
  const std::string& mask = Table.TextMatrix(row, kDaysColumn);
  std::string tested(FirstCharacters(mask, 5));
  tested += CharactersFrom(mask, 7, 2);
  return DayIsOn(tested, Clock.Now().Weekday);
}

/// Wipes the marks of earlier rows, conflict marks included, down to the firing row, and leaves it
/// the current one.
void ScheduleTick::MarkFiringRow() {
  constexpr int kRowsAbove = 6;
  for (int row = 1; row <= ScheduleRow; ++row) PaintRow(row, kWhite, kBlack);
  if (ScheduleRow > kRowsAbove) Table.SetTopRow(ScheduleRow - kRowsAbove);
  PaintRow(ScheduleRow, kNavy, kWhite);
}

void ScheduleTick::PaintRow(int row, Color back, Color text) {
  Table.SetRow(row);
  for (int column = 0; column < Grid::kColumns; ++column) {
    Table.SetCol(column);
    Table.SetCellColors(back, text);
  }
}

void ScheduleTick::Dispatch() {
  if (PlaysAtBreak(Table, ScheduleRow) && TheFrmPlayers.MP3Player.PlayState() == kPlaying) {
    TheFrmPlayers.HoldSchedule();
    WaitingTime = Table.TextMatrix(ScheduleRow, kTimeColumn);
    TheFlags.MessageAwaitingSongEnd = true;
    return;
  }
  TheFlags.MessageAwaitingSongEnd = false;
  Playback.PlayMessageSequence(CurrentRouting);
}

}  // namespace marlex
