#pragma once

#include <string>

#include "platform/wall_clock.h"

namespace marlex {

/// A number of one character gets a "0" in front.
std::string TwoDigits(const std::string& number);

/// "HH:MM" of a time, 24-hour clock; such texts order as the times do.
std::string MinuteText(const LocalTime& time);

/// "HH:MM:ss" likewise.
std::string SecondText(const LocalTime& time);

/// Whether a mask of weekdays, Monday first, has the day on, 1 is Monday: its character is not "0".
/// A day that the mask does not reach is on.
bool DayIsOn(const std::string& mask, int weekday);

}  // namespace marlex
