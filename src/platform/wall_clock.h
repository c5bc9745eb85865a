#pragma once

#include <cstdint>

namespace marlex {

/// Local date and time of day, as shown by a clock on the wall.
struct LocalTime {
  int Year = 2000;
  int Month = 1;    // 1 to 12
  int Day = 1;      // 1 to 31
  int Hour = 0;     // 0 to 23
  int Minute = 0;   // 0 to 59
  int Second = 0;   // 0 to 59
  int Weekday = 1;  // 1 is Monday, 7 is Sunday
};

/// The wall clock. It may jump forward or back at any moment, so never measure durations with it.
class WallClock {
 public:
  virtual ~WallClock() = default;
  virtual LocalTime Now() const = 0;

  /// Milliseconds by which the clock, in universal time, is ahead of a steady clock that goes on
  /// while the PC sleeps. Changes by more than a drift only when somebody sets the clock; summer
  /// time and another time zone leave it alone.
  virtual std::int64_t AheadMs() const = 0;
};

}  // namespace marlex
