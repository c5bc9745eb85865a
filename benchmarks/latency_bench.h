#pragma once

#include "report.h"

namespace marlex::bench {

/// How long the real program takes from a status byte to silence, from the change of the minute to
/// the first byte of an announcement, and from the microphone to the output.
void MeasureLatencies(Report& report);

}  // namespace marlex::bench
