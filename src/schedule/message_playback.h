#pragma once

#include <string>

#include "link/zone_routing.h"
#include "mixer/sound_lines.h"
#include "music/fades.h"
#include "music/music_player.h"
#include "schedule/message_wavs.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The whole announcement of a schedule row: the music out of the way, the zones fed, the messages
/// played, and everything put back.
class MessagePlayback {
 public:
  MessagePlayback(Flags& flags, SettingsStore& store, FrmMain& frmMain, FrmPlayers& frmPlayers,
                  SoundLines& lines, ZoneRouting& routing, Fades& fades, MusicPlayer& music,
                  MessageWavs& wavs, Previews& previews);

  /// Plays `lstMsgSequence` into the zones of `currentRouting` and puts everything back.
  ///
  /// Waits until all is back, or until a call or the amplifier has taken over, which then restore.
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
  SettingsStore& Store;
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
