#pragma once

#include <string>

#include "link/zone_routing.h"
#include "mixer/sound_lines.h"
#include "music/fades.h"
#include "music/music_player.h"
#include "schedule/message_wavs.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/settings.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The whole announcement of a schedule row: fades and pauses the music, routes the zones, plays
/// the messages, and restores everything.
class MessagePlayback {
 public:
  MessagePlayback(Flags& flags, const Settings& settings, FrmMain& frmMain, FrmPlayers& frmPlayers,
                  SoundLines& lines, ZoneRouting& routing, Fades& fades, MusicPlayer& music,
                  MessageWavs& wavs, Previews& previews);

  /// Plays `lstMsgSequence` into the zones of `currentRouting`, the zone text of a row such as
  /// "103000", and restores routing, music and buttons.
  ///
  /// Waits until all is restored, or until a call or the amplifier has taken over; these then
  /// restore it.
  void PlayMessageSequence(const std::string& currentRouting);

 private:
  bool ClearMusic();
  void RouteMessage(const std::string& currentRouting);
  void Announce();
  void PaintPlayingCell(Color back, Color text);
  void EnableMusicZoneButtons(bool enabled);
  void RestoreRouting();
  void RestoreMusic();
  void ResumeScheduleAndTransport();
  bool MusicIs(PlayStates state) const { return TheFrmPlayers.MP3Player.PlayState() == state; }

  Flags& TheFlags;
  const Settings& TheSettings;
  FrmMain& TheFrmMain;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  ZoneRouting& Routing;
  Fades& TheFades;
  MusicPlayer& Music;
  MessageWavs& Wavs;
  Previews& ThePreviews;
};

}  // namespace marlex
