#include "amplifier/zones.h"

namespace marlex {
namespace {

bool Has(const std::string& text, std::size_t place, char character) {
  return place < text.size() && text[place] == character;
}

}  // namespace

Zones ZonesOfRouting(const std::string& routing) {
  Zones zones{};
  for (std::size_t zone = 0; zone < zones.size(); ++zone) zones[zone] = Has(routing, zone, '1');
  return zones;
}

std::string RoutingOf(const Zones& zones) {
  std::string routing;
  for (const bool on : zones) routing += on ? '1' : '0';
  return routing;
}

Zones ZonesOfRow(const std::string& zoneText) {
  Zones zones{};
  for (std::size_t zone = 0; zone < zones.size(); ++zone)
    zones[zone] = Has(zoneText, zone, static_cast<char>('1' + zone));
  return zones;
}

}  // namespace marlex
