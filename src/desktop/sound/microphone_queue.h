#pragma once

#include <atomic>

#include "desktop/sound/frame_ring.h"

namespace marlex {

/// The microphone's sound between the thread that captures and the one that fills the card. What
/// waits here is part of the delay from mouth to loudspeaker, so it is kept short.
class MicrophoneQueue {
 public:
  MicrophoneQueue();

  // For the thread that captures.

  void Begin() { Captured = true; }
  void Write(const float* stereo, int frames) { Ring.Write(stereo, frames); }
  int Filled() const { return Ring.Filled(); }
  void End() { Captured = false; }

  // For the output's thread; nothing here locks.

  /// Sound comes, or some of it is left.
  bool Speaks() const { return Captured || Ring.Filled() > 0; }

  /// Adds the next frames. A queue that was empty first waits until a little has come, drops what
  /// is more, and fades in.
  void MixInto(float* stereo, int frames);

 private:
  bool Prepare(int frames);
  void AddFading(float* stereo, const float* source, int frames);

  FrameRing Ring;
  std::atomic<bool> Captured{false};
  bool Flowing = false;  // of the output's thread, like the next one
  int Risen = 0;         // frames of the fade in that are over
};

}  // namespace marlex
