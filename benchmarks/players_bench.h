#pragma once

#include "report.h"

namespace marlex::bench {

/// Ten seconds of the same music by the program, a console player and a desktop player, in turn, on
/// one display and one sound server; and ten seconds of the program waiting.
void MeasurePlayers(Report& report);

}  // namespace marlex::bench
