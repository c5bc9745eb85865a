#pragma once

#include <functional>
#include <string>

#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "link/zone_routing.h"
#include "mixer/sound_lines.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The line to the amplifier. Out go routing bytes, computed from the zone labels; in come status
/// bytes. amplifier/priority.h has what their bits mean.
class SerialLink {
 public:
  SerialLink(Flags& flags, SettingsStore& store, FrmMain& frmMain, FrmPlayers& frmPlayers,
             SoundLines& lines, ZoneRouting& routing, Previews& previews,
             const StringTable& strings, Notices& notices);

  /// Resumes the music; wired at composition.
  std::function<void()> ResumeMusic;

  /// For an amplifier that is no longer spoken to: what it had taken is given back, since its end
  /// of a call will never come.
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
  SettingsStore& Store;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  ZoneRouting& Routing;
  Previews& ThePreviews;
  const StringTable& Strings;
};

}  // namespace marlex
