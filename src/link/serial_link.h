#pragma once

#include <functional>
#include <string>

#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "link/zone_routing.h"
#include "mixer/sound_lines.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/record.h"
#include "state/settings.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The serial line to the amplifier. Sends routing bytes, computed from the zone labels
/// (link/zone_routing.h), and receives status bytes. amplifier/bytes.h explains their bits.
///
/// A status byte: the port reads it in the event loop -> `OnComm` sets `AmplifierStatus` and
/// `PriorityClear` and shows the note -> 128 and 192 interrupt music, message or call through their
/// flags (`TakeOver`) -> 0 restores what the call has taken (`EndPriority`), and 200 ms later
/// `ReturnMusicZones` requests the routing byte.
class SerialLink {
 public:
  SerialLink(Flags& flags, const Settings& settings, FrmMain& frmMain, FrmPlayers& frmPlayers,
             SoundLines& lines, ZoneRouting& routing, Previews& previews, Record& record,
             const StringTable& strings, Notices& notices);

  // Wired at composition.
  std::function<void()> ResumeMusic;
  std::function<void()> StopFade;  // where it is

  /// Call when the amplifier is no longer used: restores what its call has taken, since its end of
  /// call will never arrive.
  void ForgetAmplifier();

 private:
  void SendRoutingByte();  // tmrIODelay
  void OnComm();           // a status byte has come
  void ShowPriority();
  void TakeOver();  // status 128 or 192
  void ProcessPriority();
  void EndPriority();       // status 0
  void ReturnMusicZones();  // tmrDwellTimer

  Flags& TheFlags;
  const Settings& TheSettings;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  ZoneRouting& Routing;
  Previews& ThePreviews;
  Record& TheRecord;
  const StringTable& Strings;
};

}  // namespace marlex
