#include "scenario/inspectors/waits.h"

namespace marlex {

void WaitsInspector::Check() {
  constexpr int kMostWaits = 16;
  constexpr int kMostBoxes = 12;
  Require(TheDesk.Pc.Loop.Waits() <= kMostWaits, "Waits pile up");
  Require(TheDesk.Pc.Dialogs.OpenBoxCount() <= kMostBoxes, "Boxes pile up");
}

}  // namespace marlex
