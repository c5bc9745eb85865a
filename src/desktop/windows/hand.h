#pragma once

#include <functional>

#include "controls/widgets.h"
#include "platform/event_loop.h"
#include "platform/lifeline.h"

namespace marlex {

/// Passes the operator's actions to the system, each as an event of the loop. So no widget code is
/// on the stack while the system responds, and a response that waits for minutes leaves every
/// widget usable, including the button that caused it.
class Hand {
 public:
  explicit Hand(EventLoop& loop) : Loop(loop) {}

  /// Queues `event`. It is dropped if by then the control can no longer be used: disabled, hidden,
  /// or its window closed. Either way the control is repainted, since its widget may show what the
  /// operator did instead of what is true.
  void Forward(VisualControl& control, std::function<void()> event);

  /// Queues an event that is never dropped, such as the release of a button or the closing of a
  /// window.
  void ForwardAlways(std::function<void()> event);

 private:
  EventLoop& Loop;
  const Lifeline Life;  // queued events may outlive this object; then they are dropped
};

}  // namespace marlex
