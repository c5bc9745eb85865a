#pragma once

#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// One of the two views of the table is ticked, and it is the one that the table shows. While the
/// message schedule editor is open the table shows all days; the editor's closing brings back the
/// view that it found, whatever the operator has chosen from the view menus meanwhile.
class ViewInspector : public Inspector {
 public:
  ViewInspector(const Scene& scene, const SequenceEditorInspector& editor)
      : Inspector(scene), Editor(editor) {}
  void Check() override;
  void Remember() override { AllDaysTicked = Main().mnuAllDays.Checked; }

 private:
  const SequenceEditorInspector& Editor;
  bool AllDaysTicked = false;
  bool AllDaysOwed = false;  // as the menus say, or as the editor found it
};

}  // namespace marlex
