#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "platform/wall_clock.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// The wall clock of the simulated PC: a date and time that advance with the virtual milliseconds
/// of the loop. It starts on Monday, 1 January 2024, 12:00:00.
class VirtualClock : public WallClock {
 public:
  explicit VirtualClock(const VirtualLoop& loop) : Loop(loop) { Set(2024, 1, 1, 12, 0, 0); }

  /// Sets the current date and time.
  void Set(int year, int month, int day, int hour, int minute, int second) {
    using namespace std::chrono;
    const year_month_day date{std::chrono::year(year),
                              std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day))};
    const milliseconds since =
        sys_days(date).time_since_epoch() + hours(hour) + minutes(minute) + seconds(second);
    BaseMs = since.count() - Loop.NowMs();
  }

  /// Sets the clock forward, or back if negative, as the operator or network time would.
  void Jump(std::int64_t seconds) { BaseMs += seconds * 1000; }

  /// Changes the local time alone, as summer time (3600) or another time zone would.
  void ShiftZone(std::int64_t seconds) {
    Jump(seconds);
    ZoneMs += seconds * 1000;
  }

  std::int64_t AheadMs() const override { return BaseMs - ZoneMs; }

  LocalTime Now() const override;

 private:
  const VirtualLoop& Loop;
  std::int64_t BaseMs = 0;  // date and time at virtual time 0, in milliseconds since 1 January 1970
  mutable LocalTime Today;  // the date that was asked for last
  mutable std::optional<std::chrono::days> DaysSince;  // from 1 January 1970 to it
  std::int64_t ZoneMs = 0;                             // by which the local time was shifted
};

}  // namespace marlex
