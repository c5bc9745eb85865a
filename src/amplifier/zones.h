#pragma once

#include <array>
#include <string>

namespace marlex {

inline constexpr int kZones = 6;  // of the amplifier; arrays of zones run from 0 to 5

/// Which zones are on.
using Zones = std::array<bool, kZones>;

/// Zones of a routing such as "101000", as the settings keep it: zone n is on where character n is
/// "1". A short text has the zones past its end off.
Zones ZonesOfRouting(const std::string& routing);
std::string RoutingOf(const Zones& zones);

/// Zones of a schedule row, such as "103000": zone n is on where character n is the digit n. Any
/// other character, and a missing one, is off.
Zones ZonesOfRow(const std::string& zoneText);

}  // namespace marlex
