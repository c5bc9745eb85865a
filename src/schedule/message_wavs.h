#pragma once

#include <string>

#include "mixer/sound_lines.h"
#include "platform/event_loop.h"
#include "state/flags.h"
#include "state/settings.h"
#include "windows/frm_players.h"
#include "windows/frm_settings.h"

namespace marlex {

/// Plays the files of `lstMsgSequence` one after the other at the message volume. It needs no
/// music: a message shares the wave line with it and borrows the line's level.
class MessageWavs {
 public:
  MessageWavs(Flags& flags, const Settings& settings, EventLoop& loop, FrmPlayers& frmPlayers,
              SoundLines& lines, FrmSettings& frmSettings);

  /// Fills `lstMsgSequence` from message names separated by commas.
  void BuildMessageList(const std::string& messageInfo);

  /// Plays the list.
  ///
  /// Waits until the last file has ended or a call has begun. Then test `CallActive` and
  /// `PriorityPreempted`.
  void PlayMessageWavs();

 private:
  void OpenMessageLine();
  void PlayWav(const std::string& fileName);

  Flags& TheFlags;
  const Settings& TheSettings;
  EventLoop& Loop;
  FrmPlayers& TheFrmPlayers;
  SoundLines& Lines;
  FrmSettings& TheFrmSettings;
};

/// Begins a WAV file in the player's place of any other; `WavFinished` tells its end.
void StartWav(WavePlayer& player, const std::string& path, Flags& flags);

}  // namespace marlex
