#include "scenario/inspectors/preview.h"

namespace marlex {

void PreviewInspector::Check() {
  if (Journaled(" wav play ")) {
    const bool called =
        State().CallActive || Before.Flags.CallActive || Call.HoldsTick() || Call.Lasts();
    Sounding = SequenceEdits.IsOpen() && !State().MessagePlaying && !called;
  }
  Sounding = Sounding && TheDesk.Pc.Wav.Mode() == kWavePlaying;
  if (!Sounding) return;
  Require(SequenceEdits.IsOpen(), "A preview sounds, and the editor is closed");
  Require(!OutrunsPreviews(), "A preview sounds under what goes before it");
}

}  // namespace marlex
