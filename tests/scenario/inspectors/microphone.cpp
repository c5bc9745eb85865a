#include "scenario/inspectors/microphone.h"

namespace marlex {

void MicrophoneInspector::Check() {
  const SimulatedMixer& card = TheDesk.Pc.Mixer;
  if (card.HasMissed(kComponentMicrophone, kControlMute)) return;
  if (card.Muted(kComponentMicrophone)) return;
  Require(State().CallActive, "The microphone is open without a call");
  Require(Call.KeyIsHeld(), "The microphone is open without a held key");
  Require(CallKeysSay(TheDesk, kStrSpeak), "The microphone is open, and the keys do not say so");
  Require(!State().PriorityPreempted, "The microphone is open under a takeover");
}

}  // namespace marlex
