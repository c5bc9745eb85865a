#include "amplifier/zones.h"

#include <gtest/gtest.h>

#include "amplifier/bytes.h"

namespace marlex {
namespace {

constexpr Zones kNone{};
constexpr Zones kFirstAndThird{true, false, true, false, false, false};
constexpr Zones kAll{true, true, true, true, true, true};

TEST(Zones, ARoutingHasAOneForEachZoneThatIsOn) {
  EXPECT_EQ(ZonesOfRouting("101000"), kFirstAndThird);
  EXPECT_EQ(ZonesOfRouting("111111"), kAll);
  EXPECT_EQ(RoutingOf(kFirstAndThird), "101000");
  EXPECT_EQ(RoutingOf(kNone), "000000");
}

TEST(Zones, OnlyAOneSwitchesAZoneOnInARouting) {
  EXPECT_EQ(ZonesOfRouting("1030x "), (Zones{true}));
}

TEST(Zones, ARowHasTheDigitOfEachZoneThatIsOn) {
  EXPECT_EQ(ZonesOfRow("103000"), kFirstAndThird);
  EXPECT_EQ(ZonesOfRow("123456"), kAll);
  EXPECT_EQ(ZonesOfRow("110000"), (Zones{true}));
}

TEST(Zones, AShortTextHasTheRestOff) {
  EXPECT_EQ(ZonesOfRouting("101"), kFirstAndThird);
  EXPECT_EQ(ZonesOfRow("103"), kFirstAndThird);
  EXPECT_EQ(ZonesOfRouting(""), kNone);
  EXPECT_EQ(ZonesOfRow("1234567890"), kAll);
}

TEST(RoutingByte, CarriesTheZonesAndOurPriority) {
  EXPECT_EQ(static_cast<unsigned char>(RoutingByte(kFirstAndThird, kLowPriority)), 5 + 64);
  EXPECT_EQ(static_cast<unsigned char>(RoutingByte(kAll, kHighPriority)), 63 + 128);
}

TEST(RoutingByte, NeverCarriesAPriorityForNoZones) {
  EXPECT_EQ(RoutingByte(kNone, kLowPriority), kReleaseByte);
  EXPECT_EQ(RoutingByte(kNone, kHighPriority), kReleaseByte);
}

TEST(Priority, IsHighForThatVeryWordAlone) {
  EXPECT_EQ(PriorityLevelOf("High"), kHighPriority);
  for (const char* text : {"Low", "high", "High ", ""})
    EXPECT_EQ(PriorityLevelOf(text), kLowPriority) << text;
}

}  // namespace
}  // namespace marlex
