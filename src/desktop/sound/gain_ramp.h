#pragma once

#include "desktop/sound/sound_line.h"

namespace marlex {

/// Peak amplitude of each channel in a block.
struct StereoPeak {
  float Left = 0;
  float Right = 0;
};

StereoPeak PeakOf(const float* stereo, int frames);

/// Applies the level and mute of a line to the blocks that pass it. A change is spread over five
/// milliseconds as one linear ramp, so that nothing clicks. Not thread-safe: use from one thread
/// only.
class GainRamp {
 public:
  /// `line` must outlive the ramp.
  explicit GainRamp(SoundLine& line) : Line(line) { Jump(); }

  /// Applies the gain to a block in place and reports its peak to the line's meter. `peak` goes in
  /// as the peak of the block and comes out as that of the result, or a little higher during a
  /// ramp. Returns how many frames the ramp covers.
  int Apply(float* stereo, int frames, StereoPeak& peak);

  /// Takes the line's level at once, without a ramp: for the first block after silence.
  void Jump();

  /// Makes the next block rise from silence to the line's level.
  void Silence();

 private:
  bool TakeTarget();

  SoundLine& Line;
  float Left = 0, Right = 0;              // current amplitudes
  float TargetLeft = 0, TargetRight = 0;  // amplitudes at the end of the ramp
  float StepLeft = 0, StepRight = 0;      // change per frame
  int Rest = 0;                           // frames left of the ramp
};

}  // namespace marlex
