#pragma once

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// The amplifier's last status decides whether we may start, how long a takeover lasts, and the
/// note above the transport buttons and their height. A change of our own level takes effect with
/// the next status.
class PriorityInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;
  void Remember() override { OwnLevel = Values().OwnPriorityLevel; }

 private:
  int OwnLevel = 0;
  bool LevelChanged = false;  // since the last status that PriorityClear follows
};

}  // namespace marlex
