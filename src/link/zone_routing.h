#pragma once

#include <string>

#include "amplifier/priority.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// Which zones get the music and which a call, and the six labels that show which zones are fed
/// now.
///
/// The labels are the routing: they alone decide the next routing byte, and nobody else paints
/// them. The music zones are shown at the load of the main window, after a call, an announcement
/// and a takeover, and key by key as the operator sets them; the call zones from the fade of a call
/// on; the zones of a row while it is announced. RequestRouting then starts `tmrIODelay`, and the
/// byte goes out with its tick.
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

  /// Writes the release byte at once, past everything that holds a routing byte back.
  void Release();

  Zones ShownZones() const;

 private:
  void Show(const Zones& zones);
  void Paint(int zone, bool fed);
  void MusicZoneChanged(int zone);
  void CallZoneChanged();

  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SettingsStore& Store;
};

}  // namespace marlex
