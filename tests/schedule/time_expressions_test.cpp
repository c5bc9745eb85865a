#include "schedule/time_expressions.h"

#include <gtest/gtest.h>

#include "platform/runtime_failure.h"

namespace marlex {
namespace {

/// The expanded hours, joined by blanks.
std::string Hours(const std::string& expression) {
  TimeExpressions times;
  times.HourExpression = expression;
  times.ParseHours();
  std::string hours;
  for (int hour = 1; hour <= times.HourCount; ++hour) {
    hours += (hour > 1 ? " " : "") + times.HourList[static_cast<std::size_t>(hour)];
  }
  return hours;
}

std::string Minutes(const std::string& expression) {
  TimeExpressions times;
  times.MinuteExpression = expression;
  times.ParseMinutes();
  std::string minutes;
  for (int minute = 1; minute <= times.MinuteCount; ++minute) {
    minutes += (minute > 1 ? " " : "") + times.MinuteList[static_cast<std::size_t>(minute)];
  }
  return minutes;
}

/// The given number of items "1", separated by commas.
std::string Items(int count) {
  std::string items = "1";
  for (int item = 1; item < count; ++item) items += ",1";
  return items;
}

TEST(TimeExpressions, ASingleHourOfOneDigitGetsANoughtAndKeepsAnyFurtherDigits) {
  EXPECT_EQ(Hours("7"), "07");
  EXPECT_EQ(Hours("17"), "17");
  EXPECT_EQ(Hours("007"), "007");
  EXPECT_EQ(Hours("00007"), "00007");
}

TEST(TimeExpressions, AListKeepsItsOrderAndItsDuplicates) {
  EXPECT_EQ(Hours("14,3,08,3"), "14 03 08 03");
  EXPECT_EQ(Hours("1-3,2"), "01 02 03 02");
  EXPECT_EQ(Minutes("45,00,15,0,15"), "45 00 15 00 15");
}

TEST(TimeExpressions, ARangeGivesBothItsBoundsAndAllBetween) {
  EXPECT_EQ(Hours("8-10"), "08 09 10");
  EXPECT_EQ(Hours("9-10,20"), "09 10 20");
  EXPECT_EQ(Hours("0-23"),
            "00 01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20 21 22 23");
  EXPECT_EQ(Hours("20-30"), "20 21 22 23 24 25 26 27 28 29 30");
  EXPECT_EQ(Hours("08-09"), "08 09");
}

TEST(TimeExpressions, ARangeWhoseUpperBoundIsBelowRunsOverMidnight) {
  EXPECT_EQ(Hours("22-2"), "22 23 00 01 02");
  EXPECT_EQ(Hours("23-0"), "23 00");
  EXPECT_EQ(Hours("12,22-1"), "12 22 23 00 01");
}

TEST(TimeExpressions, ARangeFromBeyondTheClockNeverMeetsMidnight) {
  EXPECT_EQ(Hours("25-24"),
            "25 26 27 28 29 30 31 32 33 34 35 36 37 38 39 40 41 42 43 44 45 46 47 48");
  EXPECT_EQ(Hours("30-2"), "");
  EXPECT_EQ(Hours("99-1,5"), "05");
  EXPECT_EQ(Hours("99999999999999-1,3"), "03");
}

TEST(TimeExpressions, EqualBoundsAskForMoreHoursThanThereAre) {
  EXPECT_THROW(Hours("5-5"), RuntimeFailure);
  EXPECT_THROW(Hours("0-0"), RuntimeFailure);
  EXPECT_THROW(Hours("0-24"), RuntimeFailure);
  EXPECT_THROW(Hours("0-99"), RuntimeFailure);
  EXPECT_THROW(Hours("0-11,12-23,0"), RuntimeFailure);
  EXPECT_EQ(Hours("0-11,12-23").size(), 24U * 3 - 1);
}

TEST(TimeExpressions, TheUpperBoundIsTheTwoCharactersAfterTheFirstDash) {
  EXPECT_EQ(Hours("1-234").size(), 23U * 3 - 1);
  EXPECT_EQ(Hours("20-214,5"), "20 21 05");
  EXPECT_EQ(Hours("8-9-12"), "08 09");
  EXPECT_EQ(Hours("8-1-2"), Hours("8-1"));
}

TEST(TimeExpressions, ARangeWithoutAnUpperBoundRunsToMidnight) {
  EXPECT_EQ(Hours("5-"), "05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20 21 22 23 00");
  EXPECT_EQ(Hours("23-,5"), "23 00 05");
  EXPECT_THROW(Hours("0-"), RuntimeFailure);
}

TEST(TimeExpressions, ARangeWithoutALowerBoundHasNoStart) {
  EXPECT_THROW(Hours("-5"), RuntimeFailure);
  EXPECT_THROW(Hours("1,-5,2"), RuntimeFailure);
}

TEST(TimeExpressions, OnlyTheLastHourItemIsCutAtFiveCharacters) {
  EXPECT_EQ(Hours("1,1234567"), "01 12345");
  EXPECT_EQ(Hours("1234567,1"), "1234567 01");
  EXPECT_EQ(Hours("1234567"), "12345");
  EXPECT_EQ(Hours("1,0022-12"), "01 22 23 00");
}

TEST(TimeExpressions, OnlyTheLastOfSeveralMinuteItemsIsCutAtTwoCharacters) {
  EXPECT_EQ(Minutes("10,123"), "10 12");
  EXPECT_EQ(Minutes("123,10"), "123 10");
  EXPECT_EQ(Minutes("123"), "123");
  EXPECT_EQ(Minutes("5"), "05");
  EXPECT_EQ(Minutes("1,2"), "01 02");
}

TEST(TimeExpressions, TheZeroBeforeASingleMinuteIsInTheExpressionToo) {
  TimeExpressions times;
  times.MinuteExpression = "5";
  times.ParseMinutes();
  EXPECT_EQ(times.MinuteExpression, "05");
  times.MinuteExpression = "5,6";
  times.ParseMinutes();
  EXPECT_EQ(times.MinuteExpression, "5,6");
}

TEST(TimeExpressions, AnEmptyItemStaysEmpty) {
  EXPECT_EQ(Hours(""), "");
  EXPECT_EQ(Hours("1,,2"), "01  02");
  EXPECT_EQ(Hours("1,"), "01 ");
  EXPECT_EQ(Minutes("1,"), "01 ");
  TimeExpressions times;
  times.ParseHours();
  times.ParseMinutes();
  EXPECT_EQ(times.HourCount, 1);
  EXPECT_EQ(times.MinuteCount, 1);
}

TEST(TimeExpressions, ThirtyMinutesFitAndThirtyOneDoNot) {
  EXPECT_EQ(Minutes(Items(30)).size(), 30U * 3 - 1);
  EXPECT_THROW(Minutes(Items(31)), RuntimeFailure);
  EXPECT_THROW(Minutes(Items(32)), RuntimeFailure);
}

TEST(TimeExpressions, TwentyFourHoursFitAndThirtyItemsOfThemDoNot) {
  EXPECT_EQ(Hours(Items(24)).size(), 24U * 3 - 1);
  EXPECT_THROW(Hours(Items(25)), RuntimeFailure);
  std::string thirtyItems;
  for (int item = 0; item < 29; ++item) thirtyItems += "99-1,";
  EXPECT_EQ(Hours(thirtyItems + "8"), "08");
  EXPECT_THROW(Hours(thirtyItems + "99-1,8"), RuntimeFailure);
}

TEST(TimeExpressions, ExpressionsThatFailLeaveNoPartOfAListBehind) {
  TimeExpressions times;
  times.HourExpression = "8-10";
  times.MinuteExpression = "00,30";
  times.ParseHours();
  times.ParseMinutes();
  times.HourExpression = "1,2,5-5";
  times.MinuteExpression = Items(31);
  EXPECT_THROW(times.ParseHours(), RuntimeFailure);
  EXPECT_THROW(times.ParseMinutes(), RuntimeFailure);
  EXPECT_EQ(times.HourCount, 0);
  EXPECT_EQ(times.MinuteCount, 0);
}

TEST(TimeExpressions, CommasAreCountedAndTheirPlacesFound) {
  TimeExpressions times;
  times.FindCommas("12,3,,4");
  EXPECT_EQ(times.ItemCount, 4);
  EXPECT_EQ(times.CommaPositions[1], 3);
  EXPECT_EQ(times.CommaPositions[2], 5);
  EXPECT_EQ(times.CommaPositions[3], 6);
  EXPECT_EQ(times.CommaPositions[4], 0);
  times.FindCommas(Items(31));
  EXPECT_EQ(times.CommaPositions[30], 60);
  EXPECT_THROW(times.FindCommas(Items(32)), RuntimeFailure);
}

TEST(TimeExpressions, EachRunStartsFromTheBeginning) {
  TimeExpressions times;
  times.HourExpression = "1,2,3,4";
  times.ParseHours();
  times.HourExpression = "7,8";
  times.ParseHours();
  EXPECT_EQ(times.HourCount, 2);
  EXPECT_EQ(times.HourList[1], "07");
  times.MinuteExpression = "30";
  times.ParseMinutes();
  EXPECT_EQ(times.MinuteCount, 1);
}

TEST(TimeExpressions, TheCutsCountCharactersAndLeaveNoneInPieces) {
  EXPECT_EQ(Hours("1,üäöüäö"), "01 üäöüä");
  EXPECT_EQ(Minutes("1,üäö"), "01 üä");
  EXPECT_EQ(Minutes("ü"), "0ü");
}

}  // namespace
}  // namespace marlex
