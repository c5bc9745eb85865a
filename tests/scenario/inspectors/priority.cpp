#include "scenario/inspectors/priority.h"

namespace marlex {

void PriorityInspector::Check() {
  const int status = State().AmplifierStatus;
  const bool blocked = status > 0 && status >= Values().OwnPriorityLevel;
  const bool follows = State().PriorityClear == !blocked;
  if (follows) LevelChanged = false;
  if (Values().OwnPriorityLevel != OwnLevel) LevelChanged = true;
  Require(follows || LevelChanged, "PriorityClear does not follow the status");
  Require(!State().PriorityPreempted || status != 0, "A takeover outlives status 0");
  Require(Main().lblHiPrio.Visible == (status != 0), "The note of a call does not follow status");
  const int height = status != 0 ? FrmMain::kShrunkenTransportHeight : FrmMain::kTransportHeight;
  Require(Main().cmdPlay.Height == height, "The transport buttons do not follow the status");
}

}  // namespace marlex
