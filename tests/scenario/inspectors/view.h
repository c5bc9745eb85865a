#pragma once

#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// Exactly one of the two views of the table is ticked, and the table shows that one. While the
/// message schedule editor is open the table shows all days. Closing the editor restores the view
/// from before it was opened, whatever the operator has chosen from the view menus since.
class ViewInspector : public Inspector {
 public:
  ViewInspector(const Scene& scene, const SequenceEditorInspector& editor)
      : Inspector(scene), SequenceEdits(editor) {}
  void Check() override;
  void Remember() override { AllDaysTicked = Main().mnuAllDays.Checked; }

 private:
  const SequenceEditorInspector& SequenceEdits;
  bool AllDaysTicked = false;
  bool AllDaysOwed = false;  // as the menus say, or as the editor found it
};

}  // namespace marlex
