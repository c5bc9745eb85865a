#include "core/glance.h"

#include "text/paths.h"

namespace marlex {
Glance Passerby::Look() const {
  const OnAir what = What();
  return {what, NameOf(what), Next(), TheDay.Look(), TheFaults.Texts(), SpeechIsOn(), IsHeldBack()};
}

/// The row that waits for the music break, otherwise the next one that the tick will fire today.
ComingRow Passerby::Next() const {
  if (Tick.HasStopped()) return {"", Strings.LoadString(kStrScheduleStopped)};
  if (Tick.RowWaits()) return {Tick.CurrentTime, Tick.CurrentMessageInfo};
  return NextToday();
}

ComingRow Passerby::NextToday() const {
  const std::vector<int> rows = TheDay.RowsToCome();
  if (rows.empty()) return {};
  const Grid& table = TheFrmMain.grdSchedule;
  return {table.TextMatrix(rows.front(), kTimeColumn),
          table.TextMatrix(rows.front(), kMessagesColumn)};
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
