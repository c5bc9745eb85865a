#include "link/serial_link.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <set>

#include "link/link_desk.h"

namespace marlex {
namespace {

/// The byte that a request sends for music zones.
std::string ByteFor(const std::string& musicRouting, const std::string& priority) {
  LinkDesk desk({.Priority = priority, .MusicRouting = musicRouting});
  desk.Click("cmdPlay");
  desk.Advance(1000);
  return desk.Journal();
}

TEST(SerialLink, ZonesOneAndThreeAreByte69AtLowPriorityAnd133AtHigh) {
  EXPECT_EQ(ByteFor("101000", "Low"), "200 send 69\n");
  EXPECT_EQ(ByteFor("101000", "High"), "200 send 133\n");
}

TEST(SerialLink, EachZoneHasItsBit) {
  for (int zone = 0; zone < kZones; ++zone) {
    std::string routing = "000000";
    routing[static_cast<std::size_t>(zone)] = '1';
    EXPECT_EQ(ByteFor(routing, "Low"), "200 send " + std::to_string(64 + (1 << zone)) + "\n");
    EXPECT_EQ(ByteFor(routing, "High"), "200 send " + std::to_string(128 + (1 << zone)) + "\n");
  }
}

TEST(SerialLink, AllZonesMakeTheHighestByteOfEachPriority) {
  EXPECT_EQ(ByteFor("111111", "Low"), "200 send 127\n");
  EXPECT_EQ(ByteFor("111111", "High"), "200 send 191\n");
}

TEST(SerialLink, NoZonesSendTheReleaseByteAndNotThePriorityAlone) {
  EXPECT_EQ(ByteFor("000000", "Low"), "200 send 0\n");
  EXPECT_EQ(ByteFor("000000", "High"), "200 send 0\n");
}

TEST(SerialLink, AnyPriorityButHighCountsAsLow) {
  EXPECT_EQ(ByteFor("100000", ""), "200 send 65\n");
  EXPECT_EQ(ByteFor("100000", "high"), "200 send 65\n");
}

/// Each click lights or darkens one zone of playing music, in an order in which every pattern
/// appears once and the last one is dark. Bit 0 is zone 1.
TEST(SerialLink, EveryPatternOfZonesMakesItsByteAtBothPriorities) {
  for (const auto& [priority, level] : {std::pair{"Low", 64}, std::pair{"High", 128}}) {
    LinkDesk desk({.Priority = priority, .MusicRouting = "000000"});
    desk.PlayMusic();
    std::set<int> patterns;
    int pattern = 0;
    for (unsigned click = 1; click <= 64; ++click) {
      const int zone = std::min(std::countr_zero(click), kZones - 1);
      patterns.insert(pattern ^= 1 << zone);
      desk.Click("cmdMusicZones_" + std::to_string(zone));
      desk.Advance(200);
      EXPECT_EQ(desk.TakeJournal(),
                "200 send " + std::to_string(pattern == 0 ? 0 : level + pattern) + "\n");
    }
    EXPECT_EQ(patterns.size(), 64U);
  }
}

TEST(SerialLink, TheByteIsMadeFromTheLabelsAndNotFromTheSettings) {
  LinkDesk desk({.MusicRouting = "110000", .CallRouting = "001000"});
  desk.Press("cmdCall");
  desk.Click("cmdMusicZones_5");
  desk.Advance(1000);
  EXPECT_EQ(desk.LitZones(), "001001");
  EXPECT_EQ(desk.Journal(), "200 send 100\n");
  EXPECT_EQ(desk.Values().MusicRouting + " " + desk.Values().CallRouting, "110001 001000");
}

TEST(SerialLink, TwoZoneClicksWithinTheDelayMakeOneByteWithBoth) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Click("cmdMusicZones_4");
  desk.Advance(150);
  desk.Click("cmdMusicZones_0");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "200 send 82\n");
}

TEST(SerialLink, ALaterRequestDoesNotPutTheFirstOneOff) {
  LinkDesk desk;
  desk.PlayMusic();
  for (int click = 0; click < 6; ++click) {
    desk.Click("cmdMusicZones_4");
    desk.Advance(75);
  }
  EXPECT_EQ(desk.Journal(), "200 send 83\n425 send 67\n");
}

TEST(SerialLink, ARequestIsSentOnce) {
  LinkDesk desk;
  desk.Click("cmdPlay");
  desk.Advance(170'000);
  EXPECT_EQ(desk.Journal(), "200 send 67\n");
  EXPECT_FALSE(desk.Players().tmrIODelay.Enabled);
}

TEST(SerialLink, ThePortOfTheSettingsIsOpenedWithTheMainWindow) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Profiles.WriteString("Used com port", "Com port", "2", Desk::kIni);
    pc.Serial.Device = 2;
  });
  EXPECT_TRUE(desk.Pc.Serial.PortOpen());
  EXPECT_TRUE(desk.Pc.Serial.Connected());
  EXPECT_EQ(desk.Journal(), "2500 serial open 2\n");
}

TEST(SerialLink, WithTheOtherAmplifierThePortStaysShutAndNothingIsSent) {
  LinkDesk desk({.Sequences = {{}}, .Router = false, .MusicRouting = "111111"});
  desk.Pc.Journal.Only({"send", "lost", "serial"});
  desk.Click("cmdPlay");
  desk.Status(192);
  EXPECT_EQ(desk.Priority(), "0");
  desk.RunTo(12, 2);
  desk.Click("cmdStop");
  desk.Advance(1000);
  desk.Click("cmdPlay");
  desk.Advance(1000);
  desk.Click("mnuExit");
  EXPECT_EQ(desk.Journal(), "");
}

