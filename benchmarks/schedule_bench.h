#pragma once

#include "report.h"

namespace marlex::bench {

/// The largest table: rebuilt, shown on the screen, and searched by a tick.
void MeasureTable(Report& report);

/// A day of a shop on the simulated PC, and a year extrapolated from it.
void MeasureDay(Report& report);

}  // namespace marlex::bench
