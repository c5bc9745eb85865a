#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "desktop/sound/gain_ramp.h"
#include "desktop/sound/sound_stream.h"

namespace marlex {

/// Sums the streams that sound. Streams are added and removed on the system's thread and mixed on
/// the rendering thread; neither waits for the other.
class StreamMixer {
 public:
  /// Called on the rendering thread, once for each stream that ends by itself; must not lock.
  /// Returning false postpones the call to the next block.
  using Ended = bool (*)(void* context, const SoundStream& stream);
  StreamMixer(Ended onEnded, void* context) : OnEnded(onEnded), Context(context) {}

  // For the system's thread.

  /// Mixes in a stream from now on.
  void Add(const std::shared_ptr<SoundStream>& stream);

  /// Stops a stream; if it sounds, it fades out within milliseconds. Also valid for a stream that
  /// was never added.
  void Remove(const std::shared_ptr<SoundStream>& stream);

  /// Waits until the next `frames` frames of all streams are decoded. For a clock that does not run
  /// in real time.
  void AwaitDecoding(int frames);

  /// Ends the decoding of all streams. For the end of an engine that is no longer rendered.
  void StopAll();

  // For the rendering thread.

  /// Adds the next frames of all streams to `stereo`. False when no stream sounds; `stereo` is then
  /// unchanged.
  bool MixInto(float* stereo, int frames);

  /// Whether the last block held a stream whose end is reported when it has been heard.
  bool HeardMatters() const { return Matters; }

 private:
  static constexpr std::size_t kPlaces = 16;

  struct Place {
    std::atomic<SoundStream*> Sounding{nullptr};
    // Number of the stream that is gone, or has ended and was reported.
    std::atomic<std::uint64_t> Over{0};
    std::shared_ptr<SoundStream> Owner;  // used by the system's thread only
    bool Leaving = false;                // likewise: removed, but may still be fading out
  };

  struct Discarded {
    std::shared_ptr<SoundStream> Stream;
    std::uint64_t Round;  // value of `Rounds` when its place was emptied
  };

  Place& FreePlace();
  void Empty(Place& place);
  void Collect();
  bool MixPlace(Place& place, float* stereo, int frames);

  const Ended OnEnded;
  void* const Context;
  std::array<Place, kPlaces> Places;
  std::vector<Discarded> Discards;
  bool Matters = false;                  // used by the rendering thread only
  std::atomic<std::uint64_t> Rounds{0};  // odd while a block is being mixed
};

}  // namespace marlex
