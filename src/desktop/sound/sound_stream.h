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

/// When the end of a stream is reported: as its last sample goes to the output, so that the next
/// song follows without a gap, or once that sample has been heard.
enum class EndReport { kHandedOver, kHeard };

/// What all streams of one engine and their threads share.
struct StreamFamily {
  std::atomic<int> Threads{0};               // decoding threads, including those stuck in a drive
  std::atomic<std::uint64_t> LastStream{0};  // number of the newest stream
};

/// One file on its way to the output: a thread of its own opens it and decodes ahead into a ring,
/// from which the rendering thread takes the frames. A drive that hangs holds up only the streams
/// whose files are on it: their threads end when the drive comes back.
class SoundStream {
 public:
  enum class Opening { kPending, kOpen, kRefused };

  /// Begins to open `path` and waits up to 250 milliseconds for the outcome. Null when the file
  /// cannot be played, or when too many threads are already stuck in drives. A stream whose file is
  /// still pending then plays as soon as the file is open.
  static std::shared_ptr<SoundStream> Open(const std::string& path, OpenDecoder open,
                                           EndReport report,
                                           const std::shared_ptr<StreamFamily>& family);

  SoundStream(std::uint64_t number, EndReport report);
  SoundStream(const SoundStream&) = delete;
  SoundStream& operator=(const SoundStream&) = delete;

  // For the system's thread.

  /// Unique among the streams of the family.
  std::uint64_t Id() const { return Number; }

  /// Length in seconds; 0 while the file is pending.
  double Seconds() const;

  /// Frames handed to the output so far.
  std::int64_t FramesPlayed() const { return Played.load(std::memory_order_acquire); }

  void Play() { Want(Wanted::kPlay); }
  /// Fades out within milliseconds and stays silent; `Play` continues with the very next frame.
  void Pause() { Want(Wanted::kPause); }
  /// Fades out within milliseconds and ends for good, as does the decoding thread.
  void Stop() { Want(Wanted::kStop); }

  /// Waits until `frames` frames are decoded, or all there are. For a clock that does not run in
  /// real time.
  void AwaitDecoding(int frames);

  // For the rendering thread; nothing below locks.

  enum class State { kActive, kSilent, kEnded, kGone };

  /// Adds the next `frames` frames to `stereo`. Returns `kSilent` when paused and faded out;
  /// `kEnded` when this block held the file's last frame or came after it; `kGone` when stopped and
  /// faded out.
  State MixInto(float* stereo, int frames);

  EndReport Report() const { return WhenEnded; }

  /// Frames at the end of the last block to which the stream had nothing to add.
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

  // Shared by the system's and the decoding thread.
  mutable std::mutex Guard;
  std::condition_variable Changed;
  Opening Outcome = Opening::kPending;
  double Length = 0;

  // Shared by these two and the rendering thread.
  FrameRing Ring;
  std::atomic<Wanted> Intent{Wanted::kPause};
  std::atomic<bool> DecodedAll{false};
  std::atomic<std::int64_t> Played{0};

  // Used by the rendering thread only.
  float Fade = 1;  // amplitude, from 0 (paused) to 1 (playing)
  /// Frames of silence left before a resumed stream is heard. A level that is set right after the
  /// resumption takes equally long to be reached, so that the old level is not heard.
  int Held = 0;
  int MissingFrames = 0;
  int Starving = 0;  // consecutive frames that the decoder failed to deliver
};

}  // namespace marlex
