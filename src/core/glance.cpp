#include "core/glance.h"

#include "state/week_time.h"
#include "text/paths.h"

namespace marlex {
namespace {

constexpr const char* kLastMinuteOfDay = "23:59";

}  // namespace

Glance Passerby::Look() const {
  const OnAir what = What();
  return {what, NameOf(what), Next()};
}

/// The row that waits for the music break, else the next that the tick will find and not pass over.
ComingRow Passerby::Next() const {
  if (StandsStill()) return {"", Strings.LoadString(kStrScheduleStopped)};
  if (RowWaits()) return {Tick.WaitingTime, Tick.CurrentMessageInfo};
  return NextToday();
}

/// A call and a takeover drop the messages of a row that waits, and the end of no song follows the
/// stop key.
bool Passerby::RowWaits() const {
  return TheFlags.MessageAwaitingSongEnd && TheFrmPlayers.lstMsgSequence.ListCount() > 0 &&
         TheFrmPlayers.MP3Player.PlayState() != kStopped;
}

/// The tick is off, and nothing is on that has to do with the schedule: its editor is open, the
/// amplifier has cut a call off, or the stop key the song for whose end a row waits.
bool Passerby::StandsStill() const {
  const bool isHeld =
      TheFlags.CallActive || RowWaits() || TheFlags.MessagePlaying || TheFlags.FadeRunning;
  return TheFrmPlayers.ScheduleIsHeld() && !isHeld;
}

ComingRow Passerby::NextToday() const {
  const Grid& table = TheFrmMain.grdSchedule;
  const std::string now = MinuteText(Clock.Now());
  std::string passed;  // a minute whose first row does not run today
  for (int row = 1; row < table.Rows(); ++row) {
    const std::string time = TimeOf(table, row);
    const bool isOver = time < now || time == Tick.LastMinute || time == passed;
    const bool neverComes = time > kLastMinuteOfDay;  // as of a file that could not be read
    if (isOver || neverComes || table.RowHeight(row) == 0) continue;
    if (Tick.RunsToday(row))
      return {table.TextMatrix(row, kTimeColumn), table.TextMatrix(row, kMessagesColumn)};
    passed = time;
  }
  return {};
}

OnAir Passerby::What() const {
  if (TheFlags.CallActive) return OnAir::Call;
  // A takeover lasts to the amplifier's end of call, whatever level it reports meanwhile.
  const bool holdsUsBack = TheFlags.PriorityPreempted || !TheFlags.PriorityClear;
  if (holdsUsBack && TheFrmMain.lblHiPrio.Visible) return OnAir::Amplifier;
  // A chime and a preview are messages without the flag.
  const bool wavePlays = TheFrmPlayers.WavPlayer.Mode() == kWavePlaying;
  if (TheFlags.MessagePlaying || wavePlays) return OnAir::Message;
  return TheFrmPlayers.MP3Player.PlayState() == kPlaying ? OnAir::Music : OnAir::Silence;
}

std::string Passerby::NameOf(OnAir what) const {
  switch (what) {
    case OnAir::Music:
      return SoundName(TheFrmPlayers.MP3Player.FileName());
    case OnAir::Message:
      return SoundName(TheFrmPlayers.WavPlayer.FileName);
    case OnAir::Amplifier:
      return TheFrmMain.lblHiPrio.Caption;
    case OnAir::Call:
      return TheFrmMain.frCall.Visible ? TheFrmMain.cmdCall2.Caption : TheFrmMain.cmdCall.Caption;
    case OnAir::Silence:
      break;
  }
  return "";
}

}  // namespace marlex
