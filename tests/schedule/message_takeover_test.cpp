#include <gtest/gtest.h>

#include "schedule/message_playback.h"
#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;
constexpr int kInTheFade = 1250;
constexpr int kInTheFirstMessage = 3000;
constexpr int kInTheRise = 6900;

std::string ThroughTheWholeSequence() {
  SpotDesk desk;
  desk.AdvanceTo(20'000);
  return desk.Journal();
}

TEST(MessageTakeover, ACallOfLowPriorityAtTheAmplifierDisturbsNoPhase) {
  for (const int atMs : {kInTheFade, kInTheFirstMessage, 5000, kInTheRise}) {
    SpotDesk desk;
    desk.AdvanceTo(atMs);
    desk.Status(64);
    desk.AdvanceTo(20'000);
    const std::string release = atMs == kInTheFade ? "1529 send 0\n" : "";
    std::string expected = ThroughTheWholeSequence();
    expected.insert(expected.find("1529 wav"), release);
    EXPECT_EQ(desk.Journal(), expected) << atMs;
    EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
    EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  }
}

TEST(MessageTakeover, ATakeoverInTheFadeEndsTheSequenceAndTheSongRunsOnMuted) {
  for (const int status : {128, 192}) {
    SpotDesk desk;
    desk.AdvanceTo(kInTheFade);
    desk.Status(status);
    EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
    EXPECT_EQ(desk.MusicState(), kPlaying);
    EXPECT_EQ(desk.WaveSlider(), 20000);
    EXPECT_EQ(desk.Heard(), "silence");
    EXPECT_EQ(desk.Paint(1), "nnnnn");
    EXPECT_FALSE(desk.State().MessagePlaying);
    desk.AdvanceTo(20'000);
    EXPECT_EQ(desk.Journal(), "") << status;
  }
}

TEST(MessageTakeover, TheMusicIsBackOnItsZonesAfterATakeoverInTheFade) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFade);
  desk.Status(192);
  desk.AdvanceTo(20'000);
  desk.Status(0);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  desk.AdvanceTo(21'000);
  EXPECT_EQ(desk.Journal(), "20400 send 67\n");
}

TEST(MessageTakeover, ATakeoverInAMessageDropsTheRestAndLeavesTheMusicPaused) {
  for (const int status : {128, 192}) {
    SpotDesk desk;
    desk.AdvanceTo(kInTheFirstMessage);
    desk.Pc.Journal.Clear();
    desk.Status(status);
    desk.Advance(10'000);
    EXPECT_EQ(desk.Journal(), "0 wav stop welcome.wav\n0 wav refuse \n") << status;
    EXPECT_EQ(desk.Heard(), "silence");
    EXPECT_EQ(desk.Muted(), "master microphone");
    EXPECT_EQ(desk.WaveSlider(), 20000);
    EXPECT_EQ(desk.MusicState(), kPaused);
    EXPECT_EQ(desk.Alive(), "tick cmdPlay");
    EXPECT_EQ(desk.LitZones(), "110000");
    EXPECT_EQ(desk.Paint(1), "nnnnn");
    EXPECT_FALSE(desk.State().MessagePlaying);
    EXPECT_TRUE(desk.Enabled("cmdMusicZones_0"));
  }
}

TEST(MessageTakeover, MusicThatATakeoverLeftPausedWaitsForTheOperator) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Status(128);
  desk.AdvanceTo(10'000);
  desk.Pc.Journal.Clear();
  desk.Status(0);
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_EQ(desk.MusicState(), kPaused);
  EXPECT_EQ(desk.Muted(), "microphone");
  desk.Click("cmdPlay");
  desk.Advance(200);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Journal(),
            "5000 song stop\n"
            "5000 song play march.mp3\n"
            "5200 send 67\n");
}

TEST(MessageTakeover, ZonesHeldBackByATakeoverGoOutAsTheMusicsAfterIt) {
  SpotDesk desk;
  desk.AdvanceTo(1600);
  desk.Status(128);
  desk.AdvanceTo(5000);
  EXPECT_EQ(desk.Pc.Serial.Sent().back().Value, 67);
  desk.Pc.Journal.Clear();
  desk.Status(0);
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "129 send 67\n");
}

TEST(MessageTakeover, AStatusOfNoughtInAMessageChangesNothingOfIt) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Status(0);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(), ThroughTheWholeSequence());
}

