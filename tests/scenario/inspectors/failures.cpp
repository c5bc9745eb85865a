#include "scenario/inspectors/failures.h"

#include <algorithm>
#include <array>

#include "scenario/require.h"

namespace marlex {
namespace {

bool IsOperatorsFault(const std::string& failure, bool editorIsOpen) {
  if (failure == "No message schedule was found in the selection") return true;
  constexpr std::array kFaults{"No interval is chosen",
                               "More than 30 items in a time expression",
                               "More than 24 hours in a time expression",
                               "An hour range has no lower bound",
                               "A number is missing in the hours or the minutes",
                               "Too few digits for the days or zones: "};
  return editorIsOpen && std::any_of(kFaults.begin(), kFaults.end(), [&](const char* fault) {
           return failure.find(fault) != std::string::npos;
         });
}

}  // namespace

void WatchFailures(Desk& desk) {
  VirtualLoop& loop = desk.Pc.Loop;
  loop.OnFailure = [&desk, report = loop.OnFailure](const RuntimeFailure& failure) {
    Require(IsOperatorsFault(failure.what(), desk.Sys->TheWindows.TheWavWindow.Loaded()),
            std::string("A rule broke: ") + failure.what());
    report(failure);
  };
}

}  // namespace marlex
