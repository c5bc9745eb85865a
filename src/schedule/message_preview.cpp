#include "schedule/message_preview.h"

#include <utility>

#include "state/media_names.h"

namespace marlex {

MessagePreview::MessagePreview(Flags& flags, const Settings& settings, EventLoop& loop,
                               WavWindow& window, FrmPlayers& frmPlayers, SoundLines& lines,
                               MusicPlayer& music, Previews& previews, const StringTable& strings)
    : TheFlags(flags),
      TheSettings(settings),
      Loop(loop),
      Window(window),
      TheFrmPlayers(frmPlayers),
      Lines(lines),
      Music(music),
      ThePreviews(previews),
      Strings(strings) {
  window.PrevKey.OnClick = [this] { PrevKey_Click(); };
}

void MessagePreview::PrevKey_Click() {
  if (Window.PrevKey.Caption.Get() != Strings.LoadString(kStrPlay)) {
    RequestStop();
  } else if (!Playing && ThePreviews.MayBegin()) {
    Play();
  }
}

/// Deliberate: the command is a word in the chosen language, and the player knows only the English
/// one: in other languages the message plays to its end. A chime or an announcement that uses the
/// player by now is left alone.
void MessagePreview::RequestStop() {
  PreviewStopRequested = true;
  if (!ThePreviews.HoldWavPlayer) return;
  TheFrmPlayers.WavPlayer.Command(Strings.LoadString(kStrClose));
  TheFlags.WavFinished = true;
}

/// The preview's own wait may be further down the stack; it sees the request once the waits above
/// it are over.
void MessagePreview::End() {
  if (!std::exchange(ThePreviews.HoldWavPlayer, false)) return;
  TheFrmPlayers.WavPlayer.Command("Close");
  PreviewStopRequested = Playing;
}

void MessagePreview::Play() {
  PreviewStopRequested = false;
  Window.PrevKey.Caption = Strings.LoadString(kStrStop);
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying) TheFrmPlayers.MP3Player.Pause();
  Window.RemAll_Key.Enabled = false;
  Lines.SetWave(TheSettings.MessageVolume);
  const Lifeline::Tie opening = Window.ThisOpening();
  Playing = ThePreviews.HoldWavPlayer = true;
  PlayMessages();
  Playing = false;
  Lines.SetWave(TheSettings.MusicVolume);
  if (opening.Holds()) {
    Window.PrevKey.Caption = Strings.LoadString(kStrPlay);
    Window.RemAll_Key.Enabled = true;
  }
  // Music that was paused for the preview does not count as playing and stays paused.
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying) Music.PlaySong();
}

void MessagePreview::PlayMessages() {
  for (int entry = 0; entry < Window.SelectedWavs.ListCount(); ++entry) {
    PlayMessage(Window.SelectedWavs.List(entry));
    if (PreviewStopRequested) break;
  }
  PreviewStopRequested = false;
}

/// Leaves the microphone closed.
void MessagePreview::PlayMessage(const std::string& name) {
  TheFrmPlayers.WavPlayer.OpenMessage(MessagePath(TheSettings, name));
  TheFlags.WavFinished = false;
  TheFrmPlayers.WavPlayer.Command("Play");
  Lines.OpenMaster();
  Lines.OpenWave();
  Lines.CloseMicrophone();
  Loop.PumpUntil([this] { return TheFlags.WavFinished || PreviewStopRequested; });
}

}  // namespace marlex
