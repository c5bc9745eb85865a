#include "simulation/virtual_clock.h"

#include <gtest/gtest.h>

namespace marlex {
namespace {

/// The date, time and weekday in one line.
std::string Reading(const VirtualClock& clock) {
  const LocalTime now = clock.Now();
  const auto two = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
  return std::to_string(now.Year) + "-" + two(now.Month) + "-" + two(now.Day) + " " +
         two(now.Hour) + ":" + two(now.Minute) + ":" + two(now.Second) + " " +
         std::to_string(now.Weekday);
}

struct Clock {
  VirtualLoop Loop;
  VirtualClock Wall{Loop};
};

TEST(VirtualClock, GoesOnWithTheLoop) {
  Clock clock;
  EXPECT_EQ(Reading(clock.Wall), "2024-01-01 12:00:00 1");
  clock.Loop.RunFor(999);
  EXPECT_EQ(Reading(clock.Wall), "2024-01-01 12:00:00 1");
  clock.Loop.RunFor(1);
  EXPECT_EQ(Reading(clock.Wall), "2024-01-01 12:00:01 1");
}

TEST(VirtualClock, SetTakesEffectAtThePresentMoment) {
  Clock clock;
  clock.Loop.RunFor(12'345);
  clock.Wall.Set(2023, 12, 31, 23, 59, 59);
  EXPECT_EQ(Reading(clock.Wall), "2023-12-31 23:59:59 7");
  clock.Loop.RunFor(1000);
  EXPECT_EQ(Reading(clock.Wall), "2024-01-01 00:00:00 1");
}

TEST(VirtualClock, LeapDayComesInLeapYearsAlone) {
  Clock clock;
  clock.Wall.Set(2024, 2, 28, 23, 59, 59);
  clock.Loop.RunFor(1000);
  EXPECT_EQ(Reading(clock.Wall), "2024-02-29 00:00:00 4");
  clock.Wall.Set(2023, 2, 28, 23, 59, 59);
  clock.Loop.RunFor(1000);
  EXPECT_EQ(Reading(clock.Wall), "2023-03-01 00:00:00 3");
  clock.Wall.Set(2100, 2, 28, 23, 59, 59);
  clock.Loop.RunFor(1000);
  EXPECT_EQ(Reading(clock.Wall), "2100-03-01 00:00:00 1");
}

TEST(VirtualClock, JumpsBothWaysAcrossMidnight) {
  Clock clock;
  clock.Wall.Set(2024, 3, 31, 0, 30, 0);
  clock.Wall.Jump(-3600);
  EXPECT_EQ(Reading(clock.Wall), "2024-03-30 23:30:00 6");
  clock.Wall.Jump(2 * 3600);
  EXPECT_EQ(Reading(clock.Wall), "2024-03-31 01:30:00 7");
}

TEST(VirtualClock, DatesBeforeTheEpochAreRight) {
  Clock clock;
  clock.Wall.Set(1969, 12, 31, 23, 59, 58);
  EXPECT_EQ(Reading(clock.Wall), "1969-12-31 23:59:58 3");
}

}  // namespace
}  // namespace marlex
