#pragma once

#include <string>

#include "i18n/string_table.h"
#include "mixer/sound_lines.h"
#include "music/music_player.h"
#include "platform/event_loop.h"
#include "state/flags.h"
#include "state/settings.h"
#include "windows/frm_players.h"
#include "windows/wav_window.h"

namespace marlex {

/// Plays the sequence under work once, into whatever zones are fed. Music is paused for it and
/// stays paused until the operator goes on.
class MessagePreview {
 public:
  MessagePreview(Flags& flags, const Settings& settings, EventLoop& loop, WavWindow& window,
                 FrmPlayers& frmPlayers, SoundLines& lines, MusicPlayer& music,
                 const StringTable& strings);

  bool PreviewStopRequested = false;  // by PrevKey during a preview, by a call, or by the closing

  /// A call or an announcement begins, which goes before a preview also when it is over before the
  /// preview sees it.
  void GiveWay();

  /// The editor closes: what plays for it falls silent.
  void Close();

 private:
  void PrevKey_Click();
  void RequestStop();
  void Play();
  void PlayMessages();
  void PlayMessage(const std::string& name);
  bool PlayerIsOthers() const;

  Flags& TheFlags;
  const Settings& TheSettings;
  EventLoop& Loop;
  WavWindow& Window;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  MusicPlayer& Music;
  const StringTable& Strings;
  bool Playing = false;
  bool HasPlayed = false;  // since the opening; a stop may have left its message sounding
};

}  // namespace marlex
