#pragma once

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/preview.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// While nothing waits, and no call speaks, no fade runs, no message plays, the play key is alive
/// where a song is selected, and the tick is off only for a row that waits for the song's end or
/// for the message schedule editor. After a call that was cut short the tick stays off until the
/// next whole one, and so do the keys where that call had cut a message off.
class RestInspector : public Inspector {
 public:
  RestInspector(const Scene& scene, const SequenceEditorInspector& editor,
                const PreviewInspector& preview, const CallTraces& call)
      : Inspector(scene), Editor(editor), Preview(preview), Call(call) {}
  void Check() override;

 private:
  void CheckSilence();
  void CheckTick();

  const SequenceEditorInspector& Editor;
  const PreviewInspector& Preview;
  const CallTraces& Call;
};

}  // namespace marlex
