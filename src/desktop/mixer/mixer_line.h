#pragma once

#include "desktop/sound/sound_line.h"

namespace marlex {

/// One line of the mixer: two channels, a mute and a meter. Call from the system's thread; calls
/// return at once unless they say otherwise.
class MixerLine {
 public:
  virtual ~MixerLine() = default;

  virtual StereoLevel Level() const = 0;
  virtual void SetLevel(StereoLevel level) = 0;
  virtual bool Muted() const = 0;
  virtual void SetMute(bool muted) = 0;
  virtual int Peak() = 0;  // 0 to 32767, peak since the last call

  /// Waits briefly until what was set last has reached the device, or cannot reach it now.
  virtual void Settle() {}
};

/// A line inside the engine: a gain applied in software. The volume that a sound server keeps for a
/// stream is never used, because servers remember such volumes and restore them without asking.
class EngineLine : public MixerLine {
 public:
  explicit EngineLine(SoundLine& line) : Line(line) {}

  StereoLevel Level() const override { return Line.Level(); }
  void SetLevel(StereoLevel level) override { Line.SetLevel(level.Left, level.Right); }
  bool Muted() const override { return Line.Muted(); }
  void SetMute(bool muted) override { Line.SetMute(muted); }
  int Peak() override { return Line.Peak(); }

 private:
  SoundLine& Line;
};

}  // namespace marlex
