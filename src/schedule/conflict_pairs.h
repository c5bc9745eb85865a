#pragma once

#include <functional>
#include <set>
#include <string>

#include "controls/grid.h"

namespace marlex {

/// Calls `found` for each pair of rows, the earlier one first, that cannot both fire: not removed,
/// at the same minute, with a weekday in common. Returns the schedules whose weekdays are too short
/// to say.
std::set<std::string> FindConflictPairs(const Grid& grid,
                                        const std::function<void(int, int)>& found);

}  // namespace marlex
