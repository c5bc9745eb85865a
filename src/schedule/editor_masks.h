#pragma once

#include <string>
#include <vector>

#include "windows/wav_window.h"

namespace marlex {

// Weekdays and zones between the buttons of the schedule editor and its files, which have masks
// such as "103000": position i, counted from 1, holds the digit i, or "0" for off.

std::vector<bool> TickedDays(WavWindow& window);
void TickDays(WavWindow& window, const std::vector<bool>& days);

/// The weekdays of a mask. A shorter one throws `RuntimeFailure`.
std::vector<bool> DaysOf(const std::string& weekdayText);

/// The zone buttons as a mask, and back. A shorter mask throws `RuntimeFailure` and changes no
/// button.
std::string BuildZoneText(WavWindow& window);
void ApplyZoneText(WavWindow& window, const std::string& zoneText);

}  // namespace marlex
