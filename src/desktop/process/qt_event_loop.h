#pragma once

#include <functional>
#include <memory>

#include "platform/event_loop.h"

namespace marlex {

/// The system's loop on top of Qt's. Create it on the thread that owns the `QCoreApplication`,
/// which must exist already. It serves its timers and posted events under whatever Qt loop is
/// running: that of the application, of a dialog, or of one of its own waits. Events come in the
/// order of their due times, and those with the same due time in the order in which they were
/// queued.
///
/// The condition of the innermost wait is tested between any two of these events, so that none of
/// them slips in between the event that ends a wait and the wait's return. Events that Qt collects
/// itself (input, sockets) come in bursts, and the condition is tested after each burst.
class QtEventLoop : public EventLoop {
 public:
  QtEventLoop();
  ~QtEventLoop() override;
  QtEventLoop(const QtEventLoop&) = delete;
  QtEventLoop& operator=(const QtEventLoop&) = delete;

  TimerId StartTimer(int intervalMs, std::function<void()> onTimeout) override;
  void StopTimer(TimerId timer) override;
  void Post(std::function<void()> event) override;
  void Pump() override;
  void PumpUntil(const std::function<bool()>& done) override;

 private:
  class Core;
  // Shared with its own running calls, which may briefly outlive the loop.
  std::shared_ptr<Core> Inner;
};

}  // namespace marlex
