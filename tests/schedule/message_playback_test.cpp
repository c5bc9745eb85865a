#include "schedule/message_playback.h"

#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;

TEST(MessagePlayback, ARowAtSetTimeFadesTheMusicAnnouncesAndGivesItBack) {
  SpotDesk desk;
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "1729 send 68\n"
            "4529 wav end welcome.wav\n"
            "4529 wav play closing.wav\n"
            "6529 wav end closing.wav\n"
            "6529 song resume march.mp3\n"
            "6729 send 67\n");
}

TEST(MessagePlayback, EachPhaseIsHeardAtItsOwnLevel) {
  SpotDesk desk;
  desk.AdvanceTo(SpotDesk::kDue);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  desk.AdvanceTo(1300);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 46000");
  desk.AdvanceTo(SpotDesk::kFadedDown - 1);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 64000");
  desk.AdvanceTo(SpotDesk::kFadedDown);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.AdvanceTo(SpotDesk::kFirstMessageEnds);
  EXPECT_EQ(desk.Heard(), "wav closing.wav at 10000");
  desk.AdvanceTo(SpotDesk::kSecondMessageEnds);
  EXPECT_EQ(desk.Heard(), "silence");
  desk.AdvanceTo(6700);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 51535");
  desk.AdvanceTo(SpotDesk::kFadedUp - 1);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 17535");
  desk.AdvanceTo(SpotDesk::kFadedUp);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(MessagePlayback, TheMusicLevelReturnsForAnInstantBeforeTheRise) {
  SpotDesk desk;
  desk.AdvanceTo(SpotDesk::kSecondMessageEnds - 1);
  std::vector<int> positions;
  auto& slider = desk.Sys->TheFrmMxr.SldrVol[desk.Sys->Mixer.WaveLine];
  const auto move = slider.OnChange;
  slider.OnChange = [&] {
    positions.push_back(slider.Value);
    move();
  };
  desk.AdvanceTo(SpotDesk::kSecondMessageEnds + 23);
  EXPECT_EQ(positions, (std::vector<int>{20000, 65535, 63535}));
}

TEST(MessagePlayback, TheSongGoesOnWhereItWasPaused) {
  SpotDesk desk;
  desk.AdvanceTo(SpotDesk::kFadedDown);
  const double pausedAt = desk.Pc.Song.CurrentPosition();
  desk.AdvanceTo(SpotDesk::kSecondMessageEnds);
  EXPECT_DOUBLE_EQ(desk.Pc.Song.CurrentPosition(), pausedAt);
  EXPECT_EQ(desk.MusicState(), kPlaying);
}

TEST(MessagePlayback, WithoutMusicTheReleaseByteFollowsTheLastMessage) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n"
            "1200 send 68\n"
            "4000 wav end welcome.wav\n"
            "4000 wav play closing.wav\n"
            "6000 wav end closing.wav\n"
            "6000 send 0\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(MessagePlayback, ABusyAmplifierIsReleasedBeforeTheZones) {
  SpotDesk desk({.Priority = "High"});
  desk.Status(64);
  desk.AdvanceTo(2000);
  EXPECT_EQ(desk.Journal(),
            "1529 song pause\n"
            "1529 send 0\n"
            "1529 wav play welcome.wav\n"
            "1729 send 132\n");
}

TEST(MessagePlayback, WithoutARouterAMessagePlaysAndNoByteIsSent) {
  SpotDesk desk({.Router = false});
  desk.State().AmplifierStatus = 64;
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "4529 wav end welcome.wav\n"
            "4529 wav play closing.wav\n"
            "6529 wav end closing.wav\n"
            "6529 song resume march.mp3\n");
  EXPECT_EQ(desk.LitZones(), "110000");
}

