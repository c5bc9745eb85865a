#include "desktop/sound/microphone_queue.h"

#include <algorithm>

namespace marlex {
namespace {

constexpr int kRingFrames = 16384;
constexpr int kReserve = FramesIn(3);  // held when the sound begins, against late pieces
constexpr int kRise = FramesIn(5);

}  // namespace

MicrophoneQueue::MicrophoneQueue() : Ring(kRingFrames) {}

void MicrophoneQueue::MixInto(float* stereo, int frames) {
  if (!Prepare(frames)) return;
  for (int done = 0; done < frames;) {
    const float* source = nullptr;
    const int count = Ring.Peek(source, frames - done);
    if (count == 0) break;
    AddFading(stereo + done * kChannels, source, count);
    Ring.Take(count);
    done += count;
  }
  Flowing = Speaks();
}

/// False while there is too little to begin with. What is left of a finished capture is dropped.
bool MicrophoneQueue::Prepare(int frames) {
  const bool captured = Captured;
  const int filled = Ring.Filled();
  if (Flowing && filled > 0) return true;
  Flowing = captured && filled >= frames + kReserve;
  Risen = 0;
  if (Flowing) {
    Ring.Take(filled - frames - kReserve);
  } else if (!captured) {
    Ring.Take(filled);
  }
  return Flowing;
}

void MicrophoneQueue::AddFading(float* stereo, const float* source, int frames) {
  for (int i = 0; i < frames; ++i) {
    const float gain = float(Risen) / kRise;
    Risen = std::min(Risen + 1, kRise);
    for (int channel = 0; channel < kChannels; ++channel) {
      stereo[i * kChannels + channel] += source[i * kChannels + channel] * gain;
    }
  }
}

}  // namespace marlex
