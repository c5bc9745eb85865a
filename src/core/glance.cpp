#include "core/glance.h"

#include "state/week_time.h"
#include "text/paths.h"

namespace marlex {
namespace {

constexpr const char* kLastMinuteOfDay = "23:59";

}  // namespace

Glance Passerby::Look() const {
  const OnAir what = What();
  return {what, NameOf(what), Next(), TheDay.Look(), SpeechIsOn(), IsHeldBack()};
}

/// The row that waits for the music break, otherwise the next one that the tick will fire today.
ComingRow Passerby::Next() const {
  if (HasStopped()) return {"", Strings.LoadString(kStrScheduleStopped)};
  if (Tick.RowWaits()) return {Tick.CurrentTime, Tick.CurrentMessageInfo};
  return NextToday();
}

/// Whether the schedule is held although no call, message or fade is in progress and no row waits:
/// its editor is open, the amplifier has cut off a call, or Stop has ended the song that a row was
/// waiting for.
bool Passerby::HasStopped() const {
  const bool isHeld =
      TheFlags.CallActive || Tick.RowWaits() || TheFlags.MessagePlaying || TheFlags.FadeRunning;
  return TheFrmPlayers.ScheduleIsHeld() && !isHeld;
}

ComingRow Passerby::NextToday() const {
  const Grid& table = TheFrmMain.grdSchedule;
  const std::string now = MinuteText(Clock.Now());
  std::string passed;  // minute whose first row does not run today
  for (int row = 1; row < table.Rows(); ++row) {
    const std::string time = TimeOf(table, row);
    const bool isOver = time < now || time == Tick.LastMinute || time == passed;
    const bool neverComes = time > kLastMinuteOfDay;  // such as ":" from an unreadable file
    if (isOver || neverComes || table.RowHeight(row) == 0) continue;
    if (Tick.RunsToday(row))
      return {table.TextMatrix(row, kTimeColumn), table.TextMatrix(row, kMessagesColumn)};
    passed = time;
  }
  return {};
}

OnAir Passerby::What() const {
  if (TheFlags.CallActive) return SpeechIsOn() ? OnAir::Call : OnAir::Wait;
  if (IsHeldBack()) return OnAir::Amplifier;
  if (MessageIsOn()) return OnAir::Message;
  return TheFrmPlayers.MP3Player.PlayState() == kPlaying ? OnAir::Music : OnAir::Silence;
}

/// During a takeover the master is muted, whatever goes on playing.
bool Passerby::SpeechIsOn() const {
  if (TheFlags.PriorityPreempted) return false;
  return TheFlags.CallActive ? CallWord() == Strings.LoadString(kStrSpeak) : MessageIsOn();
}

/// A takeover lasts until the amplifier reports the end of the call, at whatever level in between.
bool Passerby::IsHeldBack() const {
  return (TheFlags.PriorityPreempted || !TheFlags.PriorityClear) && TheFrmMain.lblHiPrio.Visible;
}

/// Chimes and previews count as messages, but do not set the flag.
bool Passerby::MessageIsOn() const {
  return TheFlags.MessagePlaying || TheFrmPlayers.WavPlayer.Mode() == kWavePlaying;
}

const std::string& Passerby::CallWord() const {
  return TheFrmMain.frCall.Visible ? TheFrmMain.cmdCall2.Caption : TheFrmMain.cmdCall.Caption;
}

std::string Passerby::NameOf(OnAir what) const {
  switch (what) {
    case OnAir::Music:
      return SoundName(TheFrmPlayers.MP3Player.FileName());
    case OnAir::Message:
      return SoundName(TheFrmPlayers.WavPlayer.FileName);
    case OnAir::Amplifier:
      return TheFrmMain.lblHiPrio.Caption;
    case OnAir::Wait:
    case OnAir::Call:
      return CallWord();
    case OnAir::Silence:
      break;
  }
  return "";
}

}  // namespace marlex
