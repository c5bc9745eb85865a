#pragma once

#include <atomic>

#include "desktop/sound/frame_ring.h"

namespace marlex {

/// Queue between the thread that captures the microphone and the one that fills the card. What
/// waits here adds to the delay from mouth to loudspeaker, so the queue is kept short.
class MicrophoneQueue {
 public:
  MicrophoneQueue();

  // For the capturing thread.

  void Begin() { Captured = true; }
  void Write(const float* stereo, int frames) { Ring.Write(stereo, frames); }
  int Filled() const { return Ring.Filled(); }
  void End() { Captured = false; }

  // For the output's thread; nothing below locks.

  /// Whether sound is arriving, or some of it is left to play.
  bool Speaks() const { return Captured || Ring.Filled() > 0; }

  /// Adds the next frames to `stereo`. After running empty, the queue waits until it holds a small
  /// reserve, drops whatever exceeds it, and fades in.
  void MixInto(float* stereo, int frames);

 private:
  bool Prepare(int frames);
  void AddFading(float* stereo, const float* source, int frames);

  FrameRing Ring;
  std::atomic<bool> Captured{false};
  bool Flowing = false;  // used by the output's thread, as is `Risen`
  int Risen = 0;         // frames of the fade-in so far
};

}  // namespace marlex
