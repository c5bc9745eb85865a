#pragma once

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// The files that are watched are those that the plan needs. The list of them is made only when it
/// may have changed; here it is compared with a fresh one. Both take as long as hundreds of events,
/// so this is done now and then.
class MediaInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;

 private:
  int EventsLeft = 0;  // until the next comparison
};

}  // namespace marlex
