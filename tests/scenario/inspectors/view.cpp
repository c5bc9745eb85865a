#include "scenario/inspectors/view.h"

namespace marlex {

void ViewInspector::Check() {
  const bool allDays = Main().mnuAllDays.Checked;
  Require(allDays != Main().mnuCurrentDay.Checked, "Both views are ticked, or none");
  if (!SequenceEdits.WasOpen() && (allDays != AllDaysTicked || !Before.MainShown))
    AllDaysOwed = allDays;
  if (!SequenceEdits.IsOpen())
    Require(Values().AllDaysView == AllDaysOwed, "The view is not what the menus have made it");
}

}  // namespace marlex
