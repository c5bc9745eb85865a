#pragma once

#include <cstdint>
#include <functional>

#include "platform/runtime_failure.h"

namespace marlex {

/// The one event loop that runs the system. All calls and all callbacks are on the system's thread,
/// except `Post`, which any thread may call.
class EventLoop {
 public:
  using TimerId = std::uint64_t;

  virtual ~EventLoop() = default;

  /// Calls `onTimeout` every `intervalMs` milliseconds (at least 1) of a steady clock until the
  /// timer is stopped. The next period is armed before the callback runs, so a timer fires again
  /// while its own callback waits in a nested pump. Periods missed while the loop was blocked are
  /// dropped, not made up.
  virtual TimerId StartTimer(int intervalMs, std::function<void()> onTimeout) = 0;

  /// Stops a timer; ignores the id of one that is not running. Its callback is not called
  /// afterwards.
  virtual void StopTimer(TimerId timer) = 0;

  /// Queues `event` for delivery on the system's thread, after the events that are already due.
  virtual void Post(std::function<void()> event) = 0;

  /// Delivers the events that are due now and returns without sleeping.
  virtual void Pump() = 0;

  /// Delivers events, and sleeps while there are none, until `done` holds; it is tested before the
  /// first event and after each one. Waits nest, and an inner wait ends before an outer one
  /// continues.
  ///
  /// While a caller waits here, directly or in a procedure that calls this, anything may happen: a
  /// call, a takeover, the closing of its own window. Such procedures say "Waits" in their header,
  /// and what the caller must test again afterwards.
  virtual void PumpUntil(const std::function<bool()>& done) = 0;

  /// Runs one event of the system. Every adapter that calls into the system does so through this: a
  /// `RuntimeFailure` that escapes from the event ends it and goes to `OnFailure`.
  void Deliver(const std::function<void()>& event) {
    try {
      event();
    } catch (const RuntimeFailure& failure) {
      if (OnFailure) OnFailure(failure);
    }
  }

  std::function<void(const RuntimeFailure&)> OnFailure;
};

}  // namespace marlex