TEST(SerialLink, APortThatCannotBeOpenedIsReportedOnceAndTheDeskGoesOn) {
  LinkDesk desk({}, [](SimulatedPc& pc) { pc.Serial.Unplug(); });
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Caption, "Error");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Icon, BoxIcon::Critical);
  desk.Click("cmdPlay");
  desk.Advance(60'000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Journal(), "200 lost 67\n");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
}

TEST(SerialLink, APortThatVanishesIsUsedAgainWhenItIsBackWithoutAWord) {
  LinkDesk desk;
  desk.PlayMusicAndUnplug();
  desk.Click("cmdMusicZones_2");
  desk.Advance(1000);
  desk.Pc.Serial.Plug();
  desk.Advance(2000);
  desk.Click("cmdMusicZones_3");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "200 lost 71\n2000 send 71\n3200 send 79\n");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(SerialLink, TheAmplifierHearsOfManyLostBytesTheLastWhenThePortIsBack) {
  LinkDesk desk;
  desk.PlayMusicAndUnplug();
  desk.Click("cmdMusicZones_2");
  desk.Advance(1000);
  desk.Click("cmdStop");
  desk.Advance(1000);
  desk.Pc.Serial.Plug();
  desk.Advance(3000);
  EXPECT_EQ(desk.Journal(), "200 lost 71\n1000 lost 0\n3000 send 0\n");
}

TEST(SerialLink, APortThatComesBackHearsNothingThatNobodyAskedFor) {
  LinkDesk desk;
  desk.PlayMusicAndUnplug();
  desk.Advance(5000);
  desk.Pc.Serial.Plug();
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(SerialLink, WhatWasAskedOfAClosedPortIsForgotten) {
  LinkDesk desk;
  desk.PlayMusicAndUnplug();
  desk.Click("cmdMusicZones_2");
  desk.Advance(1000);
  desk.Do([&] { desk.Pc.Serial.SetPortOpen(false); });
  desk.Pc.Serial.Plug();
  desk.Advance(2000);
  desk.Do([&] { desk.Pc.Serial.SetPortOpen(true); });
  desk.Advance(2000);
  EXPECT_EQ(desk.Journal(), "200 lost 71\n");
}

TEST(SerialLink, AnEventWithoutBytesIsNoStatus) {
  LinkDesk desk;
  desk.Status(64);
  desk.Do([&] { desk.Pc.Serial.OnComm(); });
  EXPECT_EQ(desk.Priority(), "64 held");
}

TEST(SerialLink, OnlyTheTopTwoBitsOfAStatusCount) {
  const std::vector<std::pair<int, std::string>> bytes = {
      {0x00, "0"},        {0x3F, "0"},        {0x40, "64 held"},  {0x7F, "64 held"},
      {0x80, "128 held"}, {0xBF, "128 held"}, {0xC0, "192 held"}, {0xFF, "192 held"}};
  for (const auto& [byte, priority] : bytes) {
    LinkDesk desk;
    desk.Status(byte);
    EXPECT_EQ(desk.Priority(), priority) << byte;
  }
}

TEST(SerialLink, OnlyTheFirstByteOfAReadCounts) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Pc.Serial.Receive({0x00, 0xC0, 0x40});
  desk.Advance(0);
  EXPECT_EQ(desk.Priority(), "0");
  desk.Pc.Serial.Receive({0xC0, 0x00});
  desk.Advance(0);
  EXPECT_EQ(desk.Priority(), "192 held preempted");
}

TEST(SerialLink, TheStatusOfOurLevelOrAHigherOneHoldsStartsBack) {
  const std::string higher = "Higher priority call in progress 255 255 255";
  const std::string lower = "Lower priority call in progress 255 255 255";
  struct Row {
    std::string Own;
    int Status;
    std::string Priority;
    std::string Label;
  };
  const std::vector<Row> rows = {
      {"Low", 64, "64 held", higher},    {"Low", 128, "128 held", higher},
      {"Low", 192, "192 held", higher},  {"High", 64, "64", lower},
      {"High", 128, "128 held", higher}, {"High", 192, "192 held", higher}};
  for (const Row& row : rows) {
    LinkDesk desk({.Priority = row.Own});
    EXPECT_EQ(desk.Label(), "hidden 615 615 615");
    desk.Status(row.Status);
    EXPECT_EQ(desk.Priority(), row.Priority) << row.Own << row.Status;
    EXPECT_EQ(desk.Label(), row.Label) << row.Own << row.Status;
    desk.Click("cmdPlay");
    const bool held = row.Priority.find("held") != std::string::npos;
    EXPECT_EQ(desk.Heard(), held ? "silence" : "song march.mp3 at 20000") << row.Status;
    desk.Status(0);
    EXPECT_EQ(desk.Priority(), "0");
    EXPECT_EQ(desk.Label(), "hidden 615 615 615");
  }
}

TEST(SerialLink, ACallOfLowPriorityDisturbsNothingThatRuns) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(64);
  desk.Advance(10'000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Priority(), "64 held");
  EXPECT_TRUE(desk.Enabled("cmdCall"));
  EXPECT_EQ(desk.Journal(), "");
}

}  // namespace
}  // namespace marlex
