#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "desktop/sound/gain_ramp.h"
#include "desktop/sound/sound_stream.h"

namespace marlex {

/// The streams that sound, summed. Streams are added and removed on the system's thread and mixed
/// on the rendering one, and neither waits for the other.
class StreamMixer {
 public:
  /// Called on the rendering thread, once for each stream that ends by itself; it must not lock.
  /// False puts it off to the next block.
  using Ended = bool (*)(void* context, const SoundStream& stream);
  StreamMixer(Ended onEnded, void* context) : OnEnded(onEnded), Context(context) {}

  // For the system's thread.

  /// Lets a stream sound from now on.
  void Add(const std::shared_ptr<SoundStream>& stream);

  /// Stops a stream: it fades out within milliseconds, if it sounds. One that was never added just
  /// ends.
  void Remove(const std::shared_ptr<SoundStream>& stream);

  /// Waits until the next `frames` frames of all streams are decoded. For a clock that does not run
  /// in real time.
  void AwaitDecoding(int frames);

  /// Ends the decoding of all streams; for the end of an engine that is no longer rendered.
  void StopAll();

  // For the thread that renders.

  /// Adds the next frames of all streams. False when none of them sounds, and `stereo` is as it
  /// was.
  bool MixInto(float* stereo, int frames);

  /// Whether the last block held a stream whose end is told when it was heard.
  bool HeardMatters() const { return Matters; }

 private:
  static constexpr std::size_t kPlaces = 16;

  struct Place {
    std::atomic<SoundStream*> Sounding{nullptr};
    std::atomic<std::uint64_t> Over{
        0};  // number of the stream that has ended and was told, or is gone
    std::shared_ptr<SoundStream> Owner;  // of the system's thread
    bool Leaving = false;                // likewise: removed, may still fade out
  };

  struct Discarded {
    std::shared_ptr<SoundStream> Stream;
    std::uint64_t Round;  // number of rounds when its place was emptied
  };

  Place& FreePlace();
  void Empty(Place& place);
  void Collect();
  bool MixPlace(Place& place, float* stereo, int frames);

  const Ended OnEnded;
  void* const Context;
  std::array<Place, kPlaces> Places;
  std::vector<Discarded> Discards;
  bool Matters = false;                  // of the rendering thread
  std::atomic<std::uint64_t> Rounds{0};  // odd while a block is mixed
};

}  // namespace marlex
