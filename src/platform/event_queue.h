#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/event_loop.h"

namespace marlex {

/// What an event loop has yet to deliver: single events and repeating timers, in the order of their
/// due times, and those with the same due time in the order in which they were queued. Every nested
/// wait of the system depends on that order, so the real loop and the virtual one share this queue.
///
/// The loop owns the clock: times count from an epoch of its choice. Not thread-safe.
class EventQueue {
 public:
  using Time = std::chrono::nanoseconds;
  using TimerId = EventLoop::TimerId;
  using Event = std::shared_ptr<const std::function<void()>>;  // a timer's event outlives its stop

  /// Starts a timer that is first due at `now` + `interval`; `interval` must be positive.
  TimerId StartTimer(Time now, Time interval, std::function<void()> onTimeout);

  /// Stops a timer; ignores the id of one that is not running.
  void StopTimer(TimerId timer);

  /// Queues a single event.
  void Add(Time due, std::function<void()> event);

  /// The event that comes next.
  struct Next {
    Time Due;
    std::uint64_t Order;  // position in the sequence of queuings; each `Take` queues a timer again
    std::size_t Timer;    // index of the timer, or `kOnce`
  };
  std::optional<Next> FindNext() const;

  /// Takes the event found by `FindNext`; the queue must not change in between. A timer is armed
  /// again first: its next due time counts from the last one, and periods that have passed by `now`
  /// are dropped.
  Event Take(const Next& next, Time now);

  /// Whatever is queued from now on has at least this `Order`.
  std::uint64_t Newcomers() const { return NextOrder; }

  void Clear();

 private:
  struct Timer {
    Time Due;
    std::uint64_t Order;
    Time Interval;
    TimerId Id;
    Event OnTimeout;
  };
  struct Queued {
    Time Due;
    std::uint64_t Order;
    std::function<void()> Callback;
  };

  static constexpr std::size_t kOnce = static_cast<std::size_t>(-1);

  static bool ComesLater(const Queued& left, const Queued& right);
  Event TakeTimer(Timer& timer, Time now);
  Event TakeOnce();

  std::vector<Timer> Timers;    // few, so searching them all is fastest
  std::vector<Queued> Once;     // a heap, with the next event first
  std::uint64_t NextOrder = 1;  // also used as timer id
};

}  // namespace marlex