TEST(MessageTakeover, AStatusOfNoughtInTheFadeOrTheRiseAsksForTheMusicsZones) {
  SpotDesk inTheFade;
  inTheFade.AdvanceTo(1050);
  inTheFade.Status(0);
  inTheFade.AdvanceTo(2000);
  EXPECT_EQ(inTheFade.Journal(),
            "1450 send 67\n"
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "1729 send 68\n");
  SpotDesk inTheRise;
  inTheRise.AdvanceTo(kInTheRise);
  inTheRise.Pc.Journal.Clear();
  inTheRise.Status(0);
  inTheRise.Advance(2000);
  EXPECT_EQ(inTheRise.Journal(), "400 send 67\n");
  EXPECT_EQ(inTheRise.Heard(), "song march.mp3 at 20000");
}

TEST(MessageTakeover, ATakeoverOverBeforeTheReportLeavesRestoringToTheSequence) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Pc.Journal.Clear();
  desk.Pc.Serial.Receive({192});
  desk.Pc.Loop.Post([&] { desk.Pc.Serial.Receive({0}); });
  desk.Advance(2000);
  EXPECT_EQ(desk.Journal(),
            "0 wav stop welcome.wav\n"
            "0 wav refuse \n"
            "0 song resume march.mp3\n"
            "200 send 67\n");
}

TEST(MessageTakeover, ATakeoverInTheRiseStopsItAtTheMusicsLevelAndMutesTheMaster) {
  for (const int status : {128, 192}) {
    SpotDesk desk;
    desk.AdvanceTo(kInTheRise);
    ASSERT_GT(desk.WaveSlider(), 20000);
    desk.Status(status);
    EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
    EXPECT_EQ(desk.WaveSlider(), 20000);
    EXPECT_EQ(desk.Heard(), "silence");
    EXPECT_EQ(desk.MusicState(), kPlaying);
    desk.AdvanceTo(10'000);
    desk.Pc.Journal.Clear();
    desk.Status(0);
    EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
    desk.Advance(1000);
    EXPECT_EQ(desk.Journal(), "400 send 67\n") << status;
  }
}

TEST(MessageTakeover, ATakeoverBeforeTheMusicsZonesWereSentHoldsThemBack) {
  SpotDesk desk;
  desk.AdvanceTo(6600);
  desk.Status(128);
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Pc.Serial.Sent().back().Value, 68);
  desk.Pc.Journal.Clear();
  desk.Status(0);
  desk.Advance(3000);
  // The request that was held back, and that of the returning music.
  EXPECT_EQ(desk.Journal(), "129 send 67\n400 send 67\n");
}

TEST(MessageTakeover, ATakeoverWithoutMusicCutsTheMessageOffAndSendsNoRelease) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(2000);
  desk.Pc.Journal.Clear();
  desk.Status(128);
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "0 wav stop welcome.wav\n0 wav refuse \n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(MessageTakeover, WhereCloseIsNoCommandTheFilePlaysOnUnheard) {
  SpotDesk desk({.Language = "Italian"});
  ASSERT_EQ(desk.Sys->Strings.LoadString(kStrClose), "Chiudi");
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Pc.Journal.Clear();
  desk.Status(128);
  EXPECT_TRUE(desk.State().MessagePlaying);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWavePlaying);
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(), "1529 wav end welcome.wav\n1529 wav refuse \n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(MessageTakeover, ACallInTheFadeEndsTheSequenceAndLeavesAllAsItIs) {
  SpotDesk desk({.CallRouting = "000100"});
  desk.AdvanceTo(kInTheFade);
  desk.Press("cmdCall");
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(), "1529 song pause\n1729 send 72\n");
  EXPECT_EQ(desk.Alive(), "");
  EXPECT_EQ(desk.MusicState(), kPaused);
  EXPECT_EQ(desk.WaveSlider(), 65535);
  EXPECT_EQ(desk.LitZones(), "000100");
  EXPECT_FALSE(desk.State().MessagePlaying);
}

TEST(MessageTakeover, ACallInAMessageStopsItAtOnceAndTheSequenceRestoresNothing) {
  SpotDesk desk({.CallRouting = "000100"});
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  EXPECT_FALSE(desk.State().MessagePlaying);
  desk.Advance(20'000);
  EXPECT_EQ(desk.Journal(), "0 wav stop welcome.wav\n0 wav refuse \n200 send 72\n");
  EXPECT_EQ(desk.Alive(), "");
  EXPECT_EQ(desk.MusicState(), kPaused);
  EXPECT_EQ(desk.LitZones(), "000100");
  EXPECT_EQ(desk.WaveSlider(), 20000);
  EXPECT_EQ(desk.Paint(1), "nnnnn");
  EXPECT_TRUE(desk.Enabled("cmdMusicZones_5"));
}

TEST(MessageTakeover, TheRestOfALongListIsGoneThroughWithEmptyEntriesInNoTime) {
  SpotDesk desk({.Sequences = {{.Messages = "welcome,closing,welcome,closing"}}});
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Journal(),
            "0 wav stop welcome.wav\n"
            "0 wav refuse \n"
            "0 wav refuse \n"
            "0 wav refuse \n");
}

