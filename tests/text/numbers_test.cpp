#include "text/numbers.h"

#include <gtest/gtest.h>

namespace marlex {
namespace {

TEST(Numbers, AWholeNumberIsReadWithTheBlanksAroundItIgnored) {
  EXPECT_EQ(ToNumber("0"), 0);
  EXPECT_EQ(ToNumber("42"), 42);
  EXPECT_EQ(ToNumber(" \t42 \t"), 42);
  EXPECT_EQ(ToNumber("+42"), 42);
  EXPECT_EQ(ToNumber("-42"), -42);
  EXPECT_EQ(ToNumber("007"), 7);
}

TEST(Numbers, TheEmptyTextIsNought) {
  EXPECT_EQ(ToNumber(""), 0);
  EXPECT_EQ(ToNumber(" \t "), 0);
}

TEST(Numbers, AFractionIsRoundedWithAnExactHalfToTheEvenNumber) {
  EXPECT_EQ(ToNumber("20000.4"), 20000);
  EXPECT_EQ(ToNumber(" 20000.6 "), 20001);
  EXPECT_EQ(ToNumber("1.5"), 2);
  EXPECT_EQ(ToNumber("2.5"), 2);
  EXPECT_EQ(ToNumber("-1.5"), -2);
  EXPECT_EQ(ToNumber("+0.4"), 0);
  EXPECT_EQ(ToNumber("7."), 7);
  EXPECT_EQ(ToNumber(".6"), 1);
}

TEST(Numbers, AnyOtherTextIsNoNumber) {
  for (const char* text : {"loud", "12a", "a12", "1 2", "1.5.2", "1,5", "0x10", "+", "-", ".", "-.",
                           "+-5", "--5", "++5", "inf", "nan", "1e3", "5-"}) {
    EXPECT_EQ(ToNumber(text), std::nullopt) << text;
  }
}

TEST(Numbers, ANumberOutsideThirtyTwoBitsIsNone) {
  EXPECT_EQ(ToNumber("2147483647"), 2147483647);
  EXPECT_EQ(ToNumber("2147483648"), std::nullopt);
  EXPECT_EQ(ToNumber("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(ToNumber("-2147483649"), std::nullopt);
  EXPECT_EQ(ToNumber("2147483647.4"), 2147483647);
  EXPECT_EQ(ToNumber("2147483647.5"), std::nullopt);
  EXPECT_EQ(ToNumber("99999999999999999999"), std::nullopt);
  EXPECT_EQ(ToNumber(std::string(999, '9')), std::nullopt);
}

TEST(Numbers, AnExactHalfIsRoundedToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
}

TEST(Numbers, AnythingElseIsRoundedToTheNearestNumber) {
  EXPECT_EQ(RoundHalfEven(2.4999), 2);
  EXPECT_EQ(RoundHalfEven(2.5001), 3);
  EXPECT_EQ(RoundHalfEven(-2.4999), -2);
  EXPECT_EQ(RoundHalfEven(-2.5001), -3);
  EXPECT_EQ(RoundHalfEven(7.0), 7);
}

}  // namespace
}  // namespace marlex
