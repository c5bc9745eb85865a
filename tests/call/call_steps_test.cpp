// Single steps of a press and of a release, each tested where nothing else would reveal that it is
// missing.

#include <gtest/gtest.h>

#include "call/call_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = CallDesk::MusicAtStart::IsSilent;

/// A desk five seconds before a row of one message, with or without a chime before calls.
DeskOptions WithRow(const std::string& preChime = "") {
  return {.Sequences = {{}}, .PreChime = preChime, .Now = {2024, 1, 1, 12, 0, 55}};
}

/// Waits for the row, and opens a playlist that starts by itself during its message.
void PlayMusicUnderTheMessage(CallDesk& desk) {
  desk.Pc.Disk.AddFile("/app/Auto.lst",
                       "[Playlist]\r\nSong:1=waltz\r\n[BackGround music]\r\nAutostart=True\r\n");
  desk.RunTo(12, 1, 2);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Pc.Dialogs.OpenResults = {"/app/Auto.lst"};
  desk.Click("mnuOpen");
  ASSERT_EQ(desk.Heard(), "song waltz.mp3 at 20000 + wav welcome.wav at 20000");
  desk.Pc.Journal.Clear();
}

/// The successive colours of a lamp from now on, as letters: green, dark and off.
void Watch(Label& lamp, std::string& colors) {
  lamp.Watcher = [&lamp, &colors] {
    const Color color = lamp.BackColor;
    colors += color == kGreen ? 'g' : color == kDarkGreen ? 'd' : '-';
  };
}

TEST(CallSteps, APressClosesTheMessageWithTheDevicesWordInEveryLanguage) {
  DeskOptions options = WithRow();
  options.Language = "Italian";
  CallDesk desk(options, kSilent);
  desk.RunTo(12, 1, 2);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Pc.Wav.OpenFile(), "");
  EXPECT_EQ(desk.Journal().substr(0, 23), "0 wav stop welcome.wav\n");
}

/// An arriving byte needs two events to be handled: one of the port, and one that reads it.
TEST(CallSteps, AByteInTheInstantOfThePressIsReadBeforeTheMicrophoneOpens) {
  CallDesk desk({}, kSilent);
  desk.Do([&] {
    desk.Pc.Serial.ReceiveIn(0, {128});
    desk.Main().cmdCall.OnMouseDown(MouseButton::Left);
  });
  EXPECT_TRUE(desk.State().PriorityPreempted);
  EXPECT_FALSE(desk.MicrophoneOpened);
  desk.Advance(1000);
  EXPECT_FALSE(desk.MicrophoneOpened);
  EXPECT_EQ(desk.Journal(), "");
}

/// A lower call that follows the takeover clears the priority and restores nothing.
TEST(CallSteps, APressUnderATakeoverThatALowerCallFollowsDoesNothing) {
  DeskOptions options = CallDesk::Chimes();
  options.Priority = "High";
  CallDesk desk(options);
  desk.Status(192);
  desk.Status(64);
  desk.Click("cmdCallZone_3");
  desk.Pc.Journal.Clear();
  ASSERT_TRUE(desk.State().PriorityClear);
  ASSERT_TRUE(desk.Enabled("cmdCall"));
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  desk.Advance(3000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Journal(), "");
  desk.Release("cmdCall");
  desk.Status(0);
  EXPECT_EQ(desk.Heard(), kMusic);
}

TEST(CallSteps, MusicThatPlaysUnderAMessageIsPausedWithoutAFade) {
  CallDesk desk(WithRow(), kSilent);
  PlayMusicUnderTheMessage(desk);
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Station(), "Speak, lamps green, speaks");
  EXPECT_EQ(desk.Journal().substr(0, 38), "0 wav stop welcome.wav\n0 song pause\n");
  desk.Advance(2000);
  desk.Release("cmdCall");
  desk.Advance(3000);
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

/// The sliders go by the flag: the message's own slider moves the line while only a message plays.
TEST(CallSteps, AChimeOverMusicUnderAMessageIsNoMessageAnyMore) {
  CallDesk desk(WithRow("chime"), kSilent);
  PlayMusicUnderTheMessage(desk);
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 10000");
  desk.Click("mnuSettings");
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 20000");
}

TEST(CallSteps, WithoutAPreChimeTheWaveLineIsMutedInTheSpeechToo) {
  for (const auto music : {CallDesk::MusicAtStart::Plays, kSilent}) {
    CallDesk desk(DeskOptions{}, music);
    desk.Click("cmdPlay");  // opens the line
    if (music == kSilent) desk.Click("cmdStop");
    desk.PressAt(0);
    desk.AdvanceTo(1000);
    EXPECT_TRUE(desk.Speaks());
    EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.WaveLine));
    desk.ReleaseAt(2000);
    desk.AdvanceTo(3000);
    EXPECT_FALSE(desk.MuteCheck(desk.Sys->Mixer.WaveLine));
  }
}

TEST(CallSteps, TheLampsAreDarkGreenBetweenThePreChimeAndTheSpeech) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  desk.PressAt(0);
  desk.AdvanceTo(990);
  std::string first;
  std::string second;
  Watch(desk.Main().lblBusy[0], first);
  Watch(desk.Main().lblBusy[1], second);
  desk.AdvanceTo(1500);
  EXPECT_EQ(first.substr(first.size() - 2), "dg");
  EXPECT_EQ(second, first);
}

TEST(CallSteps, TheLampsFlashInAPreChimeWithoutMusic) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  desk.PressAt(0);
  std::string lamps;
  for (int time = 60; time < 1000; time += 125) {
    desk.AdvanceTo(time);
    EXPECT_EQ(desk.Main().lblBusy[0].BackColor.Get(), desk.Main().lblBusy[1].BackColor.Get());
    lamps += desk.Main().lblBusy[0].BackColor == kGreen ? 'g' : '-';
  }
  EXPECT_EQ(lamps, "-g-g-g-g");
}

TEST(CallSteps, AfterChimesWithoutMusicTheLineHasTheMusicsLevelAgain) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  desk.PressAt(0);
  desk.ReleaseAt(2000);
  EXPECT_EQ(desk.WaveSlider(), 10'000);
  desk.AdvanceTo(4000);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
}

TEST(CallSteps, ATakeoverInThePreChimeEndsTheWaitOfTheButtonAndTheFlashing) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  desk.PressAt(0);
  desk.AdvanceTo(480);
  ASSERT_EQ(desk.Text("cmdCall"), "Wait");
  std::string lamp;
  Watch(desk.Main().lblBusy[0], lamp);
  desk.Status(128);
  desk.AdvanceTo(3000);
  EXPECT_EQ(desk.Text("cmdCall"), "Call");
  EXPECT_EQ(lamp, "");
  EXPECT_FALSE(desk.MicrophoneOpened);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

}  // namespace
}  // namespace marlex
