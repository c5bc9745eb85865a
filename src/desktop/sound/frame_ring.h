#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <vector>

#include "desktop/sound/sound_format.h"

namespace marlex {

/// Lock-free queue of stereo frames between one writing and one reading thread. Both counters only
/// grow; their difference is the fill level.
class FrameRing {
 public:
  /// `capacity` is in frames and must be a power of two.
  explicit FrameRing(int capacity)
      : Capacity(capacity), Samples(std::size_t(capacity) * kChannels) {}

  int Free() const {
    return Capacity - int(Written.load() - Taken.load(std::memory_order_acquire));
  }
  int Filled() const { return int(Written.load(std::memory_order_acquire) - Taken.load()); }

  /// For the writer: appends as many of the `frames` frames as fit, and returns how many did.
  int Write(const float* stereo, int frames) {
    const int count = std::min(frames, Free());
    const std::uint64_t at = Written.load(std::memory_order_relaxed);
    const int first = std::min(count, Capacity - Index(at));
    std::memcpy(Frame(at), stereo, BytesOf(first));
    std::memcpy(Frame(0), stereo + std::size_t(first) * kChannels, BytesOf(count - first));
    Written.store(at + std::uint64_t(count), std::memory_order_release);
    return count;
  }

  /// For the reader: points `stereo` at the next contiguous frames, at most `limit`, and returns
  /// how many there are. `Take` then removes them.
  int Peek(const float*& stereo, int limit) const {
    const std::uint64_t at = Taken.load(std::memory_order_relaxed);
    stereo = Samples.data() + std::size_t(Index(at)) * kChannels;
    return std::min({limit, Filled(), Capacity - Index(at)});
  }
  void Take(int frames) { Taken.fetch_add(std::uint64_t(frames), std::memory_order_release); }

 private:
  int Index(std::uint64_t at) const { return int(at & std::uint64_t(Capacity - 1)); }
  float* Frame(std::uint64_t at) { return Samples.data() + std::size_t(Index(at)) * kChannels; }

  const int Capacity;
  std::vector<float> Samples;
  std::atomic<std::uint64_t> Written{0};
  std::atomic<std::uint64_t> Taken{0};
};

}  // namespace marlex
