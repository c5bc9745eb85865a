#include "desktop/sound/microphone_path.h"

#include <algorithm>
#include <cstring>

namespace marlex {
namespace {

constexpr int kRound = kSampleRate;           // frames after which the delay is judged
constexpr int kFirstRound = kSampleRate / 8;  // the first round; each later one is twice as long
constexpr int kTooFew = FramesIn(2);   // left at the lowest point: the output is about to run dry
constexpr int kTooMany = FramesIn(5);  // left at the lowest point: the delay is needlessly long
constexpr int kWanted = FramesIn(3);   // left at the lowest point after a correction
constexpr int kFar = FramesIn(30);     // so late that it is corrected at once

/// Crossfades `count` frames of `from` into those of `to`.
void Crossfade(const float* from, const float* to, float* result, int count) {
  for (int i = 0; i < count; ++i) {
    const float share = float(i + 1) / float(count + 1);
    for (int channel = 0; channel < kChannels; ++channel) {
      const int at = i * kChannels + channel;
      result[at] = from[at] * (1 - share) + to[at] * share;
    }
  }
}

}  // namespace

int Shorten(float* stereo, int frames, int count) {
  count = std::clamp(count, 0, frames);
  const int kept = frames - count;
  const int blend = std::min(count, kept);
  const float* const next = stereo + std::size_t(count) * kChannels;
  Crossfade(stereo, next, stereo, blend);
  std::memmove(stereo + blend * kChannels, next + blend * kChannels, BytesOf(kept - blend));
  return kept;
}

int Lengthen(float* stereo, int frames, int count) {
  count = std::clamp(count, 0, frames / 2);
  float* const last = stereo + std::size_t(frames - count) * kChannels;
  // Append a copy of the last frames. Then smooth the seam: the original ones fade into what
  // precedes them, and so lead up to the beginning of the copy.
  std::memcpy(stereo + std::size_t(frames) * kChannels, last, BytesOf(count));
  Crossfade(last, last - std::size_t(count) * kChannels, last, count);
  return frames + count;
}

MicrophonePath::MicrophonePath(const MicrophoneLines& lines)
    : Line(lines.Microphone), LineRamp(lines.Microphone), MasterRamp(lines.Master) {}

void MicrophonePath::Begin() {
  LineRamp.Silence();
  MasterRamp.Jump();
  Quiet = false;
  Observed = Excess = 0;
  Round = kFirstRound;
}

int MicrophonePath::Pass(float* stereo, int frames, int queued) {
  StereoPeak peak = PeakOf(stereo, frames);
  const int moving = LineRamp.Apply(stereo, frames, peak);
  MasterRamp.Apply(stereo, frames, peak);
  Quiet = Line.Muted() && moving < frames;
  const int correction = Correction(frames, queued);
  if (correction > 0) return Shorten(stereo, frames, correction);
  if (correction < 0) return Lengthen(stereo, frames, -correction);
  return frames;
}

/// Frames to remove, or, if negative, to add. How much the output has left when a block arrives
/// goes up and down with the transfer sizes of both devices; its lowest point within a round is
/// delay that serves no purpose. At most half of a block is removed at once, so a correction may
/// span several.
int MicrophonePath::Correction(int frames, int queued) {
  Lowest = Observed == 0 ? queued : std::min(Lowest, queued);
  Observed += frames;
  if (queued > kFar) {
    Observed = Excess = 0;
    return std::min(queued - kWanted, frames);
  }
  if (Excess == 0 && Observed >= Round) return Judge(frames);
  const int taken = std::min(Excess, frames / 2);
  Excess -= taken;
  if (taken > 0) Observed = 0;
  return taken;
}

int MicrophonePath::Judge(int frames) {
  Observed = 0;
  Round = std::min(2 * Round, kRound);
  if (Lowest > kTooMany) {
    const int taken = std::min(Lowest - kWanted, frames / 2);
    Excess = Lowest - kWanted - taken;
    return taken;
  }
  if (Lowest < kTooFew) return -std::min(kWanted - Lowest, kMostAdded);
  return 0;
}

}  // namespace marlex
