// A call that begins during the waits of the schedule and of the music's clock: none of their work
// continues during the call.

#include <gtest/gtest.h>

#include <utility>

#include "call/call_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = CallDesk::MusicAtStart::IsSilent;

TEST(CallOverSchedule, PressedInTheFadeAtASequencesEndItLosesTheRowsUnderIt) {
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
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");  // the sequence's end has switched them on
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

/// While the operator speaks, closing the schedule's editor has switched the tick on.
void SpeakOverAClosedEditor(CallDesk& desk) {
  desk.Click("mnuSchedule");
  desk.Press("cmdCall");
  desk.Advance(3000);
  desk.Click(desk.Sys->TheWindows.TheWavWindow.mnuExit);
  ASSERT_EQ(desk.Station(), "Speak, lamps green, speaks");
  ASSERT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
}

TEST(MinuteUnderACall, WhoseRowIsDueAnnouncesItWhenTheCallEndsInIt) {
  CallDesk desk({.Sequences = {{}}, .Now = {2024, 1, 1, 12, 0, 40}});
  SpeakOverAClosedEditor(desk);
  desk.RunTo(12, 1, 20);
  EXPECT_EQ(desk.Heard(), "microphone at 15000");
  desk.Release("cmdCall");
  desk.Advance(2600);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(MinuteUnderACall, ThatIsOverWhenTheCallEndsIsLost) {
  CallDesk desk({.Sequences = {{}}, .Now = {2024, 1, 1, 12, 0, 40}});
  SpeakOverAClosedEditor(desk);
  desk.RunTo(12, 2, 1);
  desk.Release("cmdCall");
  desk.Advance(120'000);
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
}

TEST(MinuteUnderACall, OfMidnightBeginsTheDayWhenTheCallEndsInIt) {
  CallDesk desk({.Sequences = {{}, {.File = "also.sch"}}, .Now = {2024, 1, 1, 23, 59, 40}});
  desk.Click("cmdStop");
  SpeakOverAClosedEditor(desk);
  desk.DoubleClickCell(1, kTimeColumn);
  ASSERT_EQ(desk.Main().grdSchedule.RowHeight(1), 0);
  desk.RunTo(0, 0, 20);
  EXPECT_TRUE(desk.State().MusicStoppedByUser);
  desk.Release("cmdCall");
  desk.RunTo(0, 0, 40);
  EXPECT_FALSE(desk.State().MusicStoppedByUser);
  EXPECT_NE(desk.Main().grdSchedule.RowHeight(1), 0);
}

TEST(MinuteUnderACall, OfTheMusicsStopStopsItWhenTheCallEndsInIt) {
  CallDesk desk({.StartTime = "11:00",
                 .StopTime = "12:02",
                 .WeekDays = "1234567",
                 .Now = {2024, 1, 1, 12, 0, 50}},
                kSilent);
  desk.RunTo(12, 1, 30);
  ASSERT_EQ(desk.Heard(), "song march.mp3 at 20000");
  SpeakOverAClosedEditor(desk);
  desk.RunTo(12, 2, 20);
  desk.Release("cmdCall");
  desk.RunTo(12, 2, 40);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_TRUE(desk.State().MusicStoppedBySchedule);
}

TEST(MinuteUnderAMessage, WhoseRowIsDueAnnouncesItWhenTheMessageEndsInIt) {
  CallDesk desk({.Sequences = {{.Messages = "long,long"}, {.File = "next.sch", .Minutes = "02"}},
                 .Now = {2024, 1, 1, 12, 0, 50}});
  desk.Pc.Disk.AddWav("/messages/long.wav", 70'000);
  desk.RunTo(12, 1, 20);
  ASSERT_EQ(desk.Heard(), "wav long.wav at 10000");
  desk.Click("mnuSchedule");
  desk.Click(desk.Sys->TheWindows.TheWavWindow.mnuExit);
  ASSERT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  ASSERT_EQ(desk.Heard(), "wav long.wav at 10000");  // the second: the closing has ended the first
  desk.RunTo(12, 2, 34);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(CallOverSchedule, TakenOverInASequencesLastFadeLeavesTickAndButtonsAlive) {
  CallDesk desk(
      {.Sequences = {{.Minutes = "01,03"}}, .FadeTime = "Slow", .Now = {2024, 1, 1, 12, 0, 50}});
  while (!desk.State().MessagePlaying) desk.Advance(10);
  while (!desk.State().FadeRunning) desk.Advance(10);
  desk.Advance(300);
  desk.Press("cmdCall");
  desk.Advance(4000);
  ASSERT_TRUE(desk.Speaks());
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Advance(1000);
  desk.Status(0);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");  // the call has paused the music
  desk.RunTo(12, 3, 2);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

/// A song that ends at 12:03:31; then the messages of a waiting row play.
class CallAtBreakDesk : public CallDesk {
 public:
  explicit CallAtBreakDesk(DeskOptions options) : CallDesk(WithRow(std::move(options))) {
    while (!State().MessagePlaying) Advance(10);
    Pc.Journal.Clear();
  }

 private:
  static DeskOptions WithRow(DeskOptions options) {
    options.Sequences = {{.Timer = "Between"}};
    options.Now = {2024, 1, 1, 12, 0, 30};
    return options;
  }
};

TEST(CallOverAMusicBreak, HasTheNextSongWaitForItsEndAndTheTickToo) {
  CallAtBreakDesk desk(CallDesk::Chimes());
  desk.Press("cmdCall");
  desk.Advance(1500);
  EXPECT_EQ(desk.Station(), "Speak, lamps green, speaks");
  EXPECT_EQ(desk.Heard(), "microphone at 15000");
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPaused);
  EXPECT_FALSE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  EXPECT_EQ(desk.Text("lblMP3Number"), "2/2");
  desk.Release("cmdCall");
  desk.Advance(400);
  EXPECT_EQ(desk.Heard(), "wav gong.wav at 10000");
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPaused);
  desk.Advance(600);
  EXPECT_EQ(desk.Heard().substr(0, 14), "song waltz.mp3");
  EXPECT_GT(desk.WaveSlider(), 20'000);
  desk.Advance(2000);
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(CallOverAMusicBreak, ThatIsAQuickClickGoesOnWithTheNextSong) {
  for (const char* chime : {"", "chime"}) {
    CallAtBreakDesk desk({.PreChime = chime});
    desk.Press("cmdCall");
    desk.Advance(200);
    desk.Release("cmdCall");
    desk.Advance(3000);
    EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000") << chime;
    EXPECT_EQ(desk.Alive(), kAllAlive) << chime;
    EXPECT_EQ(desk.Station(), "Call, lamps off") << chime;
  }
}

}  // namespace
}  // namespace marlex
