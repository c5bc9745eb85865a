#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>
#include <vector>

#include "desktop/sound/waker.h"

namespace marlex {

/// Carries the ends of streams from the rendering thread, which must not lock, to a thread that
/// may.
class EndReports {
 public:
  /// `report` receives the number of a stream when its end is due, on a separate thread.
  explicit EndReports(std::function<void(std::uint64_t)> report);
  ~EndReports();
  EndReports(const EndReports&) = delete;
  EndReports& operator=(const EndReports&) = delete;

  /// Schedules the report of the end of `stream` in `delayUs` microseconds. Call from the rendering
  /// thread only; never locks. False when the queue is full.
  bool Push(std::uint64_t stream, std::int64_t delayUs);

 private:
  struct End {
    std::uint64_t Stream = 0;
    std::int64_t DueUs = 0;  // on the steady clock
  };

  void Run();
  void Collect(std::vector<End>& waiting);
  void Wait(const std::vector<End>& waiting);

  static constexpr std::size_t kCapacity = 64;
  std::function<void(std::uint64_t)> Report;
  std::array<End, kCapacity> Queue;
  std::atomic<std::size_t> Pushed{0};
  std::atomic<std::size_t> Popped{0};
  std::atomic<bool> Quit{false};
  Waker Waking;
  std::thread Thread;
};

}  // namespace marlex
