#include "state/week_time.h"

namespace marlex {

std::string TwoDigits(const std::string& number) {
  return number.size() == 1 ? "0" + number : number;
}

std::string MinuteText(const LocalTime& time) {
  return TwoDigits(std::to_string(time.Hour)) + ":" + TwoDigits(std::to_string(time.Minute));
}

std::string SecondText(const LocalTime& time) {
  return MinuteText(time) + ":" + TwoDigits(std::to_string(time.Second));
}

bool DayIsOn(const std::string& mask, int weekday) {
  const auto place = static_cast<std::size_t>(weekday - 1);
  return place >= mask.size() || mask[place] != '0';
}

}  // namespace marlex
