#include "schedule/message_playback.h"

namespace marlex {
MessagePlayback::MessagePlayback(Flags& flags, SettingsStore& store, FrmMain& frmMain,
                                 FrmPlayers& frmPlayers, SoundLines& lines, ZoneRouting& routing,
                                 Fades& fades, MusicPlayer& music, MessageWavs& wavs,
                                 Previews& previews)
    : TheFlags(flags),
      Store(store),
      TheFrmMain(frmMain),
      TheFrmPlayers(frmPlayers),
      Lines(lines),
      Routing(routing),
      TheFades(fades),
      Music(music),
      Wavs(wavs),
      ThePreviews(previews) {}

void MessagePlayback::PlayMessageSequence(const std::string& currentRouting) {
  ThePreviews.End();
  TheFrmPlayers.HoldSchedule();
  TheFrmMain.EnableTransport(false);
  if (MusicIs(kPlaying) && !ClearMusic()) return;
  RouteMessage(currentRouting);
  Announce();
  if (TheFlags.PriorityPreempted) {
    // Routing and music are in the care of the amplifier's end of call.
    ResumeScheduleAndTransport();
    return;
  }
  if (TheFlags.CallActive) return;  // the end of the call restores everything
  RestoreRouting();
  RestoreMusic();
  ResumeScheduleAndTransport();
}

/// Fades the music and pauses it. False when a call or the amplifier took over in the fade, and the
/// announcement is over.
bool MessagePlayback::ClearMusic() {
  if (Store.Values.FadeTime > 0) {
    TheFades.FadeDown();
    if (TheFlags.CallActive) return false;
    if (TheFlags.PriorityPreempted) {
      TheFrmPlayers.ResumeSchedule();
      TheFrmMain.EnableTransport(true);
      return false;
    }
  }
  if (MusicIs(kPlaying)) TheFrmPlayers.MP3Player.Pause();
  return true;
}

/// The zones follow the release by 200 ms, during the start of the first message.
void MessagePlayback::RouteMessage(const std::string& currentRouting) {
  if (!Store.Values.RouterPresent) return;
  if (TheFlags.AmplifierStatus != 0) Routing.Release();
  Routing.ShowMessageZones(currentRouting);
}

void MessagePlayback::Announce() {
  PaintPlayingCell(kGreen, kBlack);
  EnableMusicZoneButtons(false);
  Wavs.PlayMessageWavs();
  EnableMusicZoneButtons(true);
  PaintPlayingCell(kNavy, kWhite);
}

/// The first cell of the table's current row, on which the tick left it; an operator who rebuilds
/// the table meanwhile has another row painted, and one who empties it none.
void MessagePlayback::PaintPlayingCell(Color back, Color text) {
  if (TheFrmMain.grdSchedule.Row() == 0) return;
  TheFrmMain.grdSchedule.SetCol(kTimeColumn);
  TheFrmMain.grdSchedule.SetCellColors(back, text);
}

void MessagePlayback::EnableMusicZoneButtons(bool enabled) {
  for (int zone = 0; zone < kZones; ++zone) TheFrmMain.cmdMusicZones[zone].Enabled = enabled;
}

void MessagePlayback::RestoreRouting() {
  Routing.ApplyMusicRouting();
  if (!Store.Values.RouterPresent) return;
  if (MusicIs(kPaused)) {
    TheFrmPlayers.tmrIODelay.Enabled = true;
  } else {
    Routing.Release();
  }
}

void MessagePlayback::RestoreMusic() {
  if (!MusicIs(kPaused)) return;
  Music.PlaySong();
  if (Store.Values.FadeTime > 0) {
    Lines.SetWave(FrmMxr::kSilent);
    TheFades.FadeUp();
  } else {
    Lines.SetWave(Store.Values.MusicVolume);
  }
}

void MessagePlayback::ResumeScheduleAndTransport() {
  TheFrmPlayers.ResumeSchedule();
  TheFrmMain.cmdPlay.Enabled = true;
  TheFrmMain.EnableSkipAndStop(MusicIs(kPlaying));
}

}  // namespace marlex
