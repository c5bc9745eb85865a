#pragma once

#include <string>
#include <vector>

#include "core/day_ribbon.h"
#include "core/faults.h"
#include "i18n/string_table.h"
#include "schedule/schedule_tick.h"
#include "state/flags.h"
#include "windows/frm_players.h"
#include "windows/windows.h"

namespace marlex {

/// What the installation is doing; if several apply, the one listed last. An amplifier's call that
/// keeps us from beginning anything takes precedence over the music or the message that may go on
/// playing during it. `Wait` is the part of a call in which the microphone is closed: what is said
/// then is lost.
enum class OnAir { Silence, Music, Message, Amplifier, Wait, Call };

/// A row that has not fired yet: its time cell, in which a "+" marks a row that waits for a music
/// break, and its messages. Both are empty if there is none.
struct ComingRow {
  std::string Time;
  std::string Messages;

  bool operator==(const ComingRow&) const = default;
};

/// What the operator can read from across the room.
struct Glance {
  OnAir What = OnAir::Silence;
  std::string Name;  // of the song or message; for a call, the text of its button or note
  ComingRow Next;    // without a time: the note that the schedule has stopped
  DayRibbon Day;
  std::vector<std::string> Faults;  // the newest first
  bool SpeechIsOn = false;  // the loudspeakers carry our speech or message, whatever else holds
  bool IsHeldBack = false;  // by a call of the amplifier

  bool operator==(const Glance&) const = default;
};

/// Sums up what is playing, what comes next, the day, and what is wrong, for the top of the main
/// window. Changes nothing.
class Passerby {
 public:
  Passerby(const Flags& flags, const Windows& windows, const FrmPlayers& frmPlayers,
           const ScheduleTick& tick, const DayPlan& day, const Faults& faults,
           const StringTable& strings)
      : TheFlags(flags),
        TheFrmMain(windows.frmMain),
        TheFrmPlayers(frmPlayers),
        Tick(tick),
        TheDay(day),
        TheFaults(faults),
        Strings(strings) {}

  Glance Look() const;

 private:
  OnAir What() const;
  bool SpeechIsOn() const;
  bool IsHeldBack() const;
  bool MessageIsOn() const;
  const std::string& CallWord() const;
  std::string NameOf(OnAir what) const;
  ComingRow Next() const;
  ComingRow NextToday() const;

  const Flags& TheFlags;
  const FrmMain& TheFrmMain;
  const FrmPlayers& TheFrmPlayers;
  const ScheduleTick& Tick;
  const DayPlan& TheDay;
  const Faults& TheFaults;
  const StringTable& Strings;
};

}  // namespace marlex
