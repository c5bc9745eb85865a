#include "desktop/sound/sound_line.h"

#include <algorithm>
#include <cmath>

namespace marlex {

void SoundLine::SetLevel(int left, int right) {
  const auto cut = [](int level) { return std::uint64_t(std::clamp(level, 0, kFullLevel)); };
  Levels.store(cut(left) << 32 | cut(right), std::memory_order_release);
  if (OnChange) OnChange();
}

StereoLevel SoundLine::Level() const {
  const std::uint64_t levels = Levels.load(std::memory_order_acquire);
  return {int(levels >> 32), int(levels & 0xFFFFFFFF)};
}

void SoundLine::SetMute(bool muted) {
  Mute.store(muted, std::memory_order_release);
  if (OnChange) OnChange();
}

int SoundLine::Peak() {
  const float loudest = Loudest.exchange(0, std::memory_order_acq_rel);
  return int(std::lround(std::min(loudest, 1.0f) * kFullPeak));
}

float SoundLine::TargetGain(int channel) const {
  if (Muted()) return 0;
  const StereoLevel level = Level();
  return float(channel == 0 ? level.Left : level.Right) / kFullLevel;
}

void SoundLine::Meter(float amplitude) {
  float loudest = Loudest.load(std::memory_order_relaxed);
  while (amplitude > loudest && !Loudest.compare_exchange_weak(loudest, amplitude)) {
  }
}

}  // namespace marlex
