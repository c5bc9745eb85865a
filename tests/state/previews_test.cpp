#include "state/previews.h"

#include <gtest/gtest.h>

#include "desk/deeds.h"

namespace marlex {
namespace {

/// The songs a and b (10 s), the messages welcome (3 s) and closing (2 s), and the playlist editor
/// with b selected. Unless the clock plays the list of the main window, it has been played and
/// stopped, so that a preview finds its song.
struct PreviewsDesk : Desk {
  explicit PreviewsDesk(DeskOptions options = {}) : Desk(WithSongs(std::move(options))) {
    if (Values().MusicStartTime.empty()) PlayAndStop(*this);
    OpenSongs();
    Advance(500);
    Pc.Journal.Only({"song", "wav", "send"});
    Pc.Journal.Clear();
  }

  FrmPlaylist& Songs() { return Sys->TheWindows.frmPlaylist; }
  WavWindow& Messages() { return Sys->TheWindows.TheWavWindow; }

  void OpenSongs() {
    Click("mnuPlaylist");
    Choose(Songs().AvailMP3s, "b");
    Choose(Songs().SelectedMP3s, "b");
  }
  void OpenMessages() {
    Click("mnuSchedule");
    Choose(Messages().AvailWavs, "welcome");
    Choose(Messages().AvailWavs, "closing");
  }

  /// Plays a preview, of the song or of the messages, for half a second.
  void Preview(bool messages) {
    if (messages) OpenMessages();
    Click(messages ? Messages().PrevKey : Songs().PrevKey);
    Advance(500);
    ASSERT_EQ(Heard(), messages ? "wav welcome.wav at 10000" : "song b.mp3 at 20000");
    Pc.Journal.Clear();
  }
  /// Plays the preview of the messages over that of the song, which it pauses, and stops it again.
  void PauseSong() {
    Preview(false);
    PauseByPreview(*this);
    ASSERT_EQ(Pc.Song.PlayState(), kPaused);
    Pc.Journal.Clear();
  }
  std::string ButtonCaption(bool messages) {
    return messages ? Messages().PrevKey.Caption.Get() : Songs().PrevKey.Caption.Get();
  }
  /// Which of the master, the wave line and the microphone are open.
  std::string OpenLines() {
    std::string open;
    if (!MuteCheck(0)) open += "master ";
    if (!MuteCheck(Sys->Mixer.WaveLine)) open += "wave ";
    if (!MuteCheck(Sys->Mixer.MicLine)) open += "mic ";
    return open;
  }

