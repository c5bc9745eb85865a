#include "simulation/virtual_clock.h"

namespace marlex {
namespace {

using namespace std::chrono;

/// Midnight of a day.
LocalTime DateOf(sys_days day) {
  const year_month_day date{day};
  return {.Year = static_cast<int>(date.year()),
          .Month = static_cast<int>(static_cast<unsigned>(date.month())),
          .Day = static_cast<int>(static_cast<unsigned>(date.day())),
          .Weekday = static_cast<int>(weekday(day).iso_encoding())};
}

}  // namespace

/// The calendar is asked once a day, since a simulated year asks for the time a hundred million
/// times.
LocalTime VirtualClock::Now() const {
  const milliseconds since(BaseMs + Loop.NowMs());
  const auto day = floor<days>(since);
  if (day != DaysSince) {
    DaysSince = day;
    Today = DateOf(sys_days(day));
  }
  const auto second = static_cast<int>(floor<seconds>(since - day).count());
  LocalTime now = Today;
  now.Hour = second / 3600;
  now.Minute = second / 60 % 60;
  now.Second = second % 60;
  return now;
}

}  // namespace marlex
