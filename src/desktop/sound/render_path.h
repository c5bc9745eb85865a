#pragma once

#include <array>

#include "desktop/sound/gain_ramp.h"
#include "desktop/sound/stream_mixer.h"

namespace marlex {

/// The way of the sound on the rendering thread: streams, wave line, master line. It keeps what it
/// has mixed for a moment, before its levels, so that an output that has buffered it can have it
/// anew when a level changes: a mute is then heard at once and not behind the buffer.
class RenderPath {
 public:
  /// All outlive the path.
  RenderPath(StreamMixer& mixer, SoundLine& wave, SoundLine& master);

  /// Fills `stereo`; false when it is silence because nothing plays.
  bool Render(float* stereo, int frames);

  /// Takes back the last frames, from `least` to `most`, and returns their number: the next ones to
  /// be rendered are the same with the present levels. Frames from before the end of a ramp stay as
  /// they are; 0 when there are not enough.
  int Rewind(int least, int most);

 private:
  static constexpr int kKept = 4096;  // frames; a power of two

  bool RenderNew(float* stereo, int frames);
  void RenderAgain(float* stereo, int frames);
  void Keep(const float* stereo, int frames);
  void ApplyLines(float* stereo, int frames);

  StreamMixer& Mixer;
  GainRamp Wave;
  GainRamp Master;
  bool Sounds = false;  // in the newest block
  int Steady = 0;       // frames since the levels were last in motion, or the sound began
  int Silent = 0;       // frames since nothing plays
  int Again = 0;        // frames at the end of what is kept that were taken back
  unsigned Kept = 0;    // frames ever kept; the newest is before this place
  std::array<float, std::size_t(kKept)* kChannels> Mix = {};
};

}  // namespace marlex
