#include "state/week_time.h"

#include "text/text_case.h"

namespace marlex {
namespace {

// Digits of a number from 0 to 99.
char Tens(int number) { return static_cast<char>('0' + number / 10); }
char Units(int number) { return static_cast<char>('0' + number % 10); }

}  // namespace

std::string TwoDigits(const std::string& number) {
  const bool oneCharacter = !number.empty() && FirstCharacters(number, 1) == number;
  return oneCharacter ? "0" + number : number;
}

std::string MinuteText(const LocalTime& time) {
  return {Tens(time.Hour), Units(time.Hour), ':', Tens(time.Minute), Units(time.Minute)};
}

std::string SecondText(const LocalTime& time) {
  return MinuteText(time) + std::string{':', Tens(time.Second), Units(time.Second)};
}

bool DayIsOn(const std::string& mask, int weekday) {
  return CharactersFrom(mask, static_cast<std::size_t>(weekday), 1) != "0";
}

}  // namespace marlex
