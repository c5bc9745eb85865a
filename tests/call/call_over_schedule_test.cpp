// A call that begins in the waits of the schedule and of the music's clock: nothing of theirs goes
// on under it.

#include <gtest/gtest.h>

#include "call/call_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = CallDesk::Music::IsSilent;
constexpr const char* kAllAlive = "tick cmdPlay cmdSkip cmdStop";

TEST(CallOverSchedule, PressedInTheFadeAtASequencesEndItKeepsTheTickOff) {
  DeskOptions options{.Sequences = {{.Minutes = "01,02"}}, .FadeTime = "Slow"};
  options.StartTime = "11:00";
  options.StopTime = "23:00";
  options.WeekDays = "1234567";
  options.Now = {2024, 1, 1, 12, 0, 50};
  CallDesk desk(options);
  while (!desk.State().MessagePlaying) desk.Advance(10);
  while (!desk.State().FadeRunning) desk.Advance(10);
  desk.Advance(300);
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  desk.Advance(4000);
  ASSERT_TRUE(desk.Speaks());
  EXPECT_EQ(desk.Alive(), "");
  desk.RunTo(12, 3);
  EXPECT_TRUE(desk.Speaks());
  EXPECT_EQ(desk.Heard(), "microphone at 15000");
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
  desk.Release("cmdCall");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(CallOverSchedule, PressedInTheFadeOfTheMusicsStopItLosesTheRowOfThatMinute) {
  CallDesk desk({.Sequences = {{}},
                 .FadeTime = "Slow",
                 .StartTime = "11:00",
                 .StopTime = "12:01",
                 .WeekDays = "1234567",
                 .Now = {2024, 1, 1, 12, 0, 50}},
                kSilent);
  while (!desk.State().FadeRunning) desk.Advance(1);
  desk.Advance(200);
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  desk.Advance(4000);
  EXPECT_TRUE(desk.Speaks());
  EXPECT_EQ(desk.LitZones(), "001000");
  desk.Release("cmdCall");
  desk.Advance(30'000);
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
  EXPECT_FALSE(desk.Speaks());
}

TEST(CallOverSchedule, OverTheMessagesOfAMusicBreakNothingOfTheMinuteAfterItPlays) {
  DeskOptions options{.Sequences = {{.Timer = "Between"}, {.File = "next.sch", .Minutes = "04"}}};
  options.Now = {2024, 1, 1, 12, 0, 55};
  CallDesk desk(options);
  while (!desk.State().MessagePlaying) desk.Advance(100);
  ASSERT_EQ(desk.Pc.Clock.Now().Minute, 3);
  desk.Press("cmdCall");
  desk.Advance(1000);
  EXPECT_TRUE(desk.Speaks());
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 5);
  EXPECT_TRUE(desk.Speaks());
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
  desk.Release("cmdCall");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard().substr(0, 14), "song waltz.mp3");
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

/// Something waits under the press with a fade of its own, and the flag of an earlier release is
/// still set.
TEST(CallOverSchedule, AReleaseInTheInstantOfThePressCountsAlsoWhenAnEarlierOneHasLeftItsFlag) {
  CallDesk desk({.Sequences = {{}}});
  desk.PressAt(0);
  desk.ReleaseAt(2000);
  desk.ReleaseAt(2100);
  while (!desk.State().MessagePlaying) desk.Advance(1);
  ASSERT_TRUE(desk.State().FadeRunning);
  ASSERT_TRUE(desk.State().CallEndedDuringFade);
  desk.MicrophoneOpened = false;
  desk.Do([&] {
    desk.Pc.Loop.Post([&] { desk.Main().cmdCall.OnMouseUp(MouseButton::Left); });
    desk.Main().cmdCall.OnMouseDown(MouseButton::Left);
  });
  desk.Advance(10'000);
  EXPECT_FALSE(desk.MicrophoneOpened);
  EXPECT_FALSE(desk.State().CallActive);
  EXPECT_EQ(desk.Station(), "Call, lamps off");
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

}  // namespace
}  // namespace marlex
