#pragma once

#include "report.h"

namespace marlex::bench {

/// The largest table: built anew, put on the screen, and looked through by a tick.
void MeasureTable(Report& report);

/// A day of a shop on the simulated PC, and with it a year.
void MeasureDay(Report& report);

}  // namespace marlex::bench
