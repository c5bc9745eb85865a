#pragma once

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// What a call holds while it lasts and what it leaves behind: a tick that is off, a message that
/// is cut off, zones, dead keys. Has no rules; other inspectors ask it what to excuse. Deliberate:
/// a call that is cut short leaves its traces until the next whole one ends.
class CallTraces : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;
  void Remember() override;

  void NotePress();  // that begins a call

  /// A call is active, or some of its waits are left.
  bool Stands() const { return IsStanding; }

  /// A call switched the tick off, and nobody has switched it on again.
  bool HoldsTick() const { return TickOff; }

  /// The amplifier, or a release kept from an earlier call, ended a call before it put things
  /// right.
  bool IsCutShort() const { return CutShort; }

  /// A call came over a row that waits for the song's end, and leaves it with the tick on.
  bool StandsOverWaitingRow() const { return OverWaitingRow; }

  /// A call cut the message off that still plays by the flags.
  bool StandsOverMessage() const { return OverMessage; }

  /// The WAV that sounds began under a call, or in its takeover.
  bool OwnsWav() const { return OwnWav; }

  /// A release ended the wait of the fade that runs.
  bool OwnsFade() const { return OwnFade; }

  /// The labels need not show the zones of the music.
  bool LeavesZones() const { return Zones; }

  /// The transport keys may be dead: those of an announcement that a call cut off.
  bool LeavesKeysDead() const { return DeadKeys; }

 private:
  bool CutShort = false;
  bool TickOff = false;
  bool IsStanding = false;
  bool OverWaitingRow = false;
  bool OverMessage = false;
  bool OwnWav = false;
  bool OwnFade = false;
  bool Zones = false;
  bool DeadKeys = false;
};

}  // namespace marlex
