#pragma once

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/preview.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// While nothing waits and no call is speaking, no fade runs, no message plays, the play button is
/// enabled if a song is selected, and the tick is off only for a row that waits for the song's end
/// or for the message schedule editor. After a call that was cut short the tick stays off until the
/// next complete call, and so do the buttons if that call had cut off a message.
class RestInspector : public Inspector {
 public:
  RestInspector(const Scene& scene, const SequenceEditorInspector& editor,
                const PreviewInspector& preview, const CallTraces& call)
      : Inspector(scene), SequenceEdits(editor), Preview(preview), Call(call) {}
  void Check() override;

 private:
  void CheckSilence();
  void CheckTick();

  const SequenceEditorInspector& SequenceEdits;
  const PreviewInspector& Preview;
  const CallTraces& Call;
};

}  // namespace marlex
