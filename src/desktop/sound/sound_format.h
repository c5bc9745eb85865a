#pragma once

#include <cstddef>
#include <cstdint>

#include "desktop/sound/steady_time.h"

namespace marlex {

/// The engine mixes at the rate of nearly all music, so that songs pass through it unconverted. If
/// the card wants another rate, the sound server or the card's driver converts.
inline constexpr int kSampleRate = 44100;  // frames per second
inline constexpr int kChannels = 2;        // a frame is a left and a right sample

/// Bytes of a frame of 32-bit floats.
inline constexpr std::int64_t kFrameBytes = kChannels * sizeof(float);

/// Bytes of `frames` frames; `frames` is not negative.
constexpr std::size_t BytesOf(int frames) { return std::size_t(frames) * std::size_t(kFrameBytes); }

/// Whole frames in `milliseconds` of sound.
constexpr int FramesIn(int milliseconds) {
  return int(static_cast<long long>(kSampleRate) * milliseconds / 1000);
}

/// Microseconds that `frames` frames last.
constexpr std::int64_t UsOf(std::int64_t frames) { return frames * kUsPerSecond / kSampleRate; }

}  // namespace marlex
