#include "state/week_time.h"

#include "text/text_case.h"

namespace marlex {

std::string TwoDigits(const std::string& number) {
  const bool oneCharacter = !number.empty() && FirstCharacters(number, 1) == number;
  return oneCharacter ? "0" + number : number;
}

std::string MinuteText(const LocalTime& time) {
  return TwoDigits(std::to_string(time.Hour)) + ":" + TwoDigits(std::to_string(time.Minute));
}

std::string SecondText(const LocalTime& time) {
  return MinuteText(time) + ":" + TwoDigits(std::to_string(time.Second));
}

bool DayIsOn(const std::string& mask, int weekday) {
  return CharactersFrom(mask, static_cast<std::size_t>(weekday), 1) != "0";
}

}  // namespace marlex
