#include "amplifier/stand_in.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "amplifier/bytes.h"
#include "desk/desk.h"

namespace marlex {
namespace {

/// The stand-in at the far end of a simulated desk's line, on the same virtual clock.
class StandInTest : public testing::Test {
 protected:
  void SetUp() override {
    Amplifier.Send = [this](char byte) {
      if (!HasDesk) return false;
      TheDesk.Pc.Serial.Receive({static_cast<unsigned char>(byte)});
      return true;
    };
    Amplifier.OnChange = [this] { ++Changes; };
    TheDesk.Pc.Serial.OnSent = [this](int byte) {
      Amplifier.Hear(std::string(1, static_cast<char>(byte)));
    };
  }

  void Press(int status) {
    Amplifier.SetStatus(status);
    TheDesk.Advance(0);
  }

  std::string Lit() const { return RoutingOf(Amplifier.LitZones()); }

  std::string Log() const {
    std::string log;
    for (const LineNote& note : Amplifier.Notes()) {
      log += note.Time + (note.FromDesk ? " <- " : " -> ") + std::to_string(note.Value) + " " +
             note.Meaning + "\n";
    }
    return log;
  }

  Desk TheDesk{DeskOptions{.Music = {{"march"}}}};
  StandIn Amplifier{[this] { return std::to_string(TheDesk.Pc.Loop.NowMs()); }};
  bool HasDesk = true;
  int Changes = 0;
};

TEST_F(StandInTest, BeginsFreeWithAllZonesOff) {
  EXPECT_EQ(Lit(), "000000");
  EXPECT_EQ(Amplifier.HeardLevel(), 0);
  EXPECT_EQ(Amplifier.Status(), 0);
  EXPECT_TRUE(Amplifier.Notes().empty());
}

TEST_F(StandInTest, ZonesAndLevelAreThoseOfTheLastRoutingByte) {
  TheDesk.Click("cmdPlay");
  TheDesk.Advance(200);
  EXPECT_EQ(Lit(), "110000");
  EXPECT_EQ(Lit(), TheDesk.LitZones());
  EXPECT_EQ(Amplifier.HeardLevel(), kLowPriority);
  TheDesk.Click("cmdStop");
  TheDesk.Advance(1000);
  EXPECT_EQ(Lit(), "000000");
  EXPECT_EQ(Amplifier.HeardLevel(), 0);
}

TEST_F(StandInTest, AHigherCallTakesTheDeskOverUntilTheAmplifierIsFree) {
  TheDesk.Click("cmdPlay");
  TheDesk.Advance(200);
  Press(kHighPriority);
  EXPECT_EQ(Amplifier.Status(), kHighPriority);
  EXPECT_TRUE(TheDesk.State().PriorityPreempted);
  Press(0);
  EXPECT_EQ(Amplifier.Status(), 0);
  EXPECT_FALSE(TheDesk.State().PriorityPreempted);
}

TEST_F(StandInTest, EachByteIsNotedWithItsTimeAndMeaning) {
  const std::int64_t start = TheDesk.Pc.Loop.NowMs();
  const auto after = [start](int ms) { return std::to_string(start + ms); };
  TheDesk.Click("cmdPlay");
  TheDesk.Advance(300);
  Press(kHighPriority);
  TheDesk.Advance(700);
  Press(0);
  TheDesk.Advance(1000);
  EXPECT_EQ(Log(), after(200) + " <- 67 zones 1 2, low priority\n" +  //
                       after(300) + " -> 128 higher call\n" +         //
                       after(1000) + " -> 0 free\n" +                 //
                       after(1400) + " <- 67 zones 1 2, low priority\n");
}

TEST_F(StandInTest, AStatusThatNobodyHearsIsNotedAsSuch) {
  HasDesk = false;
  Amplifier.SetStatus(kLowPriority);
  EXPECT_EQ(Amplifier.Status(), kLowPriority);
  EXPECT_EQ(Amplifier.Notes().back().Meaning, "lower call, unheard: no desk is there");
}

TEST_F(StandInTest, EveryByteAndEveryStatusIsAChange) {
  Amplifier.Hear("\x41");
  EXPECT_EQ(Changes, 1);
  Amplifier.SetStatus(0);
  Amplifier.SetStatus(0);
  EXPECT_EQ(Changes, 3);
}

TEST_F(StandInTest, OnlyTheNewestBytesAreKept) {
  for (std::size_t i = 0; i < StandIn::kMostNotes; ++i) Amplifier.Hear("\x41");
  Amplifier.Hear("\x42");
  EXPECT_EQ(Amplifier.Notes().size(), StandIn::kMostNotes);
  EXPECT_EQ(Amplifier.Notes().back().Value, 0x42);
  EXPECT_EQ(Amplifier.NoteCount(), StandIn::kMostNotes + 1);
}

}  // namespace
}  // namespace marlex
