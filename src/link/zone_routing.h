#pragma once

#include <string>

#include "amplifier/bytes.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The zones of the music and of calls, and the six labels that show which zones are on now.
///
/// The labels are the routing: they alone determine the next routing byte, and only this class
/// paints them. They show the call zones from the end of a call's fade until the call ends, the
/// zones of a row while it is announced, and otherwise the music zones: from the load of the main
/// window on, and again from the start of a takeover. A music zone button changes its label at any
/// time. `RequestRouting` then starts `tmrIODelay`, whose tick sends the byte
/// (`SerialLink::SendRoutingByte`).
///
/// If no label is lit, the zones that are due are empty: no music zone button is down, no call zone
/// is saved, or the row's zone text has none. Labels lit but zones silent: there is no router, a
/// takeover holds the byte back, or a release byte was sent since, which changes no label.
class ZoneRouting {
 public:
  ZoneRouting(FrmMain& frmMain, FrmPlayers& frmPlayers, SettingsStore& store);

  /// ApplyMusicRouting is setting the buttons, so their changes save nothing.
  bool RoutingRestoreGuard = false;

  /// Sets the buttons and labels from `MusicRouting`, then saves it in six characters.
  void ApplyMusicRouting();

  /// Sets the buttons from `CallRouting`; disables the call button if there are no zones.
  void ApplyCallRouting();

  void SaveMusicRouting();
  void SaveCallRouting();

  /// Shows the zones of `CallRouting` on the labels and requests the routing byte.
  void ShowCallZones();

  /// The same for the zone text of a schedule row, such as "103000": zone n is on if character n is
  /// the digit n.
  void ShowMessageZones(const std::string& zoneText);

  /// The routing byte goes out at the next tick of `tmrIODelay`, within 200 ms, or after a
  /// takeover. No effect without a router.
  void RequestRouting();

  /// Sends the release byte at once, even while a takeover holds routing bytes back. The labels
  /// stay as they are.
  void Release();

  Zones ShownZones() const;  // the zones whose labels are lit

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
