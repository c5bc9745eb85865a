#pragma once

#include "desk/desk.h"

namespace marlex {

/// No event ends in a RuntimeFailure, unless the operator caused it by something chosen, or typed
/// into the message schedule editor. To be called for each run of the program.
void WatchFailures(Desk& desk);

}  // namespace marlex
