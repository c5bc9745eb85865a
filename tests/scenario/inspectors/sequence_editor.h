#pragma once

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"

namespace marlex {

/// While the message schedule editor is open the schedule is held, unless the tick is switched on
/// by the end of a call, of an announcement, or of a song for which a row waits. Closing the editor
/// always switches the tick on, whatever is going on, even if a row waits for the song's end.
class SequenceEditorInspector : public Inspector {
 public:
  SequenceEditorInspector(const Scene& scene, const CallTraces& call)
      : Inspector(scene), Call(call) {}

  /// Checks before the call's traces, which forget that a tick was off once it is on; the end of a
  /// call may be what switched it on.
  void Check() override;
  void Remember() override { Open = IsOpen(); }

  bool IsOpen() const { return TheDesk.Sys->TheWindows.TheWavWindow.Loaded(); }
  bool WasOpen() const { return Open; }                        // before this event
  bool ComesOrGoes() const { return IsOpen() != Open; }        // in this event
  bool LastsOverWaitingRow() const { return OverWaitingRow; }  // and leaves it with the tick on

 private:
  const CallTraces& Call;
  bool Open = false;
  bool OverWaitingRow = false;
};

}  // namespace marlex
