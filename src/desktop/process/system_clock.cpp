#include "desktop/process/system_clock.h"

#include <algorithm>

namespace marlex {

namespace {

constexpr int kFirstYear = 1900;  // year 0 of `std::tm`
constexpr int kSunday = 7;        // day 0 of the week in `std::tm`
constexpr int kMsPerSecond = 1000;
constexpr int kNsPerMs = 1'000'000;
constexpr int kLastSecond = 59;  // a leap second counts as the second before it

std::int64_t MillisecondsOf(clockid_t clock) {
  timespec now{};
  ::clock_gettime(clock, &now);
  return std::int64_t(now.tv_sec) * kMsPerSecond + now.tv_nsec / kNsPerMs;
}

}  // namespace

LocalTime SystemClock::Now() const { return LocalTimeAt(std::time(nullptr)); }

std::int64_t SystemClock::AheadMs() const {
  return MillisecondsOf(CLOCK_REALTIME) - MillisecondsOf(CLOCK_BOOTTIME);
}

LocalTime LocalTimeAt(std::time_t moment) {
  ::tzset();  // `localtime_r` alone keeps using the zone of its first call
  std::tm civil{};
  if (!::localtime_r(&moment, &civil)) return {};  // only for years that do not fit an int
  return {.Year = civil.tm_year + kFirstYear,
          .Month = civil.tm_mon + 1,
          .Day = civil.tm_mday,
          .Hour = civil.tm_hour,
          .Minute = civil.tm_min,
          .Second = std::min(civil.tm_sec, kLastSecond),
          .Weekday = civil.tm_wday == 0 ? kSunday : civil.tm_wday};
}

}  // namespace marlex