 private:
  static DeskOptions WithSongs(DeskOptions options) {
    options.Music = {{"a", 10'000}, {"b", 10'000}};
    return options;
  }
};

TEST(Previews, ACallEndsTheSongAtThePress) {
  for (const bool closed : {false, true}) {
    SCOPED_TRACE(closed);
    PreviewsDesk desk;
    desk.Preview(false);
    if (closed) desk.Click(desk.Songs().mnuExit);
    desk.Press("cmdCall");
    EXPECT_EQ(desk.Journal(), "0 song stop\n");
    EXPECT_EQ(desk.Heard(), "microphone at 15000");
    EXPECT_EQ(desk.ButtonCaption(false), "Play");
    desk.Advance(1000);
    desk.Release("cmdCall");
    desk.Advance(5000);
    EXPECT_EQ(desk.Journal(), "0 song stop\n200 send 68\n1000 send 0\n");
    EXPECT_EQ(desk.Heard(), "silence");
  }
}

TEST(Previews, ARowEndsTheSongAtItsMinute) {
  PreviewsDesk desk({.Sequences = {{}}});
  desk.RunTo(12, 0, 58);
  desk.Preview(false);
  desk.Advance(30'000);
  EXPECT_EQ(desk.Journal(),
            "2000 song stop\n2000 wav play welcome.wav\n2200 send 127\n"
            "5000 wav end welcome.wav\n5000 send 0\n");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.ButtonCaption(false), "Play");
}

TEST(Previews, AMusicBreakThatASongsPreviewHasMadeBelongsToTheList) {
  for (const bool skipped : {false, true}) {
    SCOPED_TRACE(skipped);
    PreviewsDesk desk({.Sequences = {{.Timer = "Between"}}});
    desk.Click("cmdPlay");
    desk.Click(desk.Songs().PrevKey);
    desk.RunTo(12, 0, 58);
    desk.Preview(false);
    desk.Advance(4000);
    ASSERT_TRUE(desk.State().MessageAwaitingSongEnd);
    if (skipped) desk.Click("cmdSkip");
    desk.Advance(11'000);
    const std::string end = skipped ? "4000 song stop\n4000" : "9500 song end\n9500";
    const std::string next = skipped ? "7000" : "12500";
    EXPECT_EQ(desk.Journal(), end + " wav play welcome.wav\n" + next + " wav end welcome.wav\n" +
                                  next + " song play b.mp3\n");
    EXPECT_EQ(desk.ButtonCaption(false), "Stop");
    desk.Press("cmdCall");
    desk.Advance(1000);
    desk.Release("cmdCall");
    desk.Advance(1000);
    EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  }
}

TEST(Previews, MusicThatIsPlayedOverTheSongComesBackAfterACall) {
  PreviewsDesk desk;
  desk.Preview(false);
  desk.Click("cmdPlay");
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Release("cmdCall");
  desk.Advance(1000);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

TEST(Previews, ASongThatIsPausedDoesNotComeBackAfterACall) {
  PreviewsDesk desk;
  desk.PauseSong();
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Release("cmdCall");
  desk.Advance(3000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  EXPECT_EQ(desk.ButtonCaption(false), "Play");
}

TEST(Previews, ASongThatIsPausedDoesNotComeBackAfterARow) {
  PreviewsDesk desk({.Sequences = {{}}});
  desk.PauseSong();
  desk.RunTo(12, 1, 20);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
}

TEST(Previews, ASongThatIsPausedDoesNotComeBackAfterTheAmplifiersCall) {
  PreviewsDesk desk;
  desk.PauseSong();
  desk.Status(128);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  EXPECT_FALSE(desk.State().PriorityPreempted);
  desk.Status(0);
  desk.Advance(3000);
  EXPECT_EQ(desk.Heard(), "silence");
}

/// Nothing of ours is running, so nothing is taken over.
TEST(Previews, NoneBeginsUnderTheAmplifiersCall) {
  for (const bool messages : {false, true}) {
    for (const int status : {64, 128, 192}) {
      SCOPED_TRACE(std::to_string(status) + (messages ? " messages" : " song"));
      PreviewsDesk desk;
      if (messages) desk.OpenMessages();
      desk.Status(status);
      ASSERT_FALSE(desk.State().PriorityPreempted);
      desk.Click(messages ? desk.Messages().PrevKey : desk.Songs().PrevKey);
      desk.Advance(500);
      EXPECT_EQ(desk.Heard(), "silence");
      EXPECT_EQ(desk.ButtonCaption(messages), "Play");
      desk.Status(0);
      desk.Click(messages ? desk.Messages().PrevKey : desk.Songs().PrevKey);
      EXPECT_EQ(desk.ButtonCaption(messages), "Stop");
    }
  }
}

/// A lower call after the high one clears the priority, but the takeover continues.
TEST(Previews, NoneBeginsBeforeTheEndOfATakeover) {
  for (const bool messages : {false, true}) {
    SCOPED_TRACE(messages);
    PreviewsDesk desk({.Priority = "High"});
    if (messages) desk.OpenMessages();
    desk.Press("cmdCall");
    desk.Status(128);
    desk.Status(64);
    desk.Release("cmdCall");
    ASSERT_TRUE(desk.State().PriorityPreempted);
    ASSERT_TRUE(desk.State().PriorityClear);
    desk.Click(messages ? desk.Messages().PrevKey : desk.Songs().PrevKey);
    EXPECT_EQ(desk.ButtonCaption(messages), "Play");
    EXPECT_EQ(desk.OpenLines(), "");
  }
}

TEST(Previews, NoneBeginsInAFade) {
  for (const bool messages : {false, true}) {
    SCOPED_TRACE(messages);
    PreviewsDesk desk({.FadeTime = "Slow"});
    desk.Click("cmdPlay");
    desk.Press("cmdCall");
    desk.Advance(3000);
    desk.Release("cmdCall");
    desk.Advance(500);
    ASSERT_TRUE(desk.State().FadeRunning);
    if (messages) desk.OpenMessages();
    desk.Click(desk.Songs().PrevKey);
    desk.Click(messages ? desk.Messages().PrevKey : desk.Songs().PrevKey);
    EXPECT_EQ(desk.Heard(), "silence");
    EXPECT_EQ(desk.ButtonCaption(messages), "Play");
  }
}

TEST(Previews, ACallOfALowerLevelThanOursLetsThemBegin) {
  for (const bool messages : {false, true}) {
    PreviewsDesk desk({.Priority = "High"});
    desk.Status(64);
    desk.Preview(messages);
    EXPECT_EQ(desk.ButtonCaption(messages), "Stop");
  }
}

TEST(Previews, AHighCallEndsTheMessagesThoughNothingElseIsTakenOver) {
  for (const int status : {128, 192}) {
    PreviewsDesk desk;
    desk.Preview(true);
    desk.Status(status);
    EXPECT_EQ(desk.Journal(), "0 wav stop welcome.wav\n");
    EXPECT_FALSE(desk.State().PriorityPreempted);
    EXPECT_EQ(desk.ButtonCaption(true), "Play");
    desk.Status(0);
    desk.Advance(5000);
    EXPECT_EQ(desk.Heard(), "silence");
  }
}

TEST(Previews, ALowCallLetsThemGoOn) {
  for (const bool messages : {false, true}) {
    PreviewsDesk desk;
    desk.Preview(messages);
    desk.Status(64);
    desk.Advance(1000);
    EXPECT_EQ(desk.Journal(), "");
    EXPECT_NE(desk.Heard(), "silence");
  }
}

/// In another language the button's word for closing is not a command of the player.
TEST(Previews, AMessageLeftPlayingByTheButtonEndsUnderTheAmplifiersCall) {
  PreviewsDesk desk({.Language = "Italian"});
  desk.Preview(true);
  desk.Click(desk.Messages().PrevKey);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 20000");
  desk.Status(128);
  EXPECT_EQ(desk.Heard(), "silence");
}

TEST(Previews, ACallThatEndsOneHasTheLinesToItself) {
  for (const bool messages : {false, true}) {
    SCOPED_TRACE(messages);
    PreviewsDesk desk;
    desk.Preview(messages);
    desk.Press("cmdCall");
    desk.Advance(1000);
    EXPECT_EQ(desk.OpenLines(), "master mic ");
    desk.Release("cmdCall");
    desk.Advance(5000);
    EXPECT_EQ(desk.OpenLines(), "master wave ");
    EXPECT_EQ(desk.WaveSlider(), 20'000);
  }
}

TEST(Previews, ATakeoverThatEndsOneKeepsTheMasterMuted) {
  for (const bool messages : {false, true}) {
    SCOPED_TRACE(messages);
    PreviewsDesk desk;
    desk.Preview(messages);
    if (messages) desk.Click("cmdPlay");
    desk.Status(128);
    desk.Advance(5000);
    ASSERT_TRUE(desk.State().PriorityPreempted);
    EXPECT_EQ(desk.OpenLines(), "wave ");
    EXPECT_EQ(desk.WaveSlider(), 20'000);
  }
}

/// A row fires at its own minute while the editor is open, since the end of a call has switched the
/// tick on.
TEST(Previews, AnAnnouncementThatEndsOneHasTheLinesToItself) {
  for (const bool messages : {false, true}) {
    SCOPED_TRACE(messages);
    PreviewsDesk desk({.Sequences = {{}}});
    if (messages) desk.OpenMessages();
    desk.Press("cmdCall");
    desk.Release("cmdCall");
    desk.RunTo(12, 0, 59);
    desk.Click(messages ? desk.Messages().PrevKey : desk.Songs().PrevKey);
    desk.Advance(2000);
    ASSERT_TRUE(desk.State().MessagePlaying);
    EXPECT_EQ(desk.OpenLines(), "master wave ");
    EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
    desk.Advance(10'000);
    EXPECT_EQ(desk.OpenLines(), "master wave ");
    EXPECT_EQ(desk.WaveSlider(), 20'000);
    EXPECT_EQ(desk.Heard(), "silence");
  }
}

TEST(Previews, AnEditorOpenedAfterwardsKeepsItsButtons) {
  PreviewsDesk desk;
  desk.Preview(false);
  desk.Click(desk.Songs().mnuExit);
  desk.Click("mnuPlaylist");
  desk.Status(128);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  EXPECT_FALSE(desk.Songs().RemoveKey.Enabled);
}

/// The clock has started the list at 12:01, and the preview button has stopped it.
struct PreviewClockDesk : PreviewsDesk {
  explicit PreviewClockDesk(DeskOptions options = {})
      : PreviewsDesk(ByTheClock(std::move(options))) {
    RunTo(12, 1, 1);
    EXPECT_TRUE(State().MusicStartedBySchedule);
    Click(Songs().PrevKey);
  }
  static DeskOptions ByTheClock(DeskOptions options) {
    options.StartTime = "12:01";
    if (options.StopTime.empty()) options.StopTime = "18:00";
    return options;
  }
};

TEST(Previews, TheClockGoesOnWithItsMusicInTheMinuteAfterACall) {
  PreviewClockDesk desk;
  desk.Preview(false);
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Release("cmdCall");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "silence");
  desk.RunTo(12, 2, 1);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

/// The clock's stop is fading the preview when a call ends it.
TEST(Previews, AFadeOfTheClockEndsWithTheSongThatItFades) {
  PreviewClockDesk desk({.Messages = {{"gong", 5000}, {"welcome"}, {"closing"}},
                         .FadeTime = "Slow",
                         .StopTime = "12:02",
                         .PreChime = "gong"});
  desk.RunTo(12, 1, 58);
  desk.Preview(false);
  desk.Advance(2000);
  ASSERT_TRUE(desk.State().FadeRunning);
  desk.Press("cmdCall");
  desk.Advance(3000);
  EXPECT_EQ(desk.Heard(), "wav gong.wav at 10000");
  desk.Release("cmdCall");
  desk.Advance(5000);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  EXPECT_TRUE(desk.State().MusicStoppedBySchedule);
}

}  // namespace
}  // namespace marlex