TEST(MessageTakeover, ACallInTheRiseEndsItAndFindsTickAndButtonsAlive) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheRise);
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Alive(), "");
  desk.AdvanceTo(SpotDesk::kFadedUp + 1000);
  EXPECT_EQ(desk.Text("cmdCall"), "Speak");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");  // the music is paused
}

TEST(MessageTakeover, ATakeoverOutranksACallThatItHasEnded) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Do([&] {
    desk.State().CallActive = true;
    desk.State().PriorityPreempted = true;
    desk.Pc.Wav.Command("Close");
  });
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(MessageTakeover, TheOperatorCannotStartASongUnderAMessage) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Click("cmdPlay");
  desk.DoubleClickSong(1);
  EXPECT_FALSE(desk.Enabled("cmdPlay"));
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(), ThroughTheWholeSequence());
}

TEST(MessageTakeover, AnotherViewChosenUnderAMessageHasTheLastRowPaintedInstead) {
  SpotDesk desk({.Sequences = {{.Zones = "003000"}, {.File = "late.sch", .Hours = "15"}}});
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Click("mnuAllDays");
  EXPECT_EQ(desk.Paint(1), "wwwww");
  EXPECT_EQ(desk.Paint(2), "wwwww");
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Paint(1), "wwwww");
  EXPECT_EQ(desk.Paint(2), "nwwww");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Pc.Serial.Sent().back().Value, 67);
}

TEST(MessageTakeover, AnotherViewChosenInTheFadeLeavesTheMessagesOfTheRow) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFade);
  desk.Click("mnuScheduleName");
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(), ThroughTheWholeSequence());
}

TEST(MessageTakeover, ClosingSchedulesUnderAMessageLeavesItSounding) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Click("mnuClose");
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(), ThroughTheWholeSequence());
  EXPECT_EQ(desk.Main().grdSchedule.Rows(), 1);
  EXPECT_EQ(desk.Paint(0), "wwwww");
}

TEST(MessageTakeover, AnErrorBoxThatNobodyAnswersHoldsNoPhaseUp) {
  SpotDesk desk;
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Pc.Journal.Mute("box");
  for (const int atMs : {500, kInTheFade, kInTheFirstMessage, kInTheRise}) {
    desk.AdvanceTo(atMs);
    desk.Do([&] {
      desk.Sys->TheNotices.Leave("At " + std::to_string(atMs), BoxIcon::Critical, "Error");
    });
  }
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(), ThroughTheWholeSequence());
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 4);
}

TEST(MessageTakeover, TheProgramCanBeLeftBeforeDuringAndAfterEachWait) {
  const std::string farewell = "0 send 0\n0 serial close\n0 process ends\n";
  for (const int atMs : {500, kInTheFade, kInTheFirstMessage, 5000, kInTheRise, 9000}) {
    SpotDesk desk;
    desk.AdvanceTo(atMs);
    desk.Pc.Journal.Clear();
    desk.Click("mnuExit");
    desk.Advance(10'000);
    EXPECT_EQ(desk.Journal(), farewell) << atMs;
    EXPECT_TRUE(desk.Pc.Process.Ended());
    EXPECT_EQ(desk.Heard(), "silence");
  }
}

TEST(MessageTakeover, AWindowClosedUnderAMessageEndsTheProgramToo) {
  SpotDesk desk;
  desk.AdvanceTo(kInTheFirstMessage);
  desk.Pc.Journal.Clear();
  desk.CloseMainWindow();
  EXPECT_EQ(desk.Journal(), "0 send 0\n0 serial close\n0 process ends\n");
}

TEST(MessageTakeover, AProgramKilledInAnyPhaseComesBackWithItsLevelsAndSchedule) {
  for (const int atMs : {kInTheFade, kInTheFirstMessage, kInTheRise}) {
    SpotDesk desk({.Sequences = {{}, {.File = "b.sch", .Minutes = "03"}}});
    desk.AdvanceTo(atMs);
    desk.Pc.Kill();
    desk.Restart();
    desk.Click("cmdPlay");
    EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000") << atMs;
    desk.RunTo(12, 3, 2);
    EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000") << atMs;
    EXPECT_EQ(desk.Setting("Routing", "Music routing"), "110000");
  }
}

}  // namespace
}  // namespace marlex
