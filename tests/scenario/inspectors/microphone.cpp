#include "scenario/inspectors/microphone.h"

namespace marlex {

void MicrophoneInspector::Check() {
  const SimulatedMixer& card = TheDesk.Pc.Mixer;
  if (card.HasMissed(kComponentMicrophone, kControlMute)) return;
  if (card.Muted(kComponentMicrophone)) return;
  Require(State().CallActive, "The microphone is open without a call");
  Require(Call.ButtonIsHeld(), "The microphone is open without a held button");
  Require(CallButtonsSay(TheDesk, kStrSpeak),
          "The microphone is open, and the buttons do not say so");
  Require(!State().PriorityPreempted, "The microphone is open under a takeover");
}

}  // namespace marlex
