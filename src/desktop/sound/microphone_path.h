#pragma once

#include "desktop/sound/gain_ramp.h"
#include "desktop/sound/sound_devices.h"

namespace marlex {

/// The way of the microphone's sound: microphone line, master line. Of the thread that captures.
class MicrophonePath {
 public:
  explicit MicrophonePath(const MicrophoneLines& lines);

  /// The microphone was opened: the sound fades in from silence, and nothing is known of its delay.
  void Begin();

  /// Sets the levels of a captured block, in place. `queued` is how many frames the output still
  /// had when the block came. To hold the delay, since capture and output run on two clocks, the
  /// block may become shorter, or longer by at most `kMostAdded` frames, for which there is room;
  /// returns its new length.
  int Pass(float* stereo, int frames, int queued);

  /// The line is muted and the last block ended in silence.
  bool Silent() const { return Quiet; }

  static constexpr int kMostAdded = FramesIn(3);

 private:
  int Correction(int frames, int queued);
  int Judge(int frames);

  SoundLine& Line;
  GainRamp Microphone;
  GainRamp Master;
  bool Quiet = false;
  int Lowest = 0;    // fewest frames that the output had left in this round
  int Observed = 0;  // frames of this round
  int Round = 0;     // frames that make a round
  int Excess = 0;    // frames that are still to be taken out
};

/// Takes `count` frames out of a block, crossfading where they were. Returns the new length.
int Shorten(float* stereo, int frames, int count);

/// Repeats `count` frames at the end of a block, crossfaded; there is room for them. Returns the
/// new length.
int Lengthen(float* stereo, int frames, int count);

}  // namespace marlex
