#include "schedule/message_preview.h"

#include <gtest/gtest.h>

#include "schedule/editor_desk.h"

namespace marlex {
namespace {

/// An editor with the sequence welcome (3 s), closing (2 s), with music or without.
struct MessagePreviewDesk : EditorDesk {
  explicit MessagePreviewDesk(bool music = false, DeskOptions options = {})
      : EditorDesk(WithMusic(std::move(options))) {
    if (music) Click("cmdPlay");
    Add({"welcome", "closing"});
    Pc.Journal.Only({"wav", "song", "send"});
    Advance(500);
    Pc.Journal.Clear();
  }
  static DeskOptions WithMusic(DeskOptions options) {
    options.Music = {{"march"}};
    return options;
  }
};

TEST(MessagePreview, PlaysTheSequenceOnceAtTheMessagesLevelAndSendsNothing) {
  MessagePreviewDesk desk;
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Text("PrevKey"), "Stop");
  EXPECT_FALSE(desk.Enabled("RemAll_Key"));
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(),
            "0 wav play welcome.wav\n3000 wav end welcome.wav\n"
            "3000 wav play closing.wav\n5000 wav end closing.wav\n");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_TRUE(desk.Enabled("RemAll_Key"));
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

/// The lines have been muted since the program's start.
TEST(MessagePreview, OpensTheMasterAndTheLineOnceTheMessagePlays) {
  MessagePreviewDesk desk;
  desk.Pc.Journal.Only({"wav", "mixer"});
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Journal(),
            "0 mixer volume wave 55535 55535\n0 wav play welcome.wav\n"
            "0 mixer mute speakers 0\n0 mixer mute wave 0\n");
}

/// The speech had muted the line, and the takeover during it the master.
TEST(MessagePreview, OpensTheLineThatACallTakenOverHasLeftMuted) {
  MessagePreviewDesk desk;
  desk.Press("cmdCall");
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Status(0);
  ASSERT_TRUE(desk.MuteCheck(desk.Sys->Mixer.WaveLine));
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

/// Without a microphone, the number of its line is that of the master.
TEST(MessagePreview, WithoutAMicrophoneItMutesNothing) {
  MessagePreviewDesk desk(false, {.Microphone = false});
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Advance(4000);
  EXPECT_EQ(desk.Heard(), "wav closing.wav at 10000");
}

TEST(MessagePreview, AMessageThatWasAddedTwicePlaysTwice) {
  EditorDesk desk;
  desk.Add({"closing", "gong", "closing", "closing"});
  EXPECT_EQ(desk.Total(), "6.8");
  desk.Pc.Journal.Only({"wav"});
  desk.Pc.Journal.Clear();
  desk.Click("PrevKey");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(),
            "0 wav play closing.wav\n2000 wav end closing.wav\n"
            "2000 wav play gong.wav\n2800 wav end gong.wav\n"
            "2800 wav play closing.wav\n4800 wav end closing.wav\n"
            "4800 wav play closing.wav\n6800 wav end closing.wav\n");
}

TEST(MessagePreview, StoppedItLeavesTheRestUnplayedAndStartsOverNextTime) {
  MessagePreviewDesk desk;
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  desk.Advance(5000);
  desk.Click("PrevKey");
  desk.Advance(100);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  EXPECT_EQ(desk.Journal(),
            "0 wav play welcome.wav\n1000 wav stop welcome.wav\n6000 wav play welcome.wav\n");
}

/// Deliberate: the message plays on, since the word of the chosen language is not a command of the
/// player.
TEST(MessagePreview, StoppedInAnotherLanguageTheMessageSoundsOnToItsEnd) {
  MessagePreviewDesk desk(false, {.Language = "Italian"});
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Text("PrevKey"), desk.Sys->Strings.LoadString(kStrPlay));
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 20000");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "0 wav play welcome.wav\n3000 wav end welcome.wav\n");
}

