#pragma once

#include <string>

#include "i18n/string_table.h"
#include "mixer/sound_lines.h"
#include "music/music_player.h"
#include "platform/event_loop.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/settings.h"
#include "windows/frm_players.h"
#include "windows/wav_window.h"

namespace marlex {

/// Plays the sequence in the editor once, into whatever zones are on. The music is paused for it
/// and stays paused until the operator resumes it.
class MessagePreview {
 public:
  MessagePreview(Flags& flags, const Settings& settings, EventLoop& loop, WavWindow& window,
                 FrmPlayers& frmPlayers, SoundLines& lines, MusicPlayer& music, Previews& previews,
                 const StringTable& strings);

  /// Ends a preview at once, even one whose message plays on after a stop.
  void End();

 private:
  void PrevKey_Click();
  void RequestStop();
  void Play();  // waits until the preview is over; the editor may be closed, or open again, by then
  void PlayMessages();
  void PlayMessage(const std::string& name);

  Flags& TheFlags;
  const Settings& TheSettings;
  EventLoop& Loop;
  WavWindow& Window;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  MusicPlayer& Music;
  Previews& ThePreviews;
  const StringTable& Strings;
  bool Playing = false;
  bool PreviewStopRequested = false;  // set by PrevKey, and by `End` during a preview
};

}  // namespace marlex
