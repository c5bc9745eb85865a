#pragma once

#include <optional>

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/sequence_editor.h"
#include "scenario/inspectors/table.h"
#include "scenario/inspectors/tick.h"

namespace marlex {

/// A minute that the tick takes up has its row fire, or has none, and nothing fires under a call.
/// The row is sought after the fade of the music's stop: another minute that comes in this fade
/// takes the place of the first, and a call of the amplifier that begins in it loses the row.
class FiringRowInspector : public Inspector {
 public:
  FiringRowInspector(const Scene& scene, const SequenceEditorInspector& editor,
                     const CallTraces& call, const TickInspector& tick, const TableInspector& table)
      : Inspector(scene), Editor(editor), Call(call), Tick(tick), Table(table) {}
  void Check() override;

  void NotePress() { BegunInWaits.reset(); }  // that begins a call

 private:
  void CheckRowThatFires();
  void CheckMinute();
  void CheckSearch();

  const SequenceEditorInspector& Editor;
  const CallTraces& Call;
  const TickInspector& Tick;
  const TableInspector& Table;
  std::optional<int> BegunInWaits;  // a minute whose row is yet to be sought
};

}  // namespace marlex