TEST(MessagePreview, MusicThatItPausesStaysPausedUntilTheOperatorGoesOn) {
  MessagePreviewDesk desk(true);
  desk.Click("PrevKey");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPaused);
  EXPECT_EQ(desk.Journal().substr(0, 23), "0 song pause\n0 wav play");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(MessagePreview, MusicThatIsStartedMeanwhilePlaysOn) {
  MessagePreviewDesk desk;
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Click("cmdPlay");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(MessagePreview, AMessageThatIsNotThereIsPassedOver) {
  MessagePreviewDesk desk;
  desk.Pc.Disk.Remove("/messages/welcome.wav");
  desk.Click("PrevKey");
  desk.Advance(1000);
  EXPECT_EQ(desk.Heard(), "wav closing.wav at 10000");
}

TEST(MessagePreview, ClosingTheEditorSilencesIt) {
  MessagePreviewDesk desk;
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Click("mnuExit");
  desk.Advance(0);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  desk.Click("mnuSchedule");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_EQ(desk.Buttons(), "");
}

TEST(MessagePreview, AnEditorThatIsOpenedAgainAtOnceIsNotItsBusiness) {
  MessagePreviewDesk desk;
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Do([&] {
    desk.TheWavWindow().Close();
    desk.Main().mnuSchedule.OnClick();
    desk.TheWavWindow().AvailWavs.SetListIndex(0);
  });
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(), "0 wav play welcome.wav\n1000 wav stop welcome.wav\n");
  EXPECT_EQ(desk.Buttons(), "PrevKey RemAll_Key");
}

TEST(MessagePreview, ACallEndsItAndHasTheLineAlone) {
  MessagePreviewDesk desk(false, {.PreChime = "gong"});
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Heard(), "wav gong.wav at 10000");
  desk.Advance(3000);
  EXPECT_FALSE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_EQ(desk.Journal().find("closing"), std::string::npos);
  desk.Release("cmdCall");
  desk.Advance(3000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(MessagePreview, ACallThatIsOverAtOnceEndsItTooAndItsChimeIsHeardWhole) {
  for (const bool stopTooLate : {false, true}) {
    SCOPED_TRACE(stopTooLate);
    MessagePreviewDesk desk(true, {.PreChime = "gong"});
    desk.Click("PrevKey");
    desk.Advance(1000);
    desk.Pc.Journal.Clear();
    desk.Press("cmdCall");
    desk.Advance(100);
    if (stopTooLate) desk.Click("PrevKey");
    desk.Release("cmdCall");
    EXPECT_EQ(desk.Heard(), "wav gong.wav at 10000");
    desk.Advance(10'000);
    EXPECT_EQ(desk.Journal().find("closing"), std::string::npos);
    EXPECT_NE(desk.Journal().find("800 wav end gong.wav"), std::string::npos) << desk.Journal();
    EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
    EXPECT_EQ(desk.Text("PrevKey"), "Play");
    EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  }
}

TEST(MessagePreview, ClosingTheEditorUnderACallLeavesItsChimeAlone) {
  MessagePreviewDesk desk(false, {.PreChime = "gong"});
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Press("cmdCall");
  desk.Advance(100);
  desk.Do([&] { desk.TheWavWindow().Close(); });
  EXPECT_EQ(desk.Heard(), "wav gong.wav at 10000");
  desk.Advance(600);
  EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
  desk.Advance(200);
  EXPECT_FALSE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
}

TEST(MessagePreview, AnAmplifierThatTakesOverEndsItAndLetsNoneBegin) {
  MessagePreviewDesk desk;
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Click("cmdPlay");
  desk.Status(128);
  ASSERT_TRUE(desk.State().PriorityPreempted);
  desk.Advance(100);
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  desk.Click("PrevKey");
  desk.Advance(100);
  EXPECT_TRUE(desk.MuteCheck(0));
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  desk.Status(0);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(MessagePreview, AnAnnouncementThatRunsIsNotDisturbed) {
  EditorDesk desk({.Sequences = {{.Messages = "welcome,alarm"}}});
  desk.Click("mnuExit");
  desk.RunTo(12, 1, 2);
  ASSERT_TRUE(desk.State().MessagePlaying);
  // Opening the editor closes the message that is playing, and the next one begins.
  desk.Do([&] { desk.Main().mnuSchedule.OnClick(); });
  desk.Advance(100);
  ASSERT_EQ(desk.Heard(), "wav alarm.wav at 10000");
  desk.Add({"closing"});
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "wav alarm.wav at 10000");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  desk.Advance(15'000);
  EXPECT_FALSE(desk.State().MessagePlaying);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "wav closing.wav at 10000");
}

TEST(MessagePreview, TheProgramCanBeLeftInItsMidst) {
  MessagePreviewDesk desk;
  desk.Click("PrevKey");
  desk.Advance(1000);
  desk.Do([&] { desk.Main().mnuExit.OnClick(); });
  EXPECT_TRUE(desk.Pc.Process.Ended());
  EXPECT_EQ(desk.Heard(), "silence");
}

TEST(MessagePreview, MusicThatItPausedComesBackWithTheNextAnnouncement) {
  MessagePreviewDesk desk(true, {.Sequences = {{}}});
  desk.Click("PrevKey");
  desk.Advance(10'000);
  ASSERT_EQ(desk.Pc.Song.PlayState(), kPaused);
  desk.Click("mnuExit");
  desk.RunTo(12, 0, 59);
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 1, 10);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n1200 send 127\n4000 wav end welcome.wav\n"
            "4000 song resume march.mp3\n4200 send 67\n");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(MessagePreview, NoneBeginsInTheFadesOfAnAnnouncement) {
  EditorDesk desk({.Music = {{"march"}}, .Sequences = {{.Messages = "gong"}}, .FadeTime = "Slow"});
  desk.Click("mnuExit");
  desk.Click("cmdPlay");
  desk.RunTo(12, 0, 59);
  desk.Advance(2000);
  ASSERT_TRUE(desk.State().FadeRunning);
  ASSERT_FALSE(desk.State().MessagePlaying);
  desk.Do([&] { desk.Main().mnuSchedule.OnClick(); });
  desk.Add({"closing"});
  for (int step = 0; step < 40; ++step) {
    if (desk.State().FadeRunning) desk.Click("PrevKey");
    EXPECT_EQ(desk.Text("PrevKey"), "Play") << step;
    desk.Advance(250);
  }
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Journal().find("closing"), std::string::npos) << desk.Journal();
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "wav closing.wav at 10000");
}

