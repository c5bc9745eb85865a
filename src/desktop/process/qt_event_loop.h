#pragma once

#include <functional>
#include <memory>

#include "platform/event_loop.h"

namespace marlex {

/// The system's loop on Qt's. It is made on the thread that owns the `QCoreApplication`, which must
/// exist by then, and serves its timers and posted events under whatever loop of Qt runs: the
/// application's, a dialog's, or a wait of its own. They come in the order of their due time, and
/// among equals in the order in which they were queued.
///
/// Between two of them the condition of the innermost wait is tested, so that nothing of the loop's
/// own slips in between the event that ends a wait and its end. Events that Qt itself collects (the
/// operator's hand, sockets) come in bursts, and the condition is tested after each burst.
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
  std::shared_ptr<Core>
      Inner;  // shared with its own running calls, which may outlive the loop by a moment
};

}  // namespace marlex
