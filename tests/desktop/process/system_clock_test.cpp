#include "desktop/process/system_clock.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace marlex::test {
namespace {

/// Sets the time zone of the process for one test, in the POSIX form, which needs no time zone
/// files.
class ZoneOfTheProcess {
 public:
  explicit ZoneOfTheProcess(const std::string& zone) {
    if (const char* old = std::getenv("TZ")) Old = old;
    Change(zone);
  }
  ZoneOfTheProcess(const ZoneOfTheProcess&) = delete;
  ZoneOfTheProcess& operator=(const ZoneOfTheProcess&) = delete;
  ~ZoneOfTheProcess() {
    if (Old) {
      Change(*Old);
    } else {
      ::unsetenv("TZ");
      ::tzset();
    }
  }

  static void Change(const std::string& zone) { ::setenv("TZ", zone.c_str(), 1); }

 private:
  std::optional<std::string> Old;
};

constexpr const char* kBerlin = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr std::time_t kHour = 3600;
constexpr std::time_t kSpring2024 =
    1711846800;  // Sunday, 31 March 2024, 01:00 UTC: 02:00 becomes 03:00 in Berlin
constexpr std::time_t kAutumn2024 =
    1729990800;  // Sunday, 27 October 2024, 01:00 UTC: 03:00 becomes 02:00

std::string Text(const LocalTime& time) {
  char text[64];
  std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d day %d", time.Year, time.Month, time.Day,
                time.Hour, time.Minute, time.Second, time.Weekday);
  return text;
}

TEST(SystemClock, CountsMonthsFromOneAndWeekdaysFromMonday) {
  const ZoneOfTheProcess zone("UTC0");
  EXPECT_EQ(Text(LocalTimeAt(0)), "1970-1-1 0:0:0 day 4");
  EXPECT_EQ(Text(LocalTimeAt(1704067199)), "2023-12-31 23:59:59 day 7");
  EXPECT_EQ(Text(LocalTimeAt(1704067200)), "2024-1-1 0:0:0 day 1");
  EXPECT_EQ(Text(LocalTimeAt(1709208000)), "2024-2-29 12:0:0 day 4");
}

TEST(SystemClock, PassesOverTheHourThatTheClocksGoForward) {
  const ZoneOfTheProcess zone(kBerlin);
  EXPECT_EQ(Text(LocalTimeAt(kSpring2024 - 1)), "2024-3-31 1:59:59 day 7");
  EXPECT_EQ(Text(LocalTimeAt(kSpring2024)), "2024-3-31 3:0:0 day 7");
}

TEST(SystemClock, RepeatsTheHourThatTheClocksGoBack) {
  const ZoneOfTheProcess zone(kBerlin);
  EXPECT_EQ(Text(LocalTimeAt(kAutumn2024 - 1)), "2024-10-27 2:59:59 day 7");
  EXPECT_EQ(Text(LocalTimeAt(kAutumn2024)), "2024-10-27 2:0:0 day 7");
  EXPECT_EQ(Text(LocalTimeAt(kAutumn2024 + kHour)), "2024-10-27 3:0:0 day 7");
}

TEST(SystemClock, FollowsAZoneThatChangesWhileItRuns) {
  const ZoneOfTheProcess zone("UTC0");
  EXPECT_EQ(Text(LocalTimeAt(kAutumn2024)), "2024-10-27 1:0:0 day 7");
  ZoneOfTheProcess::Change("EST5");
  EXPECT_EQ(Text(LocalTimeAt(kAutumn2024)), "2024-10-26 20:0:0 day 6");
  ZoneOfTheProcess::Change("IST-5:30");
  EXPECT_EQ(Text(LocalTimeAt(kAutumn2024)), "2024-10-27 6:30:0 day 7");
}

TEST(SystemClock, ShowsTheTimeOfNow) {
  const ZoneOfTheProcess zone(kBerlin);
  const SystemClock clock;
  for (;;) {
    const std::time_t before = std::time(nullptr);
    const LocalTime now = clock.Now();
    if (std::time(nullptr) != before) continue;  // a new second began in between
    EXPECT_EQ(Text(now), Text(LocalTimeAt(before)));
    break;
  }
}

TEST(SystemClock, IsAheadByTheSameAmountInEveryZoneAndLater) {
  constexpr std::int64_t kDriftMs = 100;
  const SystemClock clock;
  const ZoneOfTheProcess zone("UTC0");
  const std::int64_t ahead = clock.AheadMs();
  EXPECT_GT(ahead, 0);
  ZoneOfTheProcess::Change("IST-5:30");
  ::usleep(300'000);
  EXPECT_LT(std::abs(clock.AheadMs() - ahead), kDriftMs);
}

}  // namespace
}  // namespace marlex::test
