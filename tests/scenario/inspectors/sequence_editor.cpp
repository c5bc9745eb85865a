#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

void SequenceEditorInspector::Check() {
  const bool closed = WasOpen() && !IsOpen();
  if (IsOpen() && !WasOpen()) Require(!TickIsOn(), "The editor opens, and the tick is on");
  if (closed) Require(TickIsOn(), "The editor has closed, and the tick is off");
  if (IsOpen() && TickIsOn() && !Before.TickOn) {
    const bool called = Before.Flags.CallActive || Call.HoldsTick() || Call.Lasts();
    Require(called || Before.Flags.MessageAwaitingSongEnd || Before.Waits > 1,
            "The tick comes on under the editor without a reason");
  }
  OverWaitingRow = State().MessageAwaitingSongEnd && (OverWaitingRow || IsOpen() || closed);
}

}  // namespace marlex
