#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "link/link_desk.h"
#include "link/serial_link.h"

namespace marlex {
namespace {

/// Two messages at 12:01.
DeskOptions WithMessages(DeskOptions options = {}) {
  options.Sequences = {{.Messages = "welcome,closing"}};
  return options;
}

/// Runs into the first of them.
void StartMessage(LinkDesk& desk) {
  desk.RunTo(12, 1, 2);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(Takeover, AStatusAboveLowTakesOverFromPlayingMusic) {
  for (const std::string own : {"Low", "High"}) {
    for (const int status : {128, 192}) {
      LinkDesk desk({.Priority = own});
      desk.PlayMusic();
      desk.Status(status);
      EXPECT_EQ(desk.Priority(), std::to_string(status) + " held preempted") << own;
      EXPECT_EQ(desk.Heard(), "silence");
      EXPECT_EQ(desk.Pc.Song.PlayState(), kPlaying);
    }
  }
}

TEST(Takeover, AStatusTakesOverFromAMessageAndFromACallToo) {
  LinkDesk withMessage(WithMessages());
  StartMessage(withMessage);
  withMessage.Status(128);
  EXPECT_EQ(withMessage.Priority(), "128 held preempted");

  LinkDesk withCall;
  withCall.Press("cmdCall");
  withCall.Status(192);
  EXPECT_EQ(withCall.Priority(), "192 held preempted");
  EXPECT_FALSE(withCall.State().CallActive);
}

TEST(Takeover, WithNothingRunningAStatusOnlyHoldsStartsBack) {
  for (const int status : {128, 192}) {
    LinkDesk desk;
    desk.Status(status);
    EXPECT_EQ(desk.Priority(), std::to_string(status) + " held");
    EXPECT_EQ(desk.Label(), "Higher priority call in progress 255 255 255");
    EXPECT_TRUE(desk.Enabled("cmdCall"));
    desk.Click("cmdPlay");
    desk.Advance(1000);
    EXPECT_EQ(desk.Heard(), "silence");
    EXPECT_EQ(desk.Journal(), "");
  }
}

TEST(Takeover, PausedMusicAloneIsNothingThatRuns) {
  LinkDesk desk;
  desk.PlayMusic();
  PauseByPreview(desk);
  desk.Status(192);
  EXPECT_EQ(desk.Priority(), "192 held");
}

TEST(Takeover, OverTheFadeOfACallEndsTheFadeTheFlashingAndTheDwell) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(0);
  desk.Press("cmdCall");
  desk.Advance(150);
  ASSERT_TRUE(desk.Players().tmrDwellTimer.Enabled);
  ASSERT_TRUE(desk.Players().tmrFlash.Enabled);
  ASSERT_EQ(desk.Text("cmdCall"), "Wait");
  ASSERT_NE(desk.WaveSlider(), 20000);
  desk.Status(128);
  EXPECT_EQ(desk.WaveSlider(), 20000);
  EXPECT_TRUE(desk.MuteCheck(0));
  EXPECT_EQ(desk.Text("cmdCall"), "Call");
  EXPECT_FALSE(desk.Enabled("cmdCall"));
  EXPECT_FALSE(desk.Players().tmrFlash.Enabled);
  EXPECT_FALSE(desk.Players().tmrDwellTimer.Enabled);
  EXPECT_FALSE(desk.Players().tmrFadeTime.Enabled);
  EXPECT_FALSE(desk.State().FadeRunning);
  EXPECT_TRUE(desk.State().PriorityPreempted);
  desk.Advance(5000);
  EXPECT_EQ(desk.WaveSlider(), 20000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(Takeover, OverASpeakerClosesTheMicrophoneAndPaintsTheMusicsZones) {
  LinkDesk desk;
  desk.Press("cmdCall");
  desk.Advance(1000);
  ASSERT_FALSE(desk.MicMuted());
  ASSERT_EQ(desk.LitZones(), "001000");
  desk.Status(128);
  EXPECT_TRUE(desk.MicMuted());
  EXPECT_EQ(desk.LitZones(), "110000");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "200 send 68\n");
}

TEST(Takeover, OverAMessageDropsWhatIsLeftOfItsList) {
  LinkDesk desk(WithMessages());
  StartMessage(desk);
  desk.Pc.Journal.Only({"wav"});
  desk.Pc.Journal.Clear();
  desk.Status(128);
  EXPECT_EQ(desk.Players().lstMsgSequence.ListCount(), 0);
  EXPECT_TRUE(desk.Players().tmrMessage.Enabled);
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "0 wav stop welcome.wav\n0 wav refuse \n");
}

TEST(Takeover, SilencesADeskWithoutAMicrophoneToo) {
  LinkDesk desk({.Microphone = false});
  ASSERT_EQ(desk.Sys->Mixer.MicLine, 0);
  desk.PlayMusic();
  desk.Status(128);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_TRUE(desk.MuteCheck(0));
}

TEST(Takeover, WhereCloseIsNoCommandTheMessagePlaysOnUnheard) {
  LinkDesk desk(WithMessages({.Language = "Dutch"}));
  desk.PlayMusic();
  StartMessage(desk);
  ASSERT_EQ(desk.Sys->Strings.LoadString(kStrClose), "Sluiten");
  desk.Status(128);
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWavePlaying);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_TRUE(desk.State().MessagePlaying);
  desk.Advance(4000);
  EXPECT_FALSE(desk.State().MessagePlaying);
}

TEST(Takeover, TheMusicRunsOnMutedAndKeepsItsPlace) {
  LinkDesk desk({.Music = {{"march", 60'000}, {"waltz", 60'000}}});
  desk.PlayMusic();
  desk.Status(128);
  desk.Advance(59'000);
  EXPECT_EQ(desk.Main().lstPlaylist.ListIndex(), 1);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPlaying);
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Status(0);
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  EXPECT_EQ(desk.Text("lblMP3Position"), "0:00");
}

TEST(Takeover, LowerStatusesDoNotEndIt) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(128);
  for (const int status : {64, 192, 64, 128}) {
    desk.Status(status);
    EXPECT_EQ(desk.Priority(), std::to_string(status) + " held preempted");
    EXPECT_EQ(desk.Heard(), "silence");
  }
  desk.Status(0);
  EXPECT_EQ(desk.Priority(), "0");
}

