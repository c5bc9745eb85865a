#include <algorithm>
#include <array>

#include "scenario/watched_desk.h"

namespace marlex {

/// Failures that an operator can bring about by what he chooses, or types into the editor.
bool WatchedDesk::IsOperatorsFault(const std::string& failure) {
  if (failure == "No message schedule was found in the selection") return true;
  constexpr std::array kFaults{"No interval is chosen",
                               "More than 30 items in a time expression",
                               "More than 24 hours in a time expression",
                               "An hour range has no lower bound",
                               "A number is missing in the hours or the minutes",
                               " is shorter than "};
  return EditorIsOpen() && std::any_of(kFaults.begin(), kFaults.end(), [&](const char* fault) {
           return failure.find(fault) != std::string::npos;
         });
}

bool WatchedDesk::EditorIsOpen() { return Sys->TheWindows.TheWavWindow.Loaded(); }

/// While the editor is open the schedule stands still, unless the end of a call, of an announcement
/// or of a song with a waiting row has switched the tick on. Its closing switches the tick on
/// whatever goes on then, a row that waits for the song's end included.
void WatchedDesk::CheckEditor() {
  const bool tickOn = Sys->TheFrmPlayers.tmrMessage.Enabled;
  const bool opened = EditorIsOpen() && !Before.EditorOpen;
  const bool closed = !EditorIsOpen() && Before.EditorOpen;
  if (opened) Require(!tickOn, "The editor opens, and the tick is on");
  if (opened) TickBegunInWaits.reset();  // it is off, and not by a row
  if (closed) Require(tickOn, "The editor has closed, and the tick is off");
  if (EditorIsOpen() && tickOn && !Before.TickOn) {
    const bool called = Before.CallActive || TickOffByCall || CallStands;
    Require(called || Before.Awaiting || Before.WaitCount > 1,
            "The tick comes on under the editor without a reason");
  }
  EditorOverWaitingRow =
      State().MessageAwaitingSongEnd && (EditorOverWaitingRow || EditorIsOpen() || closed);
  CheckView();
}

/// The table shows all days behind the editor. Closed, it leaves the view that it found, also when
/// the operator has turned the view menus meanwhile.
void WatchedDesk::CheckView() {
  const bool menu = Main().mnuAllDays.Checked;
  Require(menu != Main().mnuCurrentDay.Checked, "Both views are ticked, or none");
  if (!Before.EditorOpen && (menu != Before.AllDaysTicked || !Before.MainShown)) ViewOwed = menu;
  if (!EditorIsOpen())
    Require(Values().AllDaysView == ViewOwed, "The view is not what the menus have made it");
}

}  // namespace marlex
