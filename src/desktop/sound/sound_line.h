#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

namespace marlex {

inline constexpr int kFullLevel = 65535;  // of a line's level, per channel
inline constexpr int kFullPeak = 32767;   // of a line's meter

/// Level of a line, each channel from 0 (silence) to 65535 (full).
struct StereoLevel {
  int Left = kFullLevel;
  int Right = kFullLevel;
  bool operator==(const StereoLevel&) const = default;
};

/// One line of the engine: level, balance (as two levels), mute and peak meter. Call from the
/// system's thread; all calls return at once. Changes take effect with the next samples, ramped
/// over a few milliseconds so that nothing clicks. The amplitude factor of a channel is its level
/// divided by 65535: half the level is 6 dB less.
class SoundLine {
 public:
  explicit SoundLine(bool muted = false) : Mute(muted) {}
  SoundLine(const SoundLine&) = delete;
  SoundLine& operator=(const SoundLine&) = delete;

  /// Sets both channels; values outside 0 to 65535 are clamped.
  void SetLevel(int left, int right);
  StereoLevel Level() const;

  void SetMute(bool muted);
  bool Muted() const { return Mute.load(std::memory_order_acquire); }

  /// Peak of what has left the line, after its level and mute, since the last call: 0 to 32767.
  int Peak();

  /// Called on the system's thread after each change; the engine uses it to open and close the
  /// microphone.
  std::function<void()> OnChange;

  // For the rendering thread; nothing below locks.

  /// Amplitude to ramp to, from 0 to 1; 0 when muted.
  float TargetGain(int channel) const;

  /// Reports the peak amplitude of a block to the meter.
  void Meter(float amplitude);

 private:
  std::atomic<std::uint64_t> Levels{(std::uint64_t{kFullLevel} << 32) | kFullLevel};  // left, right
  std::atomic<bool> Mute;
  std::atomic<float> Loudest{0};
};

}  // namespace marlex