TEST(Takeover, ALowStatusUnderOurHighLevelAllowsStartsButDoesNotEndIt) {
  LinkDesk desk({.Priority = "High"});
  desk.PlayMusic();
  desk.Status(128);
  desk.Status(64);
  EXPECT_EQ(desk.Priority(), "64 preempted");
}

TEST(Takeover, NeverEndsByItself) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(128);
  desk.Advance(24 * 3'600'000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_FALSE(desk.Enabled("cmdCall"));
  EXPECT_EQ(desk.Journal(), "");
}

TEST(Takeover, StatusZeroGivesEverythingBack) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Status(128);
  desk.Click("cmdSkip");  // a song that runs under the call's mute
  desk.Release("cmdCall");
  ASSERT_EQ(desk.Main().lblBusy[0].BackColor, kGreen);
  ASSERT_EQ(desk.Main().lblBusy[1].BackColor, kGreen);
  ASSERT_TRUE(desk.WaveMuted());
  desk.Status(0);
  EXPECT_EQ(desk.Priority(), "0");
  EXPECT_EQ(desk.Label(), "hidden 615 615 615");
  EXPECT_TRUE(desk.Players().tmrDwellTimer.Enabled);
  EXPECT_EQ(desk.Main().lblBusy[0].BackColor, kButtonFace);
  EXPECT_EQ(desk.Main().lblBusy[1].BackColor, kButtonFace);
  EXPECT_TRUE(desk.Enabled("cmdCall"));
  EXPECT_FALSE(desk.MuteCheck(0));
  EXPECT_FALSE(desk.WaveMuted());
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
}

TEST(Takeover, StatusZeroResumesTheMusicByItsPlayProcedure) {
  LinkDesk desk;
  int calls = 0;
  desk.Sys->Link.ResumeMusic = [&] { ++calls; };
  desk.Status(0);
  EXPECT_EQ(calls, 0);
  desk.PlayMusic();
  desk.Status(0);
  EXPECT_EQ(calls, 1);
  PauseByPreview(desk);
  desk.Status(0);
  EXPECT_EQ(calls, 1);
}

TEST(Takeover, EachStatusZeroRunsTheWholeReturnAlsoWhenNothingWasHeldBack) {
  LinkDesk desk({.CallRouting = "000000"});
  EXPECT_FALSE(desk.Enabled("cmdCall"));
  EXPECT_TRUE(desk.MuteCheck(0));
  for (int time = 0; time < 2; ++time) {
    desk.Status(0);
    EXPECT_TRUE(desk.Enabled("cmdCall"));
    EXPECT_FALSE(desk.MuteCheck(0));
    EXPECT_EQ(desk.Label(), "hidden 615 615 615");
    desk.Click("cmdCallZone_0");
    desk.Click("cmdCallZone_0");
    EXPECT_FALSE(desk.Enabled("cmdCall"));
  }
}

