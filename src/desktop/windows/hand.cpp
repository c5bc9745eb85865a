#include "desktop/windows/hand.h"

#include <utility>

namespace marlex {

void Hand::Forward(VisualControl& control, std::function<void()> event) {
  ForwardAlways([&control, event = std::move(event)] {
    if (control.Watcher) control.Watcher();
    if (control.Enabled && control.Visible && control.Owner.Visible) event();
  });
}

void Hand::ForwardAlways(std::function<void()> event) {
  Loop.Post([alive = std::weak_ptr(Alive), event = std::move(event)] {
    if (!alive.expired()) event();
  });
}

}  // namespace marlex
