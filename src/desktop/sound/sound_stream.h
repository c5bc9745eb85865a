#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "desktop/sound/decoder.h"
#include "desktop/sound/frame_ring.h"

namespace marlex {

/// When the end of a stream is told: as its last sample goes to the output, so that the next song
/// follows at once, or when that sample was heard.
enum class EndReport { kHandedOver, kHeard };

/// What the streams of one engine and their threads share.
struct StreamFamily {
  std::atomic<int> Threads{0};               // that decode, or hang in a drive
  std::atomic<std::uint64_t> LastStream{0};  // number of the youngest stream
};

/// One file on its way to the output: a thread of its own opens and decodes it ahead into a ring,
/// and the rendering thread takes from there. A file on a drive that hangs holds up nothing but its
/// own stream: its thread ends when the drive comes back.
class SoundStream {
 public:
  enum class Opening { kPending, kOpen, kRefused };

  /// Begins to open `path` and waits a little for the outcome. Null when the file cannot be played,
  /// or when too many threads hang in drives already. A stream whose file is still pending plays as
  /// soon as it comes.
  static std::shared_ptr<SoundStream> Open(const std::string& path, OpenDecoder open,
                                           EndReport report,
                                           const std::shared_ptr<StreamFamily>& family);

  SoundStream(std::uint64_t number, EndReport report);
  SoundStream(const SoundStream&) = delete;
  SoundStream& operator=(const SoundStream&) = delete;

  // For the system's thread.

  /// Different for every stream of the family.
  std::uint64_t Id() const { return Number; }

  /// Length in seconds; 0 while the file is pending.
  double Seconds() const;

  /// Frames that were handed to the output so far.
  std::int64_t FramesPlayed() const { return Played.load(std::memory_order_acquire); }

  void Play() { Want(Wanted::kPlay); }
  /// Fades out within milliseconds and stays there; `Play` goes on with the very next frame.
  void Pause() { Want(Wanted::kPause); }
  /// Fades out within milliseconds, then is gone. The decoding thread ends.
  void Stop() { Want(Wanted::kStop); }

  /// Waits until `frames` frames are decoded, or all there are. For a clock that does not run in
  /// real time.
  void AwaitDecoding(int frames);

  // For the thread that renders; nothing here locks.

  enum class State { kActive, kSilent, kEnded, kGone };

  /// Adds the next `frames` frames to `stereo`. `kSilent`: paused, and faded out. `kEnded`: this
  /// block held the last frame of the file, or came behind it. `kGone`: stopped, and faded out.
  State MixInto(float* stereo, int frames);

  EndReport Report() const { return WhenEnded; }

  /// Frames at the end of the last block to which the stream added nothing.
  int Missing() const { return MissingFrames; }

 private:
  enum class Wanted { kPause, kPlay, kStop };

  void Want(Wanted wanted);
  void Run(const std::string& path, OpenDecoder open);
  void Settle(Opening outcome, double seconds);
  bool DecodeBlock(Decoder& decoder);
  bool WaitForRoom();
  bool Stopped() const { return Intent.load(std::memory_order_acquire) == Wanted::kStop; }
  int MixFrames(float* stereo, int frames, bool play);
  bool Starves(int missing);

  const std::uint64_t Number;
  const EndReport WhenEnded;

  // Between the system's and the decoding thread.
  mutable std::mutex Guard;
  std::condition_variable Changed;
  Opening Outcome = Opening::kPending;
  double Length = 0;

  // Between these and the rendering thread.
  FrameRing Ring;
  std::atomic<Wanted> Intent{Wanted::kPause};
  std::atomic<bool> DecodedAll{false};
  std::atomic<std::int64_t> Played{0};

  // Of the rendering thread.
  float Fade = 1;  // amplitude between pause and play
  /// Silent frames before a paused stream is heard again: a level that is set right behind the
  /// resumption takes as long to be in place.
  int Held = 0;
  int MissingFrames = 0;
  int Starving = 0;  // frames in a row that the decoder owed
};

}  // namespace marlex
