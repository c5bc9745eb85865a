#include "scenario/inspectors/zones.h"

namespace marlex {

void ZonesInspector::Check() {
  const bool begins = State().MessagePlaying && !Before.Flags.MessagePlaying;
  if (begins && Before.Flags.PriorityPreempted) LeftByMessages = true;
  if (!AtRest(TheDesk) || State().CallActive) return;
  for (int zone = 0; zone < kZones; ++zone)
    Require(Main().cmdMusicZones[zone].Enabled, "At rest, and a zone button is disabled");
  Require(LeftByMessages || Call.LeavesZones() || MusicZonesAreLit(TheDesk),
          "At rest, and the labels are not those of the music");
}

void ZonesInspector::Remember() {
  if (LeftByMessages && Main().Loaded()) LeftByMessages = !MusicZonesAreLit(TheDesk);
}

bool MusicZonesAreLit(Desk& desk) {
  FrmMain& main = desk.Main();
  for (int zone = 0; zone < kZones; ++zone) {
    const bool lit = main.lblCurrentZone[zone].BackColor == kGreen;
    if (lit != main.cmdMusicZones[zone].Value) return false;
  }
  return true;
}

}  // namespace marlex
