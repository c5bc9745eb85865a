#include "scenario/inspectors/rest.h"

namespace marlex {

void RestInspector::Check() {
  if (!AtRest(TheDesk) || State().CallActive) return;
  CheckSilence();
  CheckTick();
  const bool nothingToPlay = Main().lstPlaylist.ListIndex() == ListBox::kNoSelection;
  Require(Main().cmdPlay.Enabled || Call.LeavesButtonsDisabled() || nothingToPlay,
          "At rest, and the play button is disabled");
}

void RestInspector::CheckSilence() {
  Require(!State().FadeRunning || Call.OwnsFade(), "At rest, and a fade runs");
  Require(!State().MessagePlaying, "At rest, and messages play");
  Require(TheDesk.Pc.Wav.Mode() != kWavePlaying || Call.OwnsWav() || Preview.Sounds(),
          "At rest, and a message sounds");
}

void RestInspector::CheckTick() {
  const bool awaiting = State().MessageAwaitingSongEnd;
  Require(TickIsOn() || awaiting || Call.IsCutShort() || SequenceEdits.IsOpen(),
          "At rest, and the tick is off without a reason");
  Require(
      !TickIsOn() || !awaiting || Call.LastsOverWaitingRow() || SequenceEdits.LastsOverWaitingRow(),
      "At rest, and the tick is on too early");
}

}  // namespace marlex
