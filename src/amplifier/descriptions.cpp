#include "amplifier/descriptions.h"

#include "amplifier/bytes.h"

namespace marlex {

std::string DescribeLevel(int value) {
  const int level = value & kPriorityBits;
  if (level == 0) return "no";
  return level >= kHighPriority ? "high" : "low";
}

std::string DescribeRouting(int value) {
  if (value == kReleaseByte) return "release of all zones";
  const Zones zones = ZonesOfByte(value);
  std::string text = "zones";
  for (std::size_t zone = 0; zone < zones.size(); ++zone)
    if (zones[zone]) text += " " + std::to_string(zone + 1);
  return text + ", " + DescribeLevel(value) + " priority";
}

std::string DescribeStatus(int value) {
  switch (value & kPriorityBits) {
    case 0:
      return "free";
    case kLowPriority:
      return "lower call";
    case kHighPriority:
      return "higher call";
    default:
      return "higher call, both bits";
  }
}

}  // namespace marlex
