#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "desktop/sound/sound_format.h"

namespace marlex {

/// What an output plays. Called on the output's thread, one call at a time.
class OutputSource {
 public:
  virtual ~OutputSource() = default;

  /// Fills `stereo` with the next frames, of which the first will be heard in `delayUs`
  /// microseconds; false when nothing plays and they are silence. Never locks.
  virtual bool RenderBlock(float* stereo, int frames, std::int64_t delayUs) = 0;

  /// Takes back the most recently rendered frames, from `least` to `most` of them, and returns how
  /// many: the next frames rendered are the same ones at the current levels. 0 when fewer than
  /// `least` are available. For outputs that can still rewrite their buffer.
  virtual int Rewind(int least, int most) = 0;

  /// Whether `delayUs` matters at the moment, because something plays whose end is reported when it
  /// has been heard. Never locks.
  virtual bool NeedsDelay() const = 0;

  /// Called when the output is lost or has gone to sleep. Never locks.
  virtual void OutputChanged() = 0;
};

/// Something that takes samples at the pace of a clock: a stream of a sound server, a sound card,
/// or a mere timer. From `Start` on it takes them on a thread of its own. When the destructor
/// returns, no call of the source is running and none will follow.
class SoundOutput {
 public:
  virtual ~SoundOutput() = default;

  /// Starts taking samples from the source; until then, silence is played.
  virtual void Start(OutputSource& source) = 0;

  /// Call when there may be something to play, or when the microphone was opened or closed. Returns
  /// at once.
  virtual void Wake() = 0;

  /// False as soon as the device is lost.
  virtual bool Alive() const = 0;

  /// Nothing plays, and no samples are taken until `Wake`.
  virtual bool Asleep() const = 0;
};

/// Decides when an output goes to sleep: after three seconds of silence, so that the pauses between
/// sounds do not stop the device each time.
class SleepTimer {
 public:
  /// Counts a block; true when the output should go to sleep.
  bool Passed(bool sounded, int frames) {
    SilentFrames = sounded ? 0 : SilentFrames + frames;
    return SilentFrames >= kSilenceFrames;
  }
  void Reset() { SilentFrames = 0; }

 private:
  static constexpr int kSilenceFrames = 3 * kSampleRate;
  int SilentFrames = 0;
};

}  // namespace marlex
