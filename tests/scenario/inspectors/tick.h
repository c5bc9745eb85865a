#pragma once

#include <cstdint>
#include <string>

#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// A tick that is on takes up each minute within a second of the minute's beginning, or of the end
/// of a call or an announcement. The second begins again where a call or the editor switches the
/// tick on, which may have been on already, and where the clock or the machine jumps.
class TickInspector : public Inspector {
 public:
  TickInspector(const Scene& scene, const SequenceEditorInspector& editor)
      : Inspector(scene), Editor(editor) {}
  void Check() override;
  void Remember() override { Minute = LastMinute(); }

  void NotePress();  // that begins a call

  /// Whether the tick has taken up another minute in this event. Not known of an event that opens
  /// or closes the editor, or begins a call.
  bool HasNewMinute() const { return LastMinute() != Minute; }
  const std::string& LastMinute() const { return TheDesk.Sys->Tick.LastMinute; }

 private:
  bool IsDisturbed(std::int64_t aheadS) const;

  const SequenceEditorInspector& Editor;
  std::string Minute;
  std::int64_t SteadySinceMs = 0;  // the tick is on, and neither clock nor machine jumped
  std::int64_t CheckedAtMs = 0;
  std::int64_t ClockAheadS = 0;  // of the virtual time, whose zero does not matter
};

}  // namespace marlex
