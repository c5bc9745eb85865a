#pragma once

#include <functional>

#include "controls/widgets.h"
#include "platform/event_loop.h"
#include "platform/lifeline.h"

namespace marlex {

/// Carries what the operator's hand does to the system, each as an event of the loop. So no
/// widget's own code stands on the stack while the system answers, and an answer that waits for
/// minutes leaves every widget free, the same key included.
class Hand {
 public:
  explicit Hand(EventLoop& loop) : Loop(loop) {}

  /// Queues `event`. It is dropped when the control can no longer be worked by then: disabled,
  /// hidden, or its window closed. Either way the control is painted again, since its widget may
  /// show what the hand did and not what holds.
  void Forward(VisualControl& control, std::function<void()> event);

  /// Queues an event that nothing may refuse: the release of a key, the close of a window.
  void ForwardAlways(std::function<void()> event);

 private:
  EventLoop& Loop;
  const Lifeline Life;  // events may outlive the view
};

}  // namespace marlex
