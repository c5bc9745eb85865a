#pragma once

#include "desktop/sound/sound_line.h"

namespace marlex {

/// One line of the desk's mixer: two channels, a mute, a meter. Calls are on the system's thread
/// and return at once.
class MixerLine {
 public:
  virtual ~MixerLine() = default;

  virtual StereoLevel Level() const = 0;
  virtual void SetLevel(StereoLevel level) = 0;
  virtual bool Muted() const = 0;
  virtual void SetMute(bool muted) = 0;
  virtual int Peak() = 0;  // 0 to 32767, loudest sample since the last call

  /// What was set last has reached the device, or cannot now; may wait for a moment.
  virtual void Settle() {}
};

/// A line that is the engine's own: gain in software. A sound server's volume of a stream is never
/// used, because servers remember those and set them again behind the program's back.
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
