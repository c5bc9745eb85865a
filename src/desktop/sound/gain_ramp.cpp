#include "desktop/sound/gain_ramp.h"

#include <algorithm>
#include <cmath>

#include "desktop/sound/sound_format.h"

namespace marlex {
namespace {

constexpr int kRampFrames = FramesIn(5);

/// Frames processed side by side, which lets the compiler use vector instructions.
constexpr int kAbreast = 4;
constexpr int kLanes = kAbreast * kChannels;

/// Multiplies each channel by a constant.
void Scale(float* stereo, int frames, float left, float right) {
  const float gains[kLanes] = {left, right, left, right, left, right, left, right};
  int done = 0;
  for (; done + kAbreast <= frames; done += kAbreast, stereo += kLanes) {
    for (int i = 0; i < kLanes; ++i) stereo[i] *= gains[i];
  }
  for (int i = 0; i < (frames - done) * kChannels; ++i) stereo[i] *= gains[i];
}

}  // namespace

StereoPeak PeakOf(const float* stereo, int frames) {
  float peaks[kLanes] = {};
  int done = 0;
  for (; done + kAbreast <= frames; done += kAbreast, stereo += kLanes) {
    for (int i = 0; i < kLanes; ++i) {
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

void GainRamp::Silence() {
  Left = Right = TargetLeft = TargetRight = 0;
  Rest = 0;
}

int GainRamp::Apply(float* stereo, int frames, StereoPeak& peak) {
  if (TakeTarget()) {
    Rest = kRampFrames;
    StepLeft = (TargetLeft - Left) / kRampFrames;
    StepRight = (TargetRight - Right) / kRampFrames;
  }
  peak.Left *= std::max(Left, TargetLeft);
  peak.Right *= std::max(Right, TargetRight);
  const int moving = std::min(Rest, frames);
  for (int i = 0; i < moving; ++i) {
    Left += StepLeft;
    Right += StepRight;
    stereo[i * kChannels] *= Left;
    stereo[i * kChannels + 1] *= Right;
  }
  Rest -= moving;
  if (Rest == 0) {
    Left = TargetLeft;
    Right = TargetRight;
  }
  if (moving < frames && (Left != 1 || Right != 1)) {
    Scale(stereo + moving * kChannels, frames - moving, Left, Right);
  }
  Line.Meter(std::max(peak.Left, peak.Right));
  return moving;
}

}  // namespace marlex
