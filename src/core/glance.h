#pragma once

#include <string>

#include "schedule/schedule_tick.h"
#include "state/flags.h"
#include "windows/frm_players.h"
#include "windows/windows.h"

namespace marlex {

/// What has the desk: of several the last one that applies. A call of the amplifier that holds back
/// what we would begin counts before the music or the message that may sound on under it.
enum class OnAir { Silence, Music, Message, Amplifier, Call };

/// What is to be read from across the room.
struct Glance {
  OnAir What = OnAir::Silence;
  std::string Name;      // the song or the message; of a call what its key or its note says
  std::string NextTime;  // of the message that comes next, with its mark; empty when none is left
                         // today, or when the schedule stands still
  std::string NextMessages;

  bool operator==(const Glance&) const = default;
};

/// Looks at the desk as somebody does who passes by. It changes nothing.
class Passerby {
 public:
  Passerby(const Flags& flags, const Windows& windows, const FrmPlayers& frmPlayers,
           const ScheduleTick& tick)
      : TheFlags(flags),
        TheFrmMain(windows.frmMain),
        Editor(windows.TheWavWindow),
        TheFrmPlayers(frmPlayers),
        Tick(tick) {}

  Glance Look() const;

 private:
  OnAir What() const;
  std::string NameOf(OnAir what) const;
  ComingRow Next() const;

  const Flags& TheFlags;
  const FrmMain& TheFrmMain;
  const WavWindow& Editor;
  const FrmPlayers& TheFrmPlayers;
  const ScheduleTick& Tick;
};

}  // namespace marlex
