#include <gtest/gtest.h>

#include <random>

#include "link/link_desk.h"
#include "link/serial_link.h"

namespace marlex {
namespace {

/// Ten seconds of random bytes around the minute of a message, and the recovery by a status 0.
void ExpectTheDeskToOutlive(unsigned seed, const std::string& priority, int level) {
  SCOPED_TRACE(priority + " " + std::to_string(seed));
  std::mt19937 random(seed);
  LinkDesk desk({.Sequences = {{.Minutes = "01"}}, .Priority = priority});
  desk.PlayMusic();
  desk.RunTo(12, 0, 55);
  desk.Pc.Journal.Only({"failure", "process", "box"});
  desk.Pc.Journal.Clear();
  for (int ms = 0; ms < 10'000; ++ms) {
    for (int byte = 0; byte < 10; ++byte)
      desk.Pc.Serial.ReceiveIn(ms, {static_cast<int>(random() % 256)});
  }
  desk.Advance(20'000);
  EXPECT_EQ(desk.Journal(), "");
  for (const SimulatedSerial::SentByte& sent : desk.Pc.Serial.Sent()) {
    const bool zones = sent.Value > level && sent.Value < level + 64;
    EXPECT_TRUE(sent.Value == 0 || zones) << sent.Value;
  }
  desk.Status(0);
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.Priority(), "0");
  EXPECT_EQ(desk.Label(), "hidden 615 615 615");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.LitZones(), "110000");
}

TEST(Noise, TenSecondsOfRandomBytesLeaveADeskThatStatusZeroFrees) {
  for (unsigned seed = 1; seed <= 3; ++seed) {
    ExpectTheDeskToOutlive(seed, "Low", 64);
    ExpectTheDeskToOutlive(seed, "High", 128);
  }
}

TEST(Noise, AFullInputBufferIsOneStatus) {
  LinkDesk desk;
  desk.PlayMusic();
  std::vector<int> bytes(5000, 0xC0);
  bytes[0] = 0x40;
  desk.Pc.Serial.Receive(bytes);
  desk.Advance(0);
  EXPECT_EQ(desk.Priority(), "64 held");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

}  // namespace
}  // namespace marlex
