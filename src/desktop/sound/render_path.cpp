#include "desktop/sound/render_path.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "desktop/sound/sound_format.h"

namespace marlex {
namespace {

/// Clamps samples to full scale; a NaN becomes silence.
void Clip(float* samples, int count) {
  for (int i = 0; i < count; ++i)
    samples[i] = std::isnan(samples[i]) ? 0.0f : std::clamp(samples[i], -1.0f, 1.0f);
}

}  // namespace

RenderPath::RenderPath(StreamMixer& mixer, SoundLine& wave, SoundLine& master)
    : Mixer(mixer), Wave(wave), Master(master) {}

bool RenderPath::Render(float* stereo, int frames) {
  const int again = std::min(Again, frames);
  if (again > 0) RenderAgain(stereo, again);
  const bool sounds = again < frames && RenderNew(stereo + again * kChannels, frames - again);
  return sounds || again > 0;
}

int RenderPath::Rewind(int least, int most) {
  if (Again > 0) return 0;
  int& available = Sounds ? Steady : Silent;
  const int back = std::min(available, most);
  if (back < std::max(least, 1)) return 0;
  available -= back;
  if (Sounds) Again = back;
  return back;
}

bool RenderPath::RenderNew(float* stereo, int frames) {
  std::memset(stereo, 0, BytesOf(frames));
  const bool sounded = Sounds;
  Sounds = Mixer.MixInto(stereo, frames);
  if (!Sounds) {
    Silent = std::min(Silent + frames, kKept);
    return false;
  }
  if (!sounded) {  // after silence there is nothing that could click
    Wave.Jump();
    Master.Jump();
    Steady = Silent = 0;
  }
  Keep(stereo, frames);
  ApplyLines(stereo, frames);
  return true;
}

void RenderPath::RenderAgain(float* stereo, int frames) {
  for (int i = 0; i < frames; ++i) {
    const std::size_t at = std::size_t((Kept - unsigned(Again - i)) % kKept) * kChannels;
    stereo[i * kChannels] = Mix[at];
    stereo[i * kChannels + 1] = Mix[at + 1];
  }
  Again -= frames;
  ApplyLines(stereo, frames);
}

void RenderPath::Keep(const float* stereo, int frames) {
  for (int done = 0; done < frames;) {
    const int at = int(Kept % kKept);
    const int count = std::min(frames - done, kKept - at);
    std::memcpy(&Mix[std::size_t(at) * kChannels], stereo + done * kChannels, BytesOf(count));
    Kept += unsigned(count);
    done += count;
  }
}

void RenderPath::ApplyLines(float* stereo, int frames) {
  StereoPeak peak = PeakOf(stereo, frames);
  const int moving = Wave.Apply(stereo, frames, peak);
  const int moved = std::max(moving, Master.Apply(stereo, frames, peak));
  Steady = moved > 0 ? frames - moved : std::min(Steady + frames, kKept);
  // Only a block beyond full scale needs a look at every sample. So does one with a NaN, which
  // fails every comparison.
  if (!(peak.Left <= 1 && peak.Right <= 1)) Clip(stereo, frames * kChannels);
}

}  // namespace marlex
