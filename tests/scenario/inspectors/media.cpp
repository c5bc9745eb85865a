#include "scenario/inspectors/media.h"

namespace marlex {

void MediaInspector::Check() {
  constexpr int kEventsBetween = 101;
  if (EventsLeft-- > 0) return;
  EventsLeft = kEventsBetween;
  PlanMedia& plan = TheDesk.Sys->TheFaults.Plan();
  plan.Look();
  Require(plan.Watched() == plan.Needed(), "The files that are watched are not those of the plan");
  Corners["a plan with files"] += plan.Watched().empty() ? 0 : 1;
}

}  // namespace marlex
