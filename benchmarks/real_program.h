#pragma once

#include "system/stage/stage.h"

namespace marlex::bench {

/// A stage for the program of this build.
stage::StageOptions ProgramOptions();

/// Waits until no other Tolvo Marlex runs on this machine, since a second one would end at once.
/// Throws when the other one does not end.
void AwaitOthersEnd();

void Sleep(double seconds);

}  // namespace marlex::bench
