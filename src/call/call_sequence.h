#pragma once

#include <string>

#include "i18n/string_table.h"
#include "link/zone_routing.h"
#include "mixer/sound_lines.h"
#include "music/fades.h"
#include "music/music_player.h"
#include "platform/event_loop.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// How far a call of the operator has come, and what its release does then:
///
///   Beginning   The key is down, messages are cut off. The call ends before anything of it sounds.
///   Fading      Music fades down. The fade turns round, and the press ends the call. A fade that
///   is
///               over while something on top holds the press is followed by one up.
///   Chiming     The zones are routed. The pre-chime plays to its end, and no post-chime follows.
///   Speaking    The microphone is open. Post-chime; then zones and music come back.
///   Ending      The key was let go. Nothing: a call is released once.
///
/// No call is on while `CallActive` is False: from its end on, and from a takeover on.
enum class CallStage { Beginning, Fading, Chiming, Speaking, Ending };

/// A call of the operator: press a call key, hear the chime, speak, let go. Press and release are
/// two procedures that wait. The release may come in the middle of the press's waits; the amplifier
/// may end the call in any of them; and where something else waits on top, even the next call may
/// have begun when a wait returns. So both ask after each wait whether the call is still theirs.
class CallSequence {
 public:
  CallSequence(Flags& flags, SettingsStore& store, EventLoop& loop, FrmMain& frmMain,
               FrmPlayers& frmPlayers, SoundLines& lines, ZoneRouting& routing, Fades& fades,
               MusicPlayer& music, Previews& previews, const StringTable& strings);

  /// A call key is pressed.
  ///
  /// Waits until the microphone is open, or the call has ended before that.
  void StartCall();

  /// A call key is released.
  ///
  /// Waits for what still sounds: a pre-chime that has begun, the post-chime, the fade of the
  /// music.
  void EndCall();

 private:
  /// The call that is on, or the last one. Each press that begins a call begins it afresh.
  struct Call {
    int Number = 0;  // counts the calls since the start
    CallStage Stage = CallStage::Beginning;
    bool ReleasedInChime = false;  // its flag goes with the call
  };

  bool IsLast(int call) const { return call == TheCall.Number; }
  bool GoesOn(int call) const;

  int BeginCall();
  void CutMessagesOff();
  void FadeMusic();
  void PauseMusic();
  void RouteCall();
  void PlayPreChime(int call);
  void OpenMicrophone();
  void TakeRelease(int call);

  void EndInFade(int call);
  void NoteReleaseInChime(CallStage stage);
  void AwaitPreChime();
  void PlayPostChime(int call);
  bool RestoreRouting();
  void RestoreMusic();

  void PlayChime(int call, const std::string& chime);
  void DarkenLamps();
  void SetCaptions(StringId caption);
  void FlashLamps();  // tmrFlash
  int MusicState() const { return TheFrmPlayers.MP3Player.PlayState(); }

  Call TheCall;

  Flags& TheFlags;
  SettingsStore& Store;
  EventLoop& Loop;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  ZoneRouting& Routing;
  Fades& TheFades;
  MusicPlayer& Music;
  Previews& ThePreviews;
  const StringTable& Strings;
};

}  // namespace marlex
