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
#include "state/record.h"
#include "state/settings.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// How far the operator's call has come, and what a release of the button does at each stage:
///
///   Beginning   The button is down; messages are being cut off. The call ends unheard.
///   Fading      The music is fading down. The fade turns round, and the press ends the call. If
///               the fade is over but a nested wait still holds up the press, a new fade up starts.
///   Chiming     The zones are routed. The pre-chime plays to its end; no post-chime follows.
///   Speaking    The microphone is open. The post-chime plays; then zones and music are restored.
///   Ending      The button was released. Nothing happens: a call is released once.
///
/// While `CallActive` is false there is no call: it has ended, or the amplifier has taken over.
enum class CallStage { Beginning, Fading, Chiming, Speaking, Ending };

/// A call by the operator: press a call button, hear the chime, speak, release. Press and release
/// are two procedures that wait. The release may arrive during any wait of the press, the amplifier
/// may end the call during any wait of either, and if another procedure waits further up the stack,
/// even the next call may have begun before a wait returns. So after each wait both check that the
/// call is still theirs.
class CallSequence {
 public:
  CallSequence(Flags& flags, const Settings& settings, EventLoop& loop, FrmMain& frmMain,
               FrmPlayers& frmPlayers, SoundLines& lines, ZoneRouting& routing, Fades& fades,
               MusicPlayer& music, Previews& previews, Record& record, const StringTable& strings);

  /// Handles the press of a call button. No effect during a call, or while the amplifier reports a
  /// call that takes precedence.
  ///
  /// Waits until the microphone is open, or the call has ended before that. Then test `CallActive`.
  void StartCall();

  /// Handles the release of a call button. No effect unless a call is in progress.
  ///
  /// Waits for what still sounds: a pre-chime that has begun, the post-chime, the fade of the
  /// music. Then test `CallActive`, which may be that of another call.
  void EndCall();

 private:
  /// The current call, or the last one. A press that begins a call resets it.
  struct Call {
    int Number = 0;  // number of calls since the start
    CallStage Stage = CallStage::Beginning;
    bool ReleasedInChime = false;  // in the pre-chime; the next call clears the flag
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
  const Settings& TheSettings;
  EventLoop& Loop;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  ZoneRouting& Routing;
  Fades& TheFades;
  MusicPlayer& Music;
  Previews& ThePreviews;
  Record& TheRecord;
  const StringTable& Strings;
};

}  // namespace marlex
