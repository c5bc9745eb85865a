#pragma once

#include <functional>
#include <optional>

#include "controls/control.h"
#include "platform/event_loop.h"

namespace marlex {

/// Raises `OnTimer` every `Interval` milliseconds while it is enabled and its form is loaded. Fires
/// again even while its own handler waits. Enabling a timer that is already running does not
/// restart it; changing the interval does.
class Timer : public Control {
 public:
  Timer(Form& form, std::string name, EventLoop& loop, int intervalMs, bool enabled);
  ~Timer() override;
  ControlKind Kind() const override { return ControlKind::Timer; }
  void Changed() override;

  Property<bool> Enabled;
  Property<int> Interval;  // milliseconds
  std::function<void()> OnTimer;

 private:
  void Stop();

  EventLoop& Loop;
  std::optional<EventLoop::TimerId> Running;
};

}  // namespace marlex
