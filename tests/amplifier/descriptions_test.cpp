#include "amplifier/descriptions.h"

#include <gtest/gtest.h>

namespace marlex {
namespace {

TEST(Descriptions, ARoutingByteIsSpelledOut) {
  EXPECT_EQ(DescribeRouting(0), "release of all zones");
  EXPECT_EQ(DescribeRouting(69), "zones 1 3, low priority");
  EXPECT_EQ(DescribeRouting(130), "zones 2, high priority");
  EXPECT_EQ(DescribeRouting(191), "zones 1 2 3 4 5 6, high priority");
  EXPECT_EQ(DescribeRouting(5), "zones 1 3, no priority");
}

TEST(Descriptions, AStatusByteIsSpelledOutByItsTopTwoBits) {
  EXPECT_EQ(DescribeStatus(0), "free");
  EXPECT_EQ(DescribeStatus(0x3F), "free");
  EXPECT_EQ(DescribeStatus(64), "lower call");
  EXPECT_EQ(DescribeStatus(128), "higher call");
  EXPECT_EQ(DescribeStatus(192), "higher call, both bits");
}

}  // namespace
}  // namespace marlex
