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

/// What an event loop has still to deliver: events that come once and timers that come again, in
/// the order of their due time, and among equals in the order in which they were queued. Every
/// nested wait of the system rests on that order, so the loop of the desktop and the virtual one
/// deliver from this one queue.
///
/// The clock is the loop's: times are those since an epoch of its choice. Not thread-safe.
class EventQueue {
 public:
  using Time = std::chrono::nanoseconds;
  using TimerId = EventLoop::TimerId;
  using Event = std::shared_ptr<const std::function<void()>>;  // a timer's outlives its stop

  /// Starts a timer that is due first at `now` + `interval`, which is positive.
  TimerId StartTimer(Time now, Time interval, std::function<void()> onTimeout);

  /// Stops a timer; an id that does not run is ignored.
  void StopTimer(TimerId timer);

  /// Queues an event that comes once.
  void Add(Time due, std::function<void()> event);

  /// The event that comes next.
  struct Next {
    Time Due;
    std::uint64_t Order;  // number of the call that queued it; a timer is queued again by each Take
    std::size_t Timer;    // its index, or kOnce
  };
  std::optional<Next> FindNext() const;

  /// Takes the event that `FindNext` has found, with no call of the queue in between. A timer is
  /// armed again before: the next due time counts from the last one, and periods that are past at
  /// `now` are dropped.
  Event Take(const Next& next, Time now);

  /// A mark: what is queued from now on has this order or a higher one.
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

  std::vector<Timer> Timers;    // few: a search through all of them is the fastest queue
  std::vector<Queued> Once;     // a heap, the next one first
  std::uint64_t NextOrder = 1;  // serves as id of timers also
};

}  // namespace marlex
