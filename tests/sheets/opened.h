#pragma once

#include <vector>

#include "sheets/scenes.h"

namespace marlex {

/// What opens over a window for as long as the operator chooses from it.
const std::vector<Scene>& OpenedScenes();

}  // namespace marlex
