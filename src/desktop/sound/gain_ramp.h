#pragma once

#include "desktop/sound/sound_line.h"

namespace marlex {

/// Loudest amplitude of each channel in a block.
struct StereoPeak {
  float Left = 0;
  float Right = 0;
};

StereoPeak PeakOf(const float* stereo, int frames);

/// Applies the level and mute of a line to what passes, on the rendering thread. A change takes a
/// few milliseconds, as one straight ramp, so that nothing clicks.
class GainRamp {
 public:
  /// `line` outlives the ramp.
  explicit GainRamp(SoundLine& line) : Line(line) { Jump(); }

  /// Applies the gain to a block and reports its peak to the line's meter. `peak` is that of the
  /// block, and becomes that of the result, or somewhat more during a ramp. Returns how many frames
  /// the ramp covers.
  int Apply(float* stereo, int frames, StereoPeak& peak);

  /// Takes over the line's level at once. For the first block behind silence, which needs no ramp.
  void Jump();

  /// What comes next rises from silence to the line's level.
  void Silence();

 private:
  bool TakeTarget();

  SoundLine& Line;
  float Left = 0, Right = 0;              // present amplitudes
  float TargetLeft = 0, TargetRight = 0;  // where the ramp ends
  float StepLeft = 0, StepRight = 0;      // change of a frame
  int Rest = 0;                           // frames until the ramp ends
};

}  // namespace marlex
