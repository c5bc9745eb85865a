#include "scenario/inspectors/messages.h"

namespace marlex {

void MessagesInspector::Check() {
  if (Journaled(" wav play ")) {
    Require(!Before.Flags.PriorityPreempted || !TheDesk.MuteCheck(0),
            "A message begins while the master is muted");
  }
  CheckThatTheyGoOn();
}

void MessagesInspector::CheckThatTheyGoOn() {
  if (!State().MessagePlaying || !State().WavFinished || Call.LastsOverMessage())
    return EndReportedAtMs.reset();
  if (!EndReportedAtMs) EndReportedAtMs = NowMs();
  Require(NowMs() == *EndReportedAtMs, "A message has ended, and its sequence does not go on");
}

}  // namespace marlex
