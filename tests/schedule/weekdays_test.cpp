#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

constexpr int kSunday = 7;

/// The weekdays, as a mask of digits, on which a row with this mask plays in the view. The clock is
/// set to one minute before the row on each day, starting on 1 January 2024, a Monday.
std::string DaysOfPlaying(const std::string& mask, bool allDays, bool conflictPending = false) {
  std::string days;
  for (int day = 1; day <= kSunday; ++day) {
    DeskOptions options{
        .Sequences = {{.Weekdays = mask}}, .AllDays = allDays, .Now = {2024, 1, day, 12, 0, 55}};
    if (conflictPending) {
      options.Sequences.push_back({.File = "b.sch", .Hours = "18", .Minutes = "00,00"});
    }
    Desk desk(options);
    desk.Advance(4000);
    days += desk.Heard() == "silence" ? '0' : static_cast<char>('0' + day);
  }
  return days;
}

TEST(Weekdays, InTheViewOfTheDayARowPlaysOnExactlyTheDaysOfItsMask) {
  for (const char* mask : {"1234567", "1234500", "1234560", "1234507", "0000060", "0000007",
                           "0030000", "1000000", "0000000"}) {
    EXPECT_EQ(DaysOfPlaying(mask, false), mask);
  }
}

TEST(Weekdays, InTheViewOfTheDayAnythingButZeroIsADay) {
  EXPECT_EQ(DaysOfPlaying("", false), "1234567");
  EXPECT_EQ(DaysOfPlaying("0", false), "0234567");
  EXPECT_EQ(DaysOfPlaying("00000", false), "0000067");
  EXPECT_EQ(DaysOfPlaying("x0y0 0?", false), "1030507");
  EXPECT_EQ(DaysOfPlaying("ü00000", false), "1000007");
}

TEST(Weekdays, InTheViewOfAllDaysSaturdayIsReadFromSundaysPlace) {
  EXPECT_EQ(DaysOfPlaying("1234567", true), "1234567");
  EXPECT_EQ(DaysOfPlaying("1234500", true), "1234507");
  EXPECT_EQ(DaysOfPlaying("1234560", true), "1234507");
  EXPECT_EQ(DaysOfPlaying("1234507", true), "1234567");
  EXPECT_EQ(DaysOfPlaying("0000060", true), "0000007");
  EXPECT_EQ(DaysOfPlaying("0000007", true), "0000067");
  EXPECT_EQ(DaysOfPlaying("0000000", true), "0000007");
  EXPECT_EQ(DaysOfPlaying("0030000", true), "0030007");
}

TEST(Weekdays, InTheViewOfAllDaysWhatAMaskLacksIsADay) {
  EXPECT_EQ(DaysOfPlaying("", true), "1234567");
  EXPECT_EQ(DaysOfPlaying("00000", true), "0000067");
  EXPECT_EQ(DaysOfPlaying("000000", true), "0000067");
  EXPECT_EQ(DaysOfPlaying("üü00000", true), "1200007");
}

TEST(Weekdays, UnderAConflictTheViewOfTheDayReadsSundaysPlaceToo) {
  EXPECT_EQ(DaysOfPlaying("1234567", false, true), "1234567");
  EXPECT_EQ(DaysOfPlaying("1234560", false, true), "1234500");
  EXPECT_EQ(DaysOfPlaying("1234507", false, true), "1234507");
  EXPECT_EQ(DaysOfPlaying("1234500", false, true), "1234500");
  EXPECT_EQ(DaysOfPlaying("0000000", false, true), "0000000");
}

TEST(Weekdays, WithTheLastConflictGoneSaturdayPlaysAgain) {
  Desk desk(
      {.Sequences = {{.Weekdays = "0000060"}, {.File = "b.sch", .Hours = "18", .Minutes = "00,00"}},
       .Now = {2024, 1, 6, 12, 0, 50}});
  EXPECT_EQ(desk.Cell(1, kDaysColumn), "0000060");
  desk.DoubleClickCell(2, kTimeColumn);
  EXPECT_EQ(desk.Cell(1, kDaysColumn), "");
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

}  // namespace
}  // namespace marlex
