#pragma once

#include <string>

#include "mixer/sound_lines.h"
#include "platform/event_loop.h"
#include "state/flags.h"
#include "state/record.h"
#include "state/settings.h"
#include "windows/frm_players.h"
#include "windows/frm_settings.h"

namespace marlex {

/// Plays the files of `lstMsgSequence` one after the other. Messages share the wave line with the
/// music: the line has the message volume while they play, and then the music volume again.
class MessageWavs {
 public:
  MessageWavs(Flags& flags, const Settings& settings, EventLoop& loop, FrmPlayers& frmPlayers,
              SoundLines& lines, FrmSettings& frmSettings, Record& record);

  /// Fills `lstMsgSequence` from message names separated by commas; of several, the last is cut to
  /// 100 characters.
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
  Record& TheRecord;
};

}  // namespace marlex
