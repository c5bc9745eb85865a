#pragma once

#include "desktop/sound/gain_ramp.h"
#include "desktop/sound/sound_devices.h"

namespace marlex {

/// The levels that the microphone's sound passes: the microphone line, then the master line. Not
/// thread-safe: use from the capturing thread only.
class MicrophonePath {
 public:
  explicit MicrophonePath(const MicrophoneLines& lines);

  /// Call when the microphone has been opened: the sound fades in from silence, and measuring the
  /// delay starts over.
  void Begin();

  /// Applies the levels to a captured block, in place. `queued` is how many frames the output still
  /// had when the block arrived. Capture and output run on two clocks; to hold the delay, the block
  /// may be shortened, or lengthened by at most `kMostAdded` frames, for which the buffer must have
  /// room. Returns the new length.
  int Pass(float* stereo, int frames, int queued);

  /// The line is muted and the last block has faded to silence.
  bool Silent() const { return Quiet; }

  static constexpr int kMostAdded = FramesIn(3);

 private:
  int Correction(int frames, int queued);
  int Judge(int frames);

  SoundLine& Line;
  GainRamp LineRamp;
  GainRamp MasterRamp;
  bool Quiet = false;
  int Lowest = 0;    // fewest frames left in the output in this round
  int Observed = 0;  // frames seen in this round
  int Round = 0;     // length of the round in frames
  int Excess = 0;    // frames still to be removed
};

/// Removes `count` frames from the beginning of a block, crossfading over the seam. Returns the new
/// length.
int Shorten(float* stereo, int frames, int count);

/// Repeats the last `count` frames of a block (at most half of it), crossfading over the seam; the
/// buffer must have room for them. Returns the new length.
int Lengthen(float* stereo, int frames, int count);

}  // namespace marlex
