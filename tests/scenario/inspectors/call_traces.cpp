#include "scenario/inspectors/call_traces.h"

#include "scenario/inspectors/zones.h"

namespace marlex {

void CallTraces::Check() {
  const Flags& flags = State();
  if (AmplifierTookOver() && (Before.Flags.CallActive || TickOff)) CutShort = true;
  if (CutShort) Zones = DisabledButtons = true;
  if (TickIsOn()) {
    TickOff = false;
    if (!flags.CallActive) CutShort = false;
  }
  const bool called = flags.CallActive || TickOff;
  IsLasting = called || (IsLasting && TheDesk.Pc.Loop.Waits() > 1);
  // Without a router the end of a call paints no zones, whatever has painted them before.
  if (IsLasting && !Values().RouterPresent) Zones = true;
  OverWaitingRow = flags.MessageAwaitingSongEnd && (OverWaitingRow || IsLasting);
  OverMessage = flags.MessagePlaying && (OverMessage || IsLasting);
  OwnWav = TheDesk.Pc.Wav.Mode() == kWavePlaying && (OwnWav || called || AmplifierTookOver());
  OwnFade = flags.FadeRunning && (OwnFade || flags.CallEndedDuringFade);
}

void CallTraces::NotePress() {
  TickOff = true;
  CutShort |= State().CallEndedDuringChime && !Values().PreChime.empty();
  OverWaitingRow |= State().MessageAwaitingSongEnd;
}

void CallTraces::Remember() {
  if (!Main().Loaded() || CutShort) return;
  if (Zones) Zones = !MusicZonesAreLit(TheDesk);
  if (DisabledButtons) DisabledButtons = !Main().cmdPlay.Enabled;
}

}  // namespace marlex
