#pragma once

#include <functional>

#include "state/flags.h"

namespace marlex {

/// What an operator tries out: the song of the playlist editor, which sounds in the music's player,
/// and the messages of the schedule editor, which sound in that of the announcements.
///
/// One rule holds for both. A call, an announcement, a fade and a call at the amplifier go before a
/// preview: none begins under them. Where a call, an announcement or a high call at the amplifier
/// begins, a preview ends, also one that is paused, and nothing of it comes back. A low call at the
/// amplifier stops nothing that runs, previews included.
class Previews {
 public:
  explicit Previews(const Flags& flags) : TheFlags(flags) {}

  bool MayBegin() const {
    return !TheFlags.CallActive && !TheFlags.MessagePlaying && !TheFlags.FadeRunning &&
           !TheFlags.PriorityPreempted && TheFlags.PriorityClear;
  }

  /// Something that goes before a preview begins.
  void End() {
    EndSong();
    EndMessages();
  }

  /// Neither does anything when its player has been given another file since; wired at composition.
  std::function<void()> EndSong;
  std::function<void()> EndMessages;

  /// The file in a player is a preview's, playing, paused or played out. Set by the preview,
  /// cleared by whatever uses the player next.
  bool HoldSongPlayer = false;
  bool HoldWavPlayer = false;

 private:
  const Flags& TheFlags;
};

}  // namespace marlex
