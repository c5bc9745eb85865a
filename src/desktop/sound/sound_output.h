#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "desktop/sound/sound_format.h"

namespace marlex {

/// What an output plays. Called on the output's own thread, one call at a time.
class OutputSource {
 public:
  virtual ~OutputSource() = default;

  /// Fills `stereo` with the next frames, the first of which will be heard in `delayUs`
  /// microseconds; false when they are silence because nothing plays. Never locks.
  virtual bool RenderBlock(float* stereo, int frames, std::int64_t delayUs) = 0;

  /// Takes back the frames that were rendered last, from `least` to `most`, and returns their
  /// number: the next ones are the same with the levels of now. 0 when there are not enough. For an
  /// output that can still change its buffer.
  virtual int Rewind(int least, int most) = 0;

  /// Whether `delayUs` matters now, since the end of something is told when it was heard. Never
  /// locks.
  virtual bool NeedsDelay() const = 0;

  /// The output is lost, or has gone to sleep. Never locks.
  virtual void OutputChanged() = 0;
};

/// One clock that takes samples: a stream of a sound server, a sound card, or time alone. It takes
/// them on a thread of its own from `Start` on. When its destructor returns, no call of the source
/// is running or will come.
class SoundOutput {
 public:
  virtual ~SoundOutput() = default;

  /// Begins to take samples from the source; silence goes out before that.
  virtual void Start(OutputSource& source) = 0;

  /// There may be something to play, or the microphone may be wanted, or no longer. Returns at
  /// once.
  virtual void Wake() = 0;

  /// False as soon as the device is gone.
  virtual bool Alive() const = 0;

  /// Nothing plays, so that no samples are taken until `Wake`.
  virtual bool Asleep() const = 0;
};

/// Decides when an output goes to sleep: when nothing has played for a while, so that the pauses
/// between sounds do not stop the device each time.
class SleepTimer {
 public:
  /// Takes note of a block; true when the output should go to sleep.
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