/// A row waits for the end of the song while the editor is open with its sequence.
struct PreviewAtBreakDesk : EditorDesk {
  explicit PreviewAtBreakDesk(const std::string& announced)
      : EditorDesk(
            {.Music = {{"march"}}, .Sequences = {{.Messages = announced, .Timer = "Between"}}}) {
    Click("mnuExit");
    Click("cmdPlay");
    RunTo(12, 1, 5);
    EXPECT_TRUE(State().MessageAwaitingSongEnd);
    Click("mnuSchedule");
    Add({"gong", "closing", "welcome"});
    Pc.Journal.Only({"wav"});
    Pc.Journal.Clear();
  }
};

TEST(MessagePreview, AnAnnouncementAtAMusicBreakEndsIt) {
  for (const char* announced : {"alarm", "gong"}) {
    PreviewAtBreakDesk desk(announced);
    desk.Click("PrevKey");
    desk.Advance(500);
    desk.Click("cmdSkip");
    ASSERT_TRUE(desk.State().MessagePlaying);
    desk.Advance(30'000);
    EXPECT_EQ(desk.Journal().find("closing"), std::string::npos) << desk.Journal();
    EXPECT_EQ(desk.Text("PrevKey"), "Play");
    EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  }
}

/// The end of a call has switched the tick on while the editor is open.
TEST(MessagePreview, AnAnnouncementOfTheTickEndsItAlsoWithTheSameMessage) {
  for (const char* announced : {"gong", "welcome"}) {
    MessagePreviewDesk desk(false, {.Sequences = {{.Messages = announced}}});
    desk.Press("cmdCall");
    desk.Advance(1000);
    desk.Release("cmdCall");
    ASSERT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
    desk.RunTo(12, 0, 58);
    desk.Click("PrevKey");
    desk.Pc.Journal.Only({"wav"});
    desk.Advance(2500);
    ASSERT_TRUE(desk.State().MessagePlaying) << announced;
    desk.Advance(20'000);
    EXPECT_EQ(desk.Journal().find("closing"), std::string::npos) << desk.Journal();
    EXPECT_EQ(desk.Text("PrevKey"), "Play");
  }
}

/// In another language the word that the amplifier's call uses does not close the player.
TEST(MessagePreview, OneThatATakeoverHasEndedIsNotHeardAfterIt) {
  MessagePreviewDesk desk(false, {.Language = "Italian"});
  desk.Click("PrevKey");
  desk.Advance(500);
  desk.Click("cmdPlay");
  desk.Status(128);
  desk.Advance(500);
  desk.Status(0);
  desk.Advance(500);
  EXPECT_EQ(desk.Heard().find("wav"), std::string::npos) << desk.Heard();
}

}  // namespace
}  // namespace marlex