TEST(Takeover, StatusZeroResumesOnlyMusicThatPlays) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Pc.Journal.Clear();
  desk.Status(0);
  desk.Advance(5000);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPaused);
  EXPECT_TRUE(desk.WaveMuted());
  EXPECT_EQ(desk.Journal(), "");
}

TEST(Takeover, TheMusicsZonesFollowStatusZeroBy400Ms) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(128);
  desk.Advance(1000);
  desk.Status(0);
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(), "1400 send 67\n");
  EXPECT_FALSE(desk.Players().tmrDwellTimer.Enabled);
}

TEST(Takeover, TheDwellOpensTheMasterLineAgain) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(0);
  desk.Do([&] { desk.Sys->TheFrmMxr.ChkMute[0].Value = 1; });
  desk.Advance(199);
  EXPECT_TRUE(desk.MuteCheck(0));
  desk.Advance(1);
  EXPECT_FALSE(desk.MuteCheck(0));
}

TEST(Takeover, TheDwellSendsNothingWithoutPlayingMusic) {
  LinkDesk desk;
  desk.Status(0);
  desk.Do([&] { desk.Sys->TheFrmMxr.ChkMute[0].Value = 1; });
  desk.Advance(5000);
  EXPECT_TRUE(desk.MuteCheck(0));
  EXPECT_EQ(desk.Journal(), "");
}

TEST(Takeover, ANewTakeoverEndsTheDwellOfTheOneBefore) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(128);
  desk.Status(0);
  desk.Advance(150);
  desk.Status(192);
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Journal(), "");
}

TEST(Takeover, AZoneClickIsHeldBackUntilTheNextPollAfterStatusZero) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(128);
  desk.Advance(100);
  desk.Click("cmdMusicZones_4");
  desk.Advance(950);
  desk.Click("cmdMusicZones_0");
  EXPECT_EQ(desk.Journal(), "");
  desk.Status(0);
  desk.Advance(1);
  desk.Click("cmdMusicZones_5");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "1100 send 114\n1450 send 114\n");
}

TEST(Takeover, ARequestOfTheMomentBeforeIsHeldBackToo) {
  LinkDesk desk;
  desk.Click("cmdPlay");
  desk.Advance(100);
  desk.Status(128);
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(), "");
  desk.Status(0);
  desk.Advance(100);
  EXPECT_EQ(desk.Journal(), "10200 send 67\n");
}

TEST(Takeover, TheReleaseByteOfTheStopButtonIsNotHeldBack) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(128);
  desk.Click("cmdStop");
  EXPECT_EQ(desk.Journal(), "0 send 0\n");
  desk.Status(0);
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "0 send 0\n");
}

TEST(Takeover, EveryStateReturnsToFreeWithStatusZero) {
  struct Row {
    std::string Own;
    bool MusicPlays;
    int Status;
    std::string Priority;
  };
  const std::vector<Row> rows = {{"Low", true, 0, "0"},
                                 {"High", true, 64, "64"},
                                 {"Low", true, 64, "64 held"},
                                 {"High", false, 128, "128 held"},
                                 {"Low", true, 128, "128 held preempted"},
                                 {"High", true, 192, "192 held preempted"}};
  for (const Row& row : rows) {
    LinkDesk desk({.Priority = row.Own});
    if (row.MusicPlays) desk.PlayMusic();
    desk.Status(row.Status);
    EXPECT_EQ(desk.Priority(), row.Priority);
    desk.Status(0);
    EXPECT_EQ(desk.Priority(), "0");
    EXPECT_EQ(desk.Heard(), row.MusicPlays ? "song march.mp3 at 20000" : "silence");
  }
}

TEST(Takeover, InsideAnOpenBoxSilencesAtOnceAndGivesBackAtOnce) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Click("mnuAdresses");
  desk.Status(128);
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Advance(3000);
  desk.Status(0);
  desk.Advance(1000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Journal(), "3400 send 67\n");
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
}

TEST(Takeover, TheExitInTheMiddleOfItReleasesTheZones) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(128);
  desk.Pc.Journal.Only({"send", "serial", "process"});
  desk.Click("mnuExit");
  EXPECT_EQ(desk.Journal(), "0 send 0\n0 serial close\n0 process ends\n");
}

}  // namespace
}  // namespace marlex
