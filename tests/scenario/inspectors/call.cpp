#include "scenario/inspectors/call.h"

namespace marlex {

void CallInspector::Check() {
  Require(State().CallActive || !TheDesk.Sys->TheFrmPlayers.tmrFlash.Enabled,
          "The lamps flash without a call");
  CheckThatSomebodyHoldsIt();
}

/// A call that only delivers events does not count as waiting, but takes no time either.
void CallInspector::CheckThatSomebodyHoldsIt() {
  if (!AtRest(TheDesk) || !State().CallActive || Held) return LeftAtMs.reset();
  if (!LeftAtMs) LeftAtMs = NowMs();
  Require(NowMs() == *LeftAtMs, "A call goes on that nobody holds");
}

bool CallButtonsSay(Desk& desk, StringId caption) {
  const std::string text = desk.Sys->Strings.LoadString(caption);
  return desk.Main().cmdCall.Caption.Get() == text && desk.Main().cmdCall2.Caption.Get() == text;
}

}  // namespace marlex
