#pragma once

#include "report.h"

namespace marlex::bench {

/// Ten seconds of the same music in the program, a console player and a desktop player, one after
/// the other, on one display and one sound server; then ten seconds of the idle program.
void MeasurePlayers(Report& report);

}  // namespace marlex::bench
