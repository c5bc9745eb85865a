#pragma once

#include <array>
#include <string>

namespace marlex {

inline constexpr int kZones = 6;  // of the amplifier, 1 to 6; at indices 0 to 5

/// Which zones are on.
using Zones = std::array<bool, kZones>;

/// Zones of a routing text such as "101000", as stored in the settings, and back: zone n is on if
/// character n, counted from 1, is "1". Zones past the end of the text are off.
Zones ZonesOfRouting(const std::string& routing);
std::string RoutingOf(const Zones& zones);

/// Zones of a schedule row, such as "103000": zone n is on if character n is the digit n. Any other
/// character, or a missing one, means off.
Zones ZonesOfRow(const std::string& zoneText);

}  // namespace marlex
