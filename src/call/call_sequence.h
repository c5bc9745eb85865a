#pragma once

#include <functional>
#include <string>

#include "i18n/string_table.h"
#include "link/zone_routing.h"
#include "mixer/mixer_access.h"
#include "music/fades.h"
#include "music/music_player.h"
#include "platform/event_loop.h"
#include "state/flags.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_mxr.h"
#include "windows/frm_players.h"

namespace marlex {

/// A call of the operator: he presses a key, hears the chime, speaks, and lets it go. The press and
/// the release are two procedures that wait, and the release may come in the midst of the press's
/// waits; the shared flags are how they learn of each other.
class CallSequence {
 public:
  CallSequence(Flags& flags, SettingsStore& store, EventLoop& loop, FrmMain& frmMain,
               FrmPlayers& frmPlayers, FrmMxr& frmMxr, MixerAccess& mixer, ZoneRouting& routing,
               Fades& fades, MusicPlayer& music, const StringTable& strings);

  /// A preview that plays ends; wired at composition.
  std::function<void()> CutPreviewOff;

  void StartCall();  // a call key is pressed
  void EndCall();    // and released

 private:
  void CutMessagesOff();
  bool GoesOn();
  bool ClearMusic();
  void TakeReleaseInFade();
  void RouteCall();
  bool PlayPreChime();
  void OpenMicrophone();

  void EndInFade();
  bool PlayPostChime();
  bool RestoreRouting();
  void RestoreMusic();

  bool PlayChime(const std::string& chime);
  void SetCaptions(StringId caption);
  void PaintLamps(Color color);
  void FlashLamps();  // tmrFlash
  int MusicState() const { return TheFrmPlayers.MP3Player.PlayState(); }

  Flags& TheFlags;
  SettingsStore& Store;
  EventLoop& Loop;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  FrmMxr& TheFrmMxr;
  MixerAccess& Mixer;
  ZoneRouting& Routing;
  Fades& TheFades;
  MusicPlayer& Music;
  const StringTable& Strings;

  int Calls = 0;  // since the start; a press or a release whose call is no longer the last is over
  bool PreChimeStarted = false;  // in this call; only a chime that plays can be waited for
  bool ReleasedInFade = false;   // this call, also when its flag was left set by an earlier one
  bool PastItsFade = false;      // from then on to its release; a fade that runs is not the call's
};

}  // namespace marlex
