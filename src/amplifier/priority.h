#pragma once

#include <string>

#include "amplifier/zones.h"

namespace marlex {

// A routing byte, from us: bits 0 to 5 are zones 1 to 6, and the top two bits our own priority
// level. A status byte, from the amplifier: the top two bits are the priority of a call at its own
// inputs, 0 for none; the other bits mean nothing to us.

inline constexpr int kPriorityBits = 192;
inline constexpr int kLowPriority = 64;
inline constexpr int kHighPriority = 128;

/// The byte that frees all zones and gives up the priority.
inline constexpr char kReleaseByte = 0;

/// Level of the priority that the settings keep as a text: high for exactly "High", else low.
inline int PriorityLevelOf(const std::string& priorityText) {
  return priorityText == "High" ? kHighPriority : kLowPriority;
}

/// Routing byte of the zones and our level. Without a zone it is the release byte: a priority for
/// no zones is never sent.
inline char RoutingByte(const Zones& zones, int priorityLevel) {
  int bits = 0;
  for (std::size_t zone = 0; zone < zones.size(); ++zone) bits |= zones[zone] << zone;
  return bits == 0 ? kReleaseByte : static_cast<char>(bits | priorityLevel);
}

}  // namespace marlex
