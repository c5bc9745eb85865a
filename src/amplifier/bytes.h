#pragma once

#include <string>

#include "amplifier/zones.h"

namespace marlex {

// A routing byte goes to the amplifier: bits 0 to 5 are zones 1 to 6, and the top two bits are our
// own priority level. A status byte comes from the amplifier: the top two bits are the priority of
// a call at its own inputs, 0 for none; the other bits are ignored.

inline constexpr int kPriorityBits = 192;
inline constexpr int kLowPriority = 64;
inline constexpr int kHighPriority = 128;

/// Routing byte that releases all zones and our priority.
inline constexpr char kReleaseByte = 0;

/// Level of a priority text from the settings: high for exactly "High", low for any other.
inline int PriorityLevelOf(const std::string& priorityText) {
  return priorityText == "High" ? kHighPriority : kLowPriority;
}

/// Routing byte for the zones and our level. Without a zone it is the release byte: a priority for
/// no zones is never sent.
inline char RoutingByte(const Zones& zones, int priorityLevel) {
  int bits = 0;
  for (std::size_t zone = 0; zone < zones.size(); ++zone) bits |= zones[zone] << zone;
  return bits == 0 ? kReleaseByte : static_cast<char>(bits | priorityLevel);
}

/// Zones that a routing byte switches on.
inline Zones ZonesOfByte(int value) {
  Zones zones{};
  for (std::size_t zone = 0; zone < zones.size(); ++zone) zones[zone] = (value >> zone & 1) != 0;
  return zones;
}

}  // namespace marlex
