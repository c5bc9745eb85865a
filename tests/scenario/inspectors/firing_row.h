#pragma once

#include <optional>

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/sequence_editor.h"
#include "scenario/inspectors/table.h"
#include "scenario/inspectors/tick.h"

namespace marlex {

/// When the tick takes up a minute, the row of that minute fires, if there is one; nothing fires
/// during a call. The row is looked up after the fade that stops the music: another minute that
/// comes during this fade replaces the first, and a call of the amplifier that begins during it
/// drops the row.
class FiringRowInspector : public Inspector {
 public:
  FiringRowInspector(const Scene& scene, const SequenceEditorInspector& editor,
                     const CallTraces& call, const TickInspector& tick, const TableInspector& table)
      : Inspector(scene), SequenceEdits(editor), Call(call), Tick(tick), Rows(table) {}
  void Check() override;

  void NotePress() { BegunInWaits.reset(); }  // that begins a call

 private:
  void CheckRowThatFires();
  void CheckMinute();
  void CheckSearch();

  const SequenceEditorInspector& SequenceEdits;
  const CallTraces& Call;
  const TickInspector& Tick;
  const TableInspector& Rows;
  std::optional<int> BegunInWaits;  // a minute whose row is not looked up yet
};

}  // namespace marlex
