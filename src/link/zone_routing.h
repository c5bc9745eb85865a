#pragma once

#include <string>

#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// Which zones get the music and which a call, and the six labels that show which zones are fed
/// now. The routing byte is computed from these labels, so painting them is choosing the zones.
class ZoneRouting {
 public:
  ZoneRouting(FrmMain& frmMain, FrmPlayers& frmPlayers, SettingsStore& store);

  bool RoutingRestoreGuard =
      false;  // ApplyMusicRouting is setting the keys, so their changes save nothing

  void ApplyMusicRouting();  // MusicRouting to keys and labels, then saved in its six characters
  void ApplyCallRouting();   // CallRouting to keys; no call to no zones
  void SaveMusicRouting();
  void SaveCallRouting();
  void ShowCallZones();

  /// Zones of a schedule row: zone n is on when character n is the digit n.
  void ShowMessageZones(const std::string& zoneText);

  void RequestRouting();  // asks for the routing byte; nothing without the router

 private:
  void Paint(int zone, bool fed);
  void MusicZoneChanged(int zone);
  void CallZoneChanged();

  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SettingsStore& Store;
};

}  // namespace marlex
