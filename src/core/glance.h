#pragma once

#include <string>

#include "i18n/string_table.h"
#include "platform/wall_clock.h"
#include "schedule/schedule_tick.h"
#include "state/flags.h"
#include "windows/frm_players.h"
#include "windows/windows.h"

namespace marlex {

/// What has the desk: of several the last one that applies. A call of the amplifier that holds back
/// what we would begin counts before the music or the message that may sound on under it.
enum class OnAir { Silence, Music, Message, Amplifier, Call };

/// A row that has not fired yet: its time, with the mark of its mode, and its messages. Both empty
/// for none.
struct ComingRow {
  std::string Time;
  std::string Messages;

  bool operator==(const ComingRow&) const = default;
};

/// What is to be read from across the room.
struct Glance {
  OnAir What = OnAir::Silence;
  std::string Name;  // the song or the message; of a call what its key or its note says
  ComingRow Next;    // in its place, without a time, the note that the schedule stands still

  bool operator==(const Glance&) const = default;
};

/// Looks at the desk as somebody does who passes by. It changes nothing.
class Passerby {
 public:
  Passerby(const Flags& flags, const Windows& windows, const FrmPlayers& frmPlayers,
           const ScheduleTick& tick, WallClock& clock, const StringTable& strings)
      : TheFlags(flags),
        TheFrmMain(windows.frmMain),
        TheFrmPlayers(frmPlayers),
        Tick(tick),
        Clock(clock),
        Strings(strings) {}

  Glance Look() const;

 private:
  OnAir What() const;
  std::string NameOf(OnAir what) const;
  ComingRow Next() const;
  ComingRow NextToday() const;
  bool StandsStill() const;
  bool RowWaits() const;

  const Flags& TheFlags;
  const FrmMain& TheFrmMain;
  const FrmPlayers& TheFrmPlayers;
  const ScheduleTick& Tick;
  WallClock& Clock;
  const StringTable& Strings;
};

}  // namespace marlex
