#include "desktop/sound/gain_ramp.h"

#include <algorithm>
#include <cmath>

#include "desktop/sound/sound_format.h"

namespace marlex {
namespace {

constexpr int kRampFrames = FramesIn(5);

/// Frames whose peaks are taken side by side, which the compiler turns into vector instructions.
constexpr int kAbreast = 4;

}  // namespace

StereoPeak PeakOf(const float* stereo, int frames) {
  float peaks[kAbreast * kChannels] = {};
  int done = 0;
  for (; done + kAbreast <= frames; done += kAbreast, stereo += kAbreast * kChannels) {
    for (int i = 0; i < kAbreast * kChannels; ++i) {
      const float amplitude = std::fabs(stereo[i]);
      peaks[i] = amplitude > peaks[i] ? amplitude : peaks[i];
    }
  }
  for (int i = 0; i < (frames - done) * kChannels; ++i) {
    peaks[i] = std::max(peaks[i], std::fabs(stereo[i]));
  }
  StereoPeak peak;
  for (int i = 0; i < kAbreast; ++i) {
    peak.Left = std::max(peak.Left, peaks[i * kChannels]);
    peak.Right = std::max(peak.Right, peaks[i * kChannels + 1]);
  }
  return peak;
}

bool GainRamp::TakeTarget() {
  const float left = Line.TargetGain(0);
  const float right = Line.TargetGain(1);
  if (left == TargetLeft && right == TargetRight) return false;
  TargetLeft = left;
  TargetRight = right;
  return true;
}

void GainRamp::Jump() {
  TakeTarget();
  Left = TargetLeft;
  Right = TargetRight;
  Rest = 0;
}

void GainRamp::Apply(float* stereo, int frames, StereoPeak& peak) {
  if (TakeTarget()) {
    Rest = kRampFrames;
    StepLeft = (TargetLeft - Left) / kRampFrames;
    StepRight = (TargetRight - Right) / kRampFrames;
  }
  peak.Left *= std::max(Left, TargetLeft);
  peak.Right *= std::max(Right, TargetRight);
  int done = 0;
  for (; done < frames && Rest > 0; ++done, --Rest) {
    Left += StepLeft;
    Right += StepRight;
    stereo[done * kChannels] *= Left;
    stereo[done * kChannels + 1] *= Right;
  }
  if (Rest == 0) {
    Left = TargetLeft;
    Right = TargetRight;
  }
  if (done < frames && (Left != 1 || Right != 1)) {
    for (; done < frames; ++done) {
      stereo[done * kChannels] *= Left;
      stereo[done * kChannels + 1] *= Right;
    }
  }
  Line.Meter(std::max(peak.Left, peak.Right));
}

}  // namespace marlex
