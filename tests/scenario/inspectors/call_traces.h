#pragma once

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// What a call holds while it lasts and what it leaves: a tick that is off, a message that is cut
/// off, zones, disabled buttons. Has no rules; other inspectors ask it what to excuse. Deliberate:
/// a call that is cut short leaves its traces until the end of the next complete call.
class CallTraces : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;
  void Remember() override;

  void NotePress();  // that begins a call

  /// A call is active, or some of its waits have not ended yet.
  bool Lasts() const { return IsLasting; }

  /// A call switched the tick off, and nothing has switched it on again.
  bool HoldsTick() const { return TickOff; }

  /// The amplifier, or a release remembered from an earlier call, ended a call before it had
  /// restored everything.
  bool IsCutShort() const { return CutShort; }

  /// A call began while a row waited for the song's end, and leaves that row with the tick on.
  bool LastsOverWaitingRow() const { return OverWaitingRow; }

  /// A call cut off the message that is still playing according to the flags.
  bool LastsOverMessage() const { return OverMessage; }

  /// The WAV that is heard began during a call, or during its takeover.
  bool OwnsWav() const { return OwnWav; }

  /// A release ended the wait of the fade that is running.
  bool OwnsFade() const { return OwnFade; }

  /// The labels need not show the zones of the music.
  bool LeavesZones() const { return Zones; }

  /// The transport buttons may be disabled: those of an announcement that a call cut off.
  bool LeavesButtonsDisabled() const { return DisabledButtons; }

 private:
  bool CutShort = false;
  bool TickOff = false;
  bool IsLasting = false;
  bool OverWaitingRow = false;
  bool OverMessage = false;
  bool OwnWav = false;
  bool OwnFade = false;
  bool Zones = false;
  bool DisabledButtons = false;
};

}  // namespace marlex
