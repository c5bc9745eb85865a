#pragma once

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// The preview of a message ends with its editor, and when something with precedence begins.
/// Deliberate: in a language whose word for closing is not a command of the player, the operator's
/// stop leaves the preview playing.
class PreviewInspector : public Inspector {
 public:
  PreviewInspector(const Scene& scene, const SequenceEditorInspector& editor,
                   const CallTraces& call)
      : Inspector(scene), SequenceEdits(editor), Call(call) {}
  void Check() override;
  void Remember() override { Sounded = Sounding; }

  bool Sounds() const { return Sounding; }
  bool SoundedBefore() const { return Sounded; }  // before the event

 private:
  const SequenceEditorInspector& SequenceEdits;
  const CallTraces& Call;
  bool Sounding = false;
  bool Sounded = false;
};

}  // namespace marlex
