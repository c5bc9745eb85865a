#pragma once

#include <string>

#include "platform/wall_clock.h"

namespace marlex {

inline constexpr int kWeekdays = 7;

/// The number, with a leading "0" if it is a single character.
std::string TwoDigits(const std::string& number);

/// The time as "HH:MM", 24-hour clock. These texts sort in the order of the times.
std::string MinuteText(const LocalTime& time);

/// The time as "HH:MM:ss", likewise.
std::string SecondText(const LocalTime& time);

/// Whether a day is on in a mask of weekdays, Monday first: its character is not "0". `weekday` is
/// 1 for Monday to 7 for Sunday. A day past the end of the mask is on.
bool DayIsOn(const std::string& mask, int weekday);

}  // namespace marlex