TEST(MessagePlayback, WithoutAFadeTheMusicIsPausedAtOnceAndComesBackAtItsLevel) {
  SpotDesk desk;
  desk.Values().FadeTime = 0;
  desk.AdvanceTo(SpotDesk::kDue);
  EXPECT_EQ(desk.Journal(), "1000 song pause\n1000 wav play welcome.wav\n");
  desk.AdvanceTo(6000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(MessagePlayback, ASlowFadeTakesItsTimeOnBothSides) {
  SpotDesk desk({.FadeTime = "Slow"});
  desk.AdvanceTo(12'000);
  EXPECT_EQ(desk.Journal(),
            "2518 song pause\n"
            "2518 wav play welcome.wav\n"
            "2718 send 68\n"
            "5518 wav end welcome.wav\n"
            "5518 wav play closing.wav\n"
            "7518 wav end closing.wav\n"
            "7518 song resume march.mp3\n"
            "7718 send 67\n");
  EXPECT_EQ(desk.WaveSlider(), 20000);
}

TEST(MessagePlayback, MusicThatIsAlreadyPausedIsResumedAfterTheMessages) {
  SpotDesk desk;
  PauseByPreview(desk);
  desk.Pc.Journal.Clear();
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n"
            "1200 send 68\n"
            "4000 wav end welcome.wav\n"
            "4000 wav play closing.wav\n"
            "6000 wav end closing.wav\n"
            "6000 song resume march.mp3\n"
            "6200 send 67\n");
}

TEST(MessagePlayback, TheZonesOnTheScreenAreTheRowsAndThenTheMusics) {
  SpotDesk desk;
  desk.AdvanceTo(SpotDesk::kFadedDown - 1);
  EXPECT_EQ(desk.LitZones(), "110000");
  desk.AdvanceTo(SpotDesk::kFadedDown);
  EXPECT_EQ(desk.LitZones(), "001000");
  desk.AdvanceTo(SpotDesk::kSecondMessageEnds);
  EXPECT_EQ(desk.LitZones(), "110000");
}

TEST(MessagePlayback, TheMusicsZonesReturnToTheScreenAlsoWithoutMusic) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(1500);
  EXPECT_EQ(desk.LitZones(), "001000");
  desk.AdvanceTo(6000);
  EXPECT_EQ(desk.LitZones(), "110000");
}

TEST(MessagePlayback, ARowWithoutZonesReleasesTheZonesInsteadOfSendingAPriority) {
  SpotDesk desk({.Sequences = {{.Zones = "000000"}}}, kSilent);
  desk.AdvanceTo(5000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n"
            "1200 send 0\n"
            "4000 wav end welcome.wav\n"
            "4000 send 0\n");
}

TEST(MessagePlayback, AMessageShorterThanTheRoutingDelaySendsNoZones) {
  SpotDesk desk({.Messages = {{"welcome", 150}}, .Sequences = {{.Zones = "003000"}}});
  desk.AdvanceTo(3000);
  EXPECT_EQ(desk.Journal(),
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "1679 wav end welcome.wav\n"
            "1679 song resume march.mp3\n"
            "1729 send 67\n");
}

TEST(MessagePlayback, TickAndTransportButtonsAreOffFromTheFadeToTheEndOfTheRise) {
  SpotDesk desk;
  desk.AdvanceTo(SpotDesk::kDue - 1);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
  for (const int ms : {SpotDesk::kDue, 1300, 3000, 5000, SpotDesk::kFadedUp - 1}) {
    desk.AdvanceTo(ms);
    EXPECT_EQ(desk.Alive(), "") << ms;
  }
  desk.AdvanceTo(SpotDesk::kFadedUp);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
}

TEST(MessagePlayback, TheMusicZoneButtonsAreOffOnlyWhileMessagesPlay) {
  SpotDesk desk;
  const auto buttons = [&] {
    std::string on;
    for (int zone = 0; zone < kZones; ++zone) {
      on += desk.Main().cmdMusicZones[zone].Enabled ? '1' : '0';
    }
    return on;
  };
  desk.AdvanceTo(SpotDesk::kFadedDown - 1);
  EXPECT_EQ(buttons(), "111111");
  desk.AdvanceTo(SpotDesk::kFadedDown);
  EXPECT_EQ(buttons(), "000000");
  desk.AdvanceTo(SpotDesk::kSecondMessageEnds - 1);
  EXPECT_EQ(buttons(), "000000");
  desk.AdvanceTo(SpotDesk::kSecondMessageEnds);
  EXPECT_EQ(buttons(), "111111");
}

TEST(MessagePlayback, TheFirstCellIsGreenWhileMessagesPlayAndTheRestOfTheRowNavy) {
  SpotDesk desk;
  const Grid& table = desk.Main().grdSchedule;
  desk.AdvanceTo(SpotDesk::kFadedDown - 1);
  EXPECT_EQ(desk.Paint(1), "nnnnn");
  desk.AdvanceTo(SpotDesk::kFadedDown);
  EXPECT_EQ(desk.Paint(1), "gnnnn");
  EXPECT_EQ(table.ForeColorAt(1, kTimeColumn), kBlack);
  EXPECT_EQ(table.ForeColorAt(1, kMessagesColumn), kWhite);
  desk.AdvanceTo(SpotDesk::kSecondMessageEnds);
  EXPECT_EQ(desk.Paint(1), "nnnnn");
  EXPECT_EQ(table.ForeColorAt(1, kTimeColumn), kWhite);
  desk.AdvanceTo(30'000);
  EXPECT_EQ(desk.Paint(1), "nnnnn");
}

TEST(MessagePlayback, MessagePlayingIsTrueOnlyWhileTheFilesAre) {
  SpotDesk desk;
  const auto playingAt = [&](int ms) {
    desk.AdvanceTo(ms);
    return desk.State().MessagePlaying;
  };
  EXPECT_FALSE(playingAt(SpotDesk::kFadedDown - 1));
  EXPECT_TRUE(playingAt(SpotDesk::kFadedDown));
  EXPECT_TRUE(playingAt(SpotDesk::kSecondMessageEnds - 1));
  EXPECT_FALSE(playingAt(SpotDesk::kSecondMessageEnds));
}

TEST(MessagePlayback, ASongThatEndsInTheFadeGivesWayToTheNext) {
  SpotDesk desk({.Music = {{"march", 28'200}, {"waltz"}}});
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1200 song end\n"
            "1200 song play waltz.mp3\n"
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "1729 send 68\n"
            "4529 wav end welcome.wav\n"
            "4529 wav play closing.wav\n"
            "6529 wav end closing.wav\n"
            "6529 song resume waltz.mp3\n"
            "6729 send 67\n");
}

TEST(MessagePlayback, AFadeThatEndsWithoutASongHasNothingToPauseOrResume) {
  SpotDesk desk;
  desk.AdvanceTo(1200);
  desk.Do([&] { desk.Pc.Song.Stop(); });
  desk.AdvanceTo(8000);
  EXPECT_EQ(desk.Journal(),
            "1200 song stop\n"
            "1529 wav play welcome.wav\n"
            "1729 send 68\n"
            "4529 wav end welcome.wav\n"
            "4529 wav play closing.wav\n"
            "6529 wav end closing.wav\n"
            "6529 send 0\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
  EXPECT_EQ(desk.WaveSlider(), 20000);
}

TEST(MessagePlayback, ASongWhoseFileHasGoneStaysPausedAndItsButtonsStayOff) {
  SpotDesk desk;
  desk.AdvanceTo(5000);
  desk.Pc.Disk.Vanish("/music");
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.MusicState(), kPaused);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(MessagePlayback, AMusicLevelChangedByCodeInASequenceIsNotTheTargetOfTheRise) {
  SpotDesk desk;
  desk.AdvanceTo(3000);
  desk.Do([&] { desk.Values().MusicVolume = 40000; });
  desk.AdvanceTo(SpotDesk::kFadedUp);
  EXPECT_EQ(desk.WaveSlider(), 20000);
}

/// The journal of a whole announcement during which a menu's file dialog is opened and closed.
std::string JournalUnderDialog(const std::string& menu, int openMs) {
  SpotDesk desk;
  desk.Pc.Journal.Mute("open");
  desk.AdvanceTo(openMs);
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Click(menu);
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
  return desk.Journal();
}

TEST(MessagePlayback, AFileDialogThatIsOpenedMeanwhileAndLeftHoldsNothingUp) {
  SpotDesk undisturbed;
  undisturbed.AdvanceTo(20'000);
  constexpr int kFading = 1250;
  constexpr int kSpeaking = 3000;
  constexpr int kRising = 6900;
  for (const char* menu : {"mnuOpen", "mnuSequence"}) {
    for (const int openMs : {kFading, kSpeaking, kRising})
      EXPECT_EQ(JournalUnderDialog(menu, openMs), undisturbed.Journal()) << menu << openMs;
  }
}

}  // namespace
}  // namespace marlex
