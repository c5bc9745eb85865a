#pragma once

#include <functional>

#include "state/flags.h"

namespace marlex {

/// Previews by an operator: of a song in the playlist editor, played by the music player, and of
/// messages in the schedule editor, played by the player of the announcements.
///
/// The same rule applies to both. A call, an announcement, a fade and a call at the amplifier take
/// precedence over a preview: none begins during them. When a call, an announcement or a
/// high-priority call at the amplifier begins, a preview ends, even if it is paused, and is not
/// resumed. A low-priority call at the amplifier stops nothing that is running, including previews.
class Previews {
 public:
  explicit Previews(const Flags& flags) : TheFlags(flags) {}

  bool MayBegin() const {
    return !TheFlags.CallActive && !TheFlags.MessagePlaying && !TheFlags.FadeRunning &&
           !TheFlags.PriorityPreempted && TheFlags.PriorityClear;
  }

  /// Call when something begins that takes precedence over a preview.
  void End() {
    EndSong();
    EndMessages();
  }

  /// Each does nothing if its player has been given another file since. Wired at composition.
  std::function<void()> EndSong;
  std::function<void()> EndMessages;

  /// The file in the player belongs to a preview, which is playing, paused or finished. Set by the
  /// preview, cleared by the next user of the player.
  bool HoldSongPlayer = false;
  bool HoldWavPlayer = false;

 private:
  const Flags& TheFlags;
};

}  // namespace marlex
