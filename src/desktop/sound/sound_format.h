#pragma once

#include <cstdint>

namespace marlex {

/// The engine mixes at the rate of nearly all music, so that songs pass through it unconverted. If
/// the card wants another rate, the sound server or the card's driver converts.
inline constexpr int kSampleRate = 44100;  // frames per second
inline constexpr int kChannels = 2;        // a frame is a left and a right sample

/// Bytes of a frame of 32-bit floats.
inline constexpr std::int64_t kFrameBytes = kChannels * sizeof(float);

/// Whole frames in `milliseconds` of sound.
constexpr int FramesIn(int milliseconds) {
  return int(static_cast<long long>(kSampleRate) * milliseconds / 1000);
}

/// Microseconds that `frames` frames last.
constexpr std::int64_t UsOf(std::int64_t frames) { return frames * 1000000 / kSampleRate; }

}  // namespace marlex
