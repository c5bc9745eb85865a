#include "desktop/windows/hand.h"

#include <utility>

namespace marlex {

void Hand::Forward(VisualControl& control, std::function<void()> event) {
  ForwardAlways([&control, event = std::move(event)] {
    if (control.Watcher) control.Watcher();
    if (control.Enabled && control.Visible && control.Owner.Visible) event();
  });
}

void Hand::ForwardAlways(std::function<void()> event) { Loop.Post(Life.Guard(std::move(event))); }

}  // namespace marlex
