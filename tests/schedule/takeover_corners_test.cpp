// Takeovers at points where the steps of two procedures overlap. Deliberate: the results are what
// these steps, taken literally, produce.

#include <gtest/gtest.h>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;

/// A row that waits for the music break; the first song ends 31 seconds into the journal.
DeskOptions AtBreak() {
  return {.Music = {{"march", 58'000}, {"waltz", 600'000}},
          .Sequences = {{.Messages = "welcome,closing", .Zones = "003000", .Timer = "Between"}}};
}

/// Music that was started by the clock stops in the minute of the row.
DeskOptions StopsAtTheRow() {
  return {.StartTime = "11:00", .StopTime = "12:01", .WeekDays = "1234567"};
}

TEST(TakeoverCorners, AWaitingRowIsLostAndTheNextSongOpensTheMaster) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(5000);
  desk.Status(128);
  EXPECT_EQ(desk.Muted(), "master microphone");
  EXPECT_EQ(desk.Heard(), "silence");
  desk.AdvanceTo(31'000);
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  EXPECT_TRUE(desk.State().PriorityPreempted);
  EXPECT_EQ(desk.Muted(), "microphone");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
  EXPECT_EQ(desk.Journal(), "31000 song end\n31000 song play waltz.mp3\n");
}

TEST(TakeoverCorners, AWaitingRowIsLostEvenWhenTheTakeoverEndsBeforeTheSong) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(5000);
  desk.Status(128);
  desk.AdvanceTo(6000);
  desk.Status(0);
  desk.AdvanceTo(40'000);
  EXPECT_EQ(desk.Journal(), "6400 send 67\n31000 song end\n31000 song play waltz.mp3\n");
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
}

TEST(TakeoverCorners, ATakeoverInTheFadeOfTheClocksStopLosesTheRowOfTheMinute) {
  SpotDesk desk(StopsAtTheRow(), kSilent);
  ASSERT_EQ(desk.Heard(), "song march.mp3 at 20000");
  desk.AdvanceTo(1250);
  desk.Status(128);
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Journal(), "1250 song stop\n1250 send 0\n");
  EXPECT_EQ(desk.Muted(), "master microphone");
  EXPECT_EQ(desk.LitZones(), "110000");
  desk.Status(0);
  desk.AdvanceTo(70'000);
  EXPECT_EQ(desk.Journal(), "1250 song stop\n1250 send 0\n");
}

TEST(TakeoverCorners, ACallOfTheAmplifierInTheFadeOfTheClocksStopLosesTheRowToo) {
  SpotDesk desk(StopsAtTheRow(), kSilent);
  desk.AdvanceTo(1250);
  desk.Status(64);
  EXPECT_TRUE(desk.State().FadeRunning);  // a call of our own level disturbs nothing that runs
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(), "1529 song stop\n1529 send 0\n");
}

TEST(TakeoverCorners, ALowerCallAfterATakeoverLetsARowFadeMusicForNothing) {
  SpotDesk desk({.Priority = "High"});
  desk.AdvanceTo(500);
  desk.Status(128);
  desk.Status(64);
  EXPECT_TRUE(desk.State().PriorityClear);
  EXPECT_TRUE(desk.State().PriorityPreempted);
  desk.AdvanceTo(5000);
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_EQ(desk.WaveSlider(), FrmMxr::kSilent);
  EXPECT_EQ(desk.MusicState(), kPlaying);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
}

TEST(TakeoverCorners, MusicThatWasFadedOutForNothingStaysSilentUntilThePlayButton) {
  SpotDesk desk({.Priority = "High"});
  desk.AdvanceTo(500);
  desk.Status(128);
  desk.Status(64);
  desk.AdvanceTo(5000);
  desk.Status(0);
  desk.AdvanceTo(30'000);
  EXPECT_EQ(desk.Journal(), "5400 send 131\n");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Muted(), "microphone");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

/// Our level is high: a call of level 128 cuts off a message, then a lower one follows, and the
/// next row comes during that one.
class LowerCallAfterATakeover : public SpotDesk {
 public:
  LowerCallAfterATakeover()
      : SpotDesk(
            {.Sequences =
                 {{.Messages = "welcome,closing", .Zones = "003000"},
                  {.File = "b.sch", .Messages = "closing", .Minutes = "02", .Zones = "000406"}},
             .Priority = "High"}) {
    AdvanceTo(3000);
    Status(128);
    AdvanceTo(4000);
    Status(64);
    AdvanceTo(60'999);
    Pc.Journal.Clear();
  }
};

TEST(TakeoverCorners, ARowSoundsInATakeoverOnceALowerCallHasFollowed) {
  LowerCallAfterATakeover desk;
  ASSERT_EQ(desk.Muted(), "master microphone");
  ASSERT_EQ(desk.MusicState(), kPaused);
  desk.AdvanceTo(62'000);
  EXPECT_EQ(desk.Heard(), "wav closing.wav at 10000");
  EXPECT_TRUE(desk.State().PriorityPreempted);
  desk.AdvanceTo(80'000);
  EXPECT_EQ(desk.Journal(),
            "1 send 0\n"
            "1 wav play closing.wav\n"
            "2001 wav end closing.wav\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
  EXPECT_EQ(desk.MusicState(), kPaused);
}

TEST(TakeoverCorners, TheZonesOfARowThatSoundedInATakeoverGoOutWithItsEnd) {
  LowerCallAfterATakeover desk;
  desk.AdvanceTo(80'000);
  EXPECT_EQ(desk.LitZones(), "000101");
  desk.Pc.Journal.Only({"send"});
  desk.Pc.Journal.Clear();
  desk.Status(0);
  desk.Advance(5000);
  // Requested at 61'000 and again every 200 ms: 128 + 8 + 32 for the zones 4 and 6.
  EXPECT_EQ(desk.Journal(), "200 send 168\n");
}

}  // namespace
}  // namespace marlex
