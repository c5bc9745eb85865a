#pragma once

#include "mixer/sound_lines.h"
#include "platform/event_loop.h"
#include "state/flags.h"
#include "state/settings.h"
#include "windows/frm_players.h"

namespace marlex {

/// The fade of the wave line, one at a time: moves its slider in steps while the caller waits.
/// Positions run from 0, the loudest, to 65535, silence.
class Fades {
 public:
  Fades(Flags& flags, const Settings& settings, EventLoop& loop, FrmPlayers& frmPlayers,
        SoundLines& lines);

  int FadeStep = 0;     // slider units per step; 0 before the first fade
  int FadeSteps = 0;    // whole steps from the music volume to silence
  int FadeTarget = 0;   // position at which a fade-up ends
  bool FadeIn = false;  // fading up to FadeTarget, else down to silence

  /// Fades to silence.
  ///
  /// Waits until it is over, a call was released in the middle of it, or something has stopped it.
  /// Then test `CallActive` and `PriorityPreempted`.
  void FadeDown();

  /// Fades up from the slider's position, with the target and the speed of the last fade-down, even
  /// if the settings have changed since; if there was none, with those of the settings.
  ///
  /// Waits until it is over or something has stopped it. Then test `CallActive`; a call may also
  /// have begun and be over.
  void FadeUp();

  /// Brings the music up: from silence by a fade, or to its volume at once where fades are off.
  ///
  /// Waits like `FadeUp`.
  void BringMusicUp();

  /// Ends a fade where it is.
  void Stop();

 private:
  void WorkOutSteps();
  void Step();  // tmrFadeTime
  void StepUp(int position);
  void StepDown(int position);
  void EndAt(int position);

  Flags& TheFlags;
  const Settings& TheSettings;
  EventLoop& Loop;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
};

}  // namespace marlex
