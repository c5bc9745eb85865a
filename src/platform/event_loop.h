#pragma once

#include <cstdint>
#include <functional>

#include "platform/runtime_failure.h"

namespace marlex {

/// The one loop on which the system lives. All calls and all callbacks are on the system's thread,
/// except `Post`, which any thread may call.
class EventLoop {
 public:
  using TimerId = std::uint64_t;

  virtual ~EventLoop() = default;

  /// Calls `onTimeout` every `intervalMs` milliseconds (at least 1) of a steady clock until the
  /// timer is stopped. The next period is armed before the callback runs, so a timer fires again
  /// while its own callback waits in a nested pump. Periods that a blocked loop missed are dropped,
  /// not made up.
  virtual TimerId StartTimer(int intervalMs, std::function<void()> onTimeout) = 0;

  /// Stops a timer; an id that does not run is ignored. No callback of it comes afterwards.
  virtual void StopTimer(TimerId timer) = 0;

  /// Queues `event` to be delivered on the system's thread, after the events that are queued
  /// already.
  virtual void Post(std::function<void()> event) = 0;

  /// Delivers the events that are waiting now and returns without sleeping.
  virtual void Pump() = 0;

  /// Delivers events, and sleeps while there are none, until `done` holds; it is tested before the
  /// first and after each event. Waits nest, and an inner wait ends before an outer one goes on.
  ///
  /// Whoever calls this, or a procedure that does, stands still while anything else happens: a
  /// call, a takeover, the closing of his own window. Such procedures say "Waits" in their header,
  /// and with what the caller must test again.
  virtual void PumpUntil(const std::function<bool()>& done) = 0;

  /// Runs one event of the system. Every adapter that calls into the system does it through here: a
  /// `RuntimeFailure` that the event lets out ends with the event and goes to `OnFailure`.
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
