#include "schedule/schedule_tick.h"

#include "state/week_time.h"
#include "text/text_case.h"

namespace marlex {
namespace {

RecordedRow RowAt(const Grid& table, int row) {
  return {TimeOf(table, row) + (PlaysAtBreak(table, row) ? "+" : ""),
          table.TextMatrix(row, kMessagesColumn)};
}

/// The rows that are not removed and that `isWanted` chooses.
template <class Condition>
std::vector<RecordedRow> DueRows(const Grid& table, const Condition& isWanted) {
  std::vector<RecordedRow> rows;
  for (int row = 1; row < table.Rows(); ++row) {
    if (table.RowHeight(row) != 0 && isWanted(row)) rows.push_back(RowAt(table, row));
  }
  return rows;
}

}  // namespace

ScheduleTick::ScheduleTick(Flags& flags, WallClock& clock, FrmMain& frmMain, FrmPlayers& frmPlayers,
                           MusicSchedule& music, ScheduleTable& table, MessageWavs& wavs,
                           MessagePlayback& playback, Record& record)
    : TheFlags(flags),
      Clock(clock),
      TheGrid(frmMain.grdSchedule),
      TheFrmPlayers(frmPlayers),
      MusicClock(music),
      Table(table),
      Wavs(wavs),
      Playback(playback),
      TheRecord(record) {
  frmPlayers.tmrMessage.OnTimer = [this] { Tick(); };
}

void ScheduleTick::Tick() {
  // A minute is not accepted during a call or an announcement, even if closing an editor has
  // resumed the schedule during it. What is due then follows afterwards, if the minute lasts.
  if (TheFlags.CallActive || TheFlags.MessagePlaying) return;
  if (!AcceptMinute()) return;
  const std::string accepted = LastMinute;
  if (LosesToCall(accepted)) return;
  MusicClock.CheckMusicStart();
  MusicClock.CheckMusicStop();
  // A call, ours or the amplifier's, may have begun during the fade that stops the music, and so
  // may another minute.
  if (LosesToCall(accepted)) return;
  if (TheFlags.CurrentMinute != accepted) Lose(accepted, LossReason::Fade);
  if (TheFlags.CurrentMinute == "00:00") StartNewDay();
  if (!FindDueRow()) return;
  LoseOtherRows();
  if (!RunsOn(ScheduleRow, Clock.Now().Weekday)) return;
  MarkFiringRow();
  CurrentTime = TheGrid.TextMatrix(ScheduleRow, kTimeColumn);
  CurrentMessageInfo = TheGrid.TextMatrix(ScheduleRow, kMessagesColumn);
  CurrentRouting = TheGrid.TextMatrix(ScheduleRow, kRoutingColumn);
  TheRecord.RowFires(RowAt(TheGrid, ScheduleRow), ZonesOfRow(CurrentRouting));
  Wavs.BuildMessageList(CurrentMessageInfo);
  Dispatch();
}

/// Whether this is the first tick of a minute. Once accepted, a minute is used up, whatever
/// follows.
bool ScheduleTick::AcceptMinute() {
  TheFlags.CurrentMinute = MinuteText(Clock.Now());
  if (TheFlags.CurrentMinute == LastMinute) return false;
  LastMinute = TheFlags.CurrentMinute;
  return true;
}

/// Whether a call, ours or the amplifier's, takes precedence over the rows of a minute, which are
/// then lost.
bool ScheduleTick::LosesToCall(const std::string& minute) const {
  if (!TheFlags.CallActive && TheFlags.PriorityClear) return false;
  Lose(minute, TheFlags.CallActive ? LossReason::Call : LossReason::Takeover);
  return true;
}

void ScheduleTick::Lose(const std::string& minute, LossReason reason) const {
  TheRecord.RowsAreLost(RowsOf(minute, Clock.Now().Weekday), reason);
}

void ScheduleTick::StartNewDay() {
  Table.RebuildScheduleTable();
  TheFlags.MusicStoppedByUser = false;
}

/// Finds the first row of the minute that is not removed. A second one is never played.
bool ScheduleTick::FindDueRow() {
  for (ScheduleRow = 1; ScheduleRow < TheGrid.Rows(); ++ScheduleRow) {
    if (TheGrid.RowHeight(ScheduleRow) != 0 &&
        TimeOf(TheGrid, ScheduleRow) == TheFlags.CurrentMinute)
      return true;
  }
  return false;
}

/// Only the first row of a minute is announced, and none if that one is not of today.
void ScheduleTick::LoseOtherRows() const {
  const int weekday = Clock.Now().Weekday;
  std::vector<RecordedRow> others = RowsOf(TheFlags.CurrentMinute, weekday);
  if (RunsOn(ScheduleRow, weekday)) others.erase(others.begin());
  TheRecord.RowsAreLost(others, LossReason::OtherRow);
}

/// Deliberate: tests the mask without its sixth character. On Saturdays it finds Sunday's digit
/// instead; on Sundays it finds none, so the row fires. An empty cell fires every day.
bool ScheduleTick::RunsOn(int row, int weekday) const {
  const std::string& mask = TheGrid.TextMatrix(row, kDaysColumn);
  std::string tested(FirstCharacters(mask, 5));
  tested += CharactersFrom(mask, 7, 2);
  return DayIsOn(tested, weekday);
}

std::vector<RecordedRow> ScheduleTick::RowsOf(const std::string& minute, int weekday) const {
  return DueRows(TheGrid,
                 [&](int row) { return TimeOf(TheGrid, row) == minute && RunsOn(row, weekday); });
}

std::vector<RecordedRow> ScheduleTick::RowsBetween(const std::string& after,
                                                   const std::string& before, int weekday) const {
  return DueRows(TheGrid, [&](int row) {
    const std::string time = TimeOf(TheGrid, row);
    return time > after && time < before && RunsOn(row, weekday);
  });
}

bool ScheduleTick::RowWaits() const {
  return TheFlags.MessageAwaitingSongEnd && TheFrmPlayers.lstMsgSequence.ListCount() > 0 &&
         TheFrmPlayers.MP3Player.PlayState() != kStopped;
}

bool ScheduleTick::HasStopped() const {
  const bool isHeld =
      TheFlags.CallActive || RowWaits() || TheFlags.MessagePlaying || TheFlags.FadeRunning;
  return TheFrmPlayers.ScheduleIsHeld() && !isHeld;
}

/// Clears the marks of the rows above the firing one, conflict marks included, marks the firing
/// row, and leaves it the current row.
void ScheduleTick::MarkFiringRow() {
  constexpr int kRowsAbove = 6;
  for (int row = 1; row <= ScheduleRow; ++row) PaintRow(row, kWhite, kBlack);
  if (ScheduleRow > kRowsAbove) TheGrid.SetTopRow(ScheduleRow - kRowsAbove);
  PaintRow(ScheduleRow, kNavy, kWhite);
}

void ScheduleTick::PaintRow(int row, Color back, Color text) {
  TheGrid.SetRow(row);
  for (int column = 0; column < Grid::kColumns; ++column) {
    TheGrid.SetCol(column);
    TheGrid.SetCellColors(back, text);
  }
}

void ScheduleTick::Dispatch() {
  if (PlaysAtBreak(TheGrid, ScheduleRow) && TheFrmPlayers.MP3Player.PlayState() == kPlaying) {
    TheFrmPlayers.HoldSchedule();
    TheFlags.MessageAwaitingSongEnd = true;
    TheRecord.RowWaits();
    return;
  }
  TheFlags.MessageAwaitingSongEnd = false;
  Playback.PlayMessageSequence(CurrentRouting);
}

}  // namespace marlex
