#pragma once

#include <array>

#include "desktop/sound/gain_ramp.h"
#include "desktop/sound/stream_mixer.h"

namespace marlex {

/// The path of the sound on the rendering thread: streams, wave line, master line. It keeps the
/// latest mix, as it was before the levels, so that an output can replace what it has buffered when
/// a level changes: a mute is then heard at once, not after the buffer has played out.
class RenderPath {
 public:
  /// All arguments must outlive the path.
  RenderPath(StreamMixer& mixer, SoundLine& wave, SoundLine& master);

  /// Fills `stereo`; false when nothing plays and it holds silence.
  bool Render(float* stereo, int frames);

  /// Takes back the most recent frames, from `least` to `most` of them, and returns how many: the
  /// next frames rendered are the same ones at the current levels. Never goes back into a ramp; 0
  /// when fewer than `least` frames are available.
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
  bool Sounds = false;  // something sounded in the newest block
  int Steady = 0;       // frames since the last ramp ended or the sound began
  int Silent = 0;       // frames since nothing plays any more
  int Again = 0;        // frames taken back, at the end of the kept mix
  unsigned Kept = 0;    // frames kept in total; the newest is just before this index
  std::array<float, std::size_t(kKept)* kChannels> Mix = {};
};

}  // namespace marlex
