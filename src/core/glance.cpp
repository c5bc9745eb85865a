#include "core/glance.h"

#include "state/file_names.h"

namespace marlex {

Glance Passerby::Look() const {
  const OnAir what = What();
  const ComingRow next = Next();
  return {what, NameOf(what), next.Time, next.Messages};
}

/// While the editor of the schedule is open nothing is announced, until a call has set the tick
/// going again.
ComingRow Passerby::Next() const {
  const bool standsStill = Editor.Loaded() && !TheFrmPlayers.tmrMessage.Enabled;
  if (standsStill && !TheFlags.MessageAwaitingSongEnd) return {};
  return Tick.NextToday();
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
