#include "scenario/inspectors/firing_row.h"

namespace marlex {

void FiringRowInspector::Check() {
  // The tick's timer shows whether a row has fired, but the editor switches that timer as well.
  if (SequenceEdits.ComesOrGoes()) BegunInWaits.reset();
  CheckRowThatFires();
  CheckMinute();
  CheckSearch();
}

/// Anything that switches the tick off, other than a call or the editor, has just painted the row
/// that fires.
void FiringRowInspector::CheckRowThatFires() {
  if (!Before.TickOn || TickIsOn() || Call.HoldsTick()) return;
  if (SequenceEdits.IsOpen() && !SequenceEdits.WasOpen()) return;
  Require(!Before.Flags.CallActive, "A row fires under a call");
  Require(State().PriorityClear || Before.Flags.PriorityClear,
          "A row fires under the amplifier's call");
  const int row = TheDesk.Sys->Tick.ScheduleRow;
  const Grid& table = Main().grdSchedule;
  const bool rebuiltSince = row >= table.Rows() || TheDesk.CellColor(row, kMessagesColumn) != kNavy;
  if (rebuiltSince) return;
  Require(table.RowHeight(row) != 0, "A removed row fires");
  Require(TheDesk.Cell(row, kTimeColumn).substr(0, 5) == State().CurrentMinute,
          "A row of another minute fires");
}

void FiringRowInspector::CheckMinute() {
  if (Tick.HasNewMinute()) {
    BegunInWaits.reset();
    Require(!Before.Flags.CallActive && !Before.Flags.MessagePlaying,
            "A minute is used up under a call or message");
    if (Before.Flags.PriorityClear) BegunInWaits = Before.Waits;
  }
  if (!State().PriorityClear) BegunInWaits.reset();
}

/// The search is over when the tick is off, or when the wait in which the search may be going on
/// has ended.
void FiringRowInspector::CheckSearch() {
  if (!BegunInWaits) return;
  if (!TickIsOn()) {
    Require(Rows.IsDue(TheDesk.Sys->Tick.ScheduleRow, Tick.LastMinute()),
            "Another row fires than the one that is due");
    ++Corners["a row that fires"];
  } else if (TheDesk.Pc.Loop.Waits() <= *BegunInWaits) {
    Require(Rows.IsDue(0, Tick.LastMinute()), "A row that is due does not fire");
  } else {
    return;
  }
  BegunInWaits.reset();
}

}  // namespace marlex
