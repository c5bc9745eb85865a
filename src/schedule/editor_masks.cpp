#include "schedule/editor_masks.h"

#include "i18n/operator_failure.h"
#include "text/digit_mask.h"

namespace marlex {
namespace {

std::vector<bool> DigitsOf(const std::string& mask, std::size_t length) {
  if (const auto digits = DigitsInPlace(mask, length)) return *digits;
  throw OperatorFailure(kStrTooFewDigits, "\"" + mask + "\"");
}

}  // namespace

std::vector<bool> TickedDays(WavWindow& window) {
  std::vector<bool> days;
  for (const auto& day : window.WkDays) days.push_back(day->Value != 0);
  return days;
}

void TickDays(WavWindow& window, const std::vector<bool>& days) {
  for (int day = 0; day < kWeekdays; ++day)
    window.WkDays[day].Value = days[static_cast<std::size_t>(day)] ? 1 : 0;
}

std::vector<bool> DaysOf(const std::string& weekdayText) {
  return DigitsOf(weekdayText, kWeekdays);
}

std::string BuildZoneText(WavWindow& window) {
  std::vector<bool> zones;
  for (const auto& zone : window.cmdZone) zones.push_back(zone->Value);
  return DigitMask(zones);
}

void ApplyZoneText(WavWindow& window, const std::string& zoneText) {
  const std::vector<bool> zones = DigitsOf(zoneText, kZones);
  for (int zone = 0; zone < kZones; ++zone)
    window.cmdZone[zone].Value = zones[static_cast<std::size_t>(zone)];
}

}  // namespace marlex
