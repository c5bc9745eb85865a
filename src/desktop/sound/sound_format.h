#pragma once

namespace marlex {

/// The engine mixes at the rate of nearly all music, so that songs pass through it untouched; what
/// the card wants is the sound server's or the card driver's business.
inline constexpr int kSampleRate = 44100;  // frames a second
inline constexpr int kChannels = 2;        // a frame is a left and a right sample

/// Whole frames in `milliseconds` of sound.
constexpr int FramesIn(int milliseconds) {
  return int(static_cast<long long>(kSampleRate) * milliseconds / 1000);
}

}  // namespace marlex
