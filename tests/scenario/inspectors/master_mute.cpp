#include "scenario/inspectors/master_mute.h"

namespace marlex {

void MasterMuteInspector::Check() {
  const bool muted = TheDesk.MuteCheck(0);
  if (Before.Flags.PriorityPreempted && State().PriorityPreempted && WasMuted && !muted) {
    const bool waitedForTheBreak =
        Before.Flags.MessageAwaitingSongEnd && !State().MessageAwaitingSongEnd;
    Require(State().MessagePlaying || waitedForTheBreak || State().PriorityClear,
            "The master opens during a takeover and nothing starts");
  }
  // Where the card shows no wave line, the master takes its place.
  const bool isWaveLineToo = TheDesk.Sys->Mixer.WaveLine == 0;
  if (muted && HasSounded && !isWaveLineToo)
    Require(State().PriorityPreempted, "The master is muted without a takeover");
}

void MasterMuteInspector::Remember() {
  WasMuted = TheDesk.MuteCheck(0);
  if (Main().Loaded() && !WasMuted) HasSounded = true;
}

}  // namespace marlex
