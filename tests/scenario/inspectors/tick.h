#pragma once

#include <cstdint>
#include <string>

#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// While the tick is on, it takes up each minute within one second after the beginning of the
/// minute, or after the end of a call or an announcement. The second starts over when a call or the
/// editor switches the tick on, even if it was on already, and when the clock or the machine jumps.
class TickInspector : public Inspector {
 public:
  TickInspector(const Scene& scene, const SequenceEditorInspector& editor)
      : Inspector(scene), SequenceEdits(editor) {}
  void Check() override;
  void Remember() override { Minute = LastMinute(); }

  void NotePress();  // that begins a call

  /// Whether the tick has taken up another minute in this event. Unknown for an event that opens or
  /// closes the editor, or begins a call.
  bool HasNewMinute() const { return LastMinute() != Minute; }
  const std::string& LastMinute() const { return TheDesk.Sys->Tick.LastMinute; }

 private:
  bool IsDisturbed(std::int64_t aheadS) const;

  const SequenceEditorInspector& SequenceEdits;
  std::string Minute;
  std::int64_t SteadySinceMs = 0;  // since then the tick has been on without a jump
  std::int64_t CheckedAtMs = 0;
  std::int64_t ClockAheadS = 0;  // of the virtual time, whose zero does not matter
};

}  // namespace marlex
