#pragma once

#include <string>
#include <vector>

#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// When the pause after a save in the message schedule editor begins, the file holds all six values
/// as the fields had them before the event. A cancelled save begins the pause without writing a
/// file.
class SequenceSaveInspector : public Inspector {
 public:
  SequenceSaveInspector(const Scene& scene, const SequenceEditorInspector& editor)
      : Inspector(scene), SequenceEdits(editor) {}
  void Check() override;
  void Remember() override;

 private:
  bool IsInPause() const { return TheDesk.Sys->TheWindows.TheWavWindow.tmrWriteDelay.Enabled; }
  std::vector<std::string> ReadFields() const;

  const SequenceEditorInspector& SequenceEdits;
  std::vector<std::string> Fields;  // in the order of the file, except for the messages
  bool WasInPause = false;
};

}  // namespace marlex
