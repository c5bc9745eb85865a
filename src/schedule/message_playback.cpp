#include "schedule/message_playback.h"

namespace marlex {
MessagePlayback::MessagePlayback(Flags& flags, const Settings& settings, FrmMain& frmMain,
                                 FrmPlayers& frmPlayers, SoundLines& lines, ZoneRouting& routing,
                                 Fades& fades, MusicPlayer& music, MessageWavs& wavs,
                                 Previews& previews)
    : TheFlags(flags),
      TheSettings(settings),
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
    // The amplifier's end of call restores routing and music.
    ResumeScheduleAndTransport();
    return;
  }
  if (TheFlags.CallActive) return;  // the end of the call restores everything
  RestoreRouting();
  RestoreMusic();
  ResumeScheduleAndTransport();
}

/// Fades and pauses the music. False when a call or the amplifier took over during the fade: there
/// is then no announcement.
bool MessagePlayback::ClearMusic() {
  if (TheSettings.FadeTime > 0) {
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

/// The zones are sent 200 ms later, while the first message starts; if the amplifier has a call,
/// the release byte goes out first, at once.
void MessagePlayback::RouteMessage(const std::string& currentRouting) {
  if (!TheSettings.RouterPresent) return;
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

/// Paints the time cell of the table's current row, which the tick has set to the firing one. If
/// the table has been rebuilt since, another row is painted; if it has been emptied, none.
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
  if (!TheSettings.RouterPresent) return;
  if (MusicIs(kPaused)) {
    Routing.RequestRouting();
  } else {
    Routing.Release();
  }
}

void MessagePlayback::RestoreMusic() {
  if (!MusicIs(kPaused)) return;
  Music.PlaySong();
  TheFades.BringMusicUp();
}

void MessagePlayback::ResumeScheduleAndTransport() {
  TheFrmPlayers.ResumeSchedule();
  TheFrmMain.cmdPlay.Enabled = true;
  TheFrmMain.EnableSkipAndStop(MusicIs(kPlaying));
}

}  // namespace marlex
