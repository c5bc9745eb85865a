// Releases, takeovers and song ends at points where the steps of a press and of a release overlap.
// Deliberate: the results are what these steps, taken literally, produce.

#include <gtest/gtest.h>

#include "call/call_desk.h"
#include "desk/deeds.h"

namespace marlex {
namespace {

/// A takeover from `atMs` to the tenth second of the journal.
void TakeOverAt(CallDesk& desk, int atMs) {
  desk.AdvanceTo(atMs);
  desk.Status(128);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_FALSE(desk.State().CallActive);
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  desk.Status(0);
  desk.AdvanceTo(11'000);
}

TEST(ReleaseThenTakeover, InTheTurnedFadeNothingIsKept) {
  CallDesk desk;
  desk.PressAt(0);
  desk.ReleaseAt(200);
  TakeOverAt(desk, 300);
  EXPECT_EQ(desk.Heard(), kMusic);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.TakeJournal(), "10400 send 67\n");
  EXPECT_FALSE(desk.State().CallEndedDuringFade);
  ExpectWholeCall(desk);
}

TEST(ReleaseThenTakeover, InTheWaitForThePreChimesEndNothingIsKept) {
  CallDesk desk;
  desk.PressAt(0);
  desk.ReleaseAt(900);
  TakeOverAt(desk, 1100);
  EXPECT_EQ(desk.Heard(), "silence");  // the call has paused the music; the next one resumes it
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_FALSE(desk.State().CallEndedDuringChime);
  EXPECT_EQ(desk.Journal(),
            "529 song pause\n529 wav play chime.wav\n729 send 68\n"
            "1100 wav stop chime.wav\n");
  EXPECT_FALSE(desk.MicrophoneOpened);
  ExpectWholeCall(desk);
}

/// Where the word for closing is not a command of the player, the chime plays to its end, and the
/// release waits for it.
struct UnclosedChime : CallDesk {
  UnclosedChime() : CallDesk(Italian()) {
    PressAt(0);
    ReleaseAt(900);
    AdvanceTo(1100);
    Status(128);
    AdvanceTo(1300);
    Status(0);
  }

 private:
  static DeskOptions Italian() {
    DeskOptions options = CallDesk::Chimes();
    options.Language = "Italian";
    return options;
  }
};

/// If the takeover is over by then, the release restores everything as if there had been none.
TEST(ReleaseThenTakeover, AChimeThatCannotBeClosedRestoresAfterAShortOne) {
  UnclosedChime desk;
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "529 song pause\n529 wav play chime.wav\n729 send 68\n"
            "1529 wav end chime.wav\n1529 send 0\n1529 song resume march.mp3\n");
  EXPECT_EQ(desk.Heard(), kMusic);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_FALSE(desk.MicrophoneOpened);
  ExpectWholeCall(desk);
}

/// The release, which is held up, does not count as that of the next call.
TEST(ReleaseThenTakeover, AChimeThatCannotBeClosedLetsTheNextCallSpeak) {
  UnclosedChime desk;
  ExpectWholeCall(desk);
}

TEST(ReleaseThenTakeover, InThePostChimeTheMusicStaysPaused) {
  CallDesk desk;
  desk.PressAt(0);
  desk.ReleaseAt(5000);
  TakeOverAt(desk, 5400);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPaused);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Journal(),
            "529 song pause\n529 wav play chime.wav\n729 send 68\n"
            "1529 wav end chime.wav\n5000 wav play gong.wav\n"
            "5400 wav stop gong.wav\n");
  ExpectWholeCall(desk);
}

TEST(ReleaseThenTakeover, InTheFadeBackTheMusicReturnsWithTheTakeoversEnd) {
  CallDesk desk;
  desk.PressAt(0);
  desk.ReleaseAt(5000);
  desk.AdvanceTo(5900);
  desk.Pc.Journal.Clear();
  TakeOverAt(desk, 6000);
  EXPECT_EQ(desk.Heard(), kMusic);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_FALSE(desk.State().CallEndedDuringFade);
  EXPECT_EQ(desk.Journal(), "4500 send 67\n");
  ExpectWholeCall(desk);
}

/// A call that is dropped during its chime leaves the chime playing and the music paused. None of
/// that counts as running, so a call of the amplifier takes nothing over.
TEST(KeptRelease, ACallOfTheAmplifierOverADroppedCallsChimeMutesNothing) {
  CallDesk desk(DeskOptions{});
  desk.PressAt(0);
  desk.ReleaseAt(5000);
  desk.AdvanceTo(10'000);
  ASSERT_TRUE(desk.State().CallEndedDuringChime);
  PickPreChime(desk, "chime");
  desk.PressAt(10'000);
  desk.AdvanceTo(11'000);
  ASSERT_FALSE(desk.State().CallActive);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 10000");
  desk.Status(128);
  EXPECT_FALSE(desk.State().PriorityPreempted);
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 10000");
  desk.ReleaseAt(12'000);
  desk.AdvanceTo(13'000);
  desk.Status(0);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPaused);
  EXPECT_EQ(desk.Alive(), "cmdPlay cmdSkip cmdStop");  // the tick is off until the next call
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  ExpectWholeCall(desk);
}

TEST(TwoReleases, InThePostChimeTheSecondIsNone) {
  CallDesk desk;
  desk.PressAt(0);
  desk.ReleaseAt(5000);
  desk.PressAt(5200);
  desk.ReleaseAt(5400);
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "529 song pause\n529 wav play chime.wav\n729 send 68\n"
            "1529 wav end chime.wav\n5000 wav play gong.wav\n"
            "5800 wav end gong.wav\n5800 send 0\n5800 song resume march.mp3\n");
  EXPECT_EQ(desk.Heard(), kMusic);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  ExpectWholeCall(desk);
}

TEST(TwoReleases, EveryPairOfThemEndsTheCallOnceAndTheNextSpeaks) {
  constexpr int kSpeaksFromMs = 1529;
  for (int first = 50; first <= 6050; first += 300) {
    for (int second = first; second <= 6650; second += 300) {
      SCOPED_TRACE(std::to_string(first) + " " + std::to_string(second));
      CallDesk desk;
      desk.PressAt(0);
      desk.ReleaseAt(first);
      ASSERT_EQ(desk.MicrophoneOpened, first >= kSpeaksFromMs);
      desk.MicrophoneOpened = false;
      desk.ReleaseAt(second);
      desk.AdvanceTo(20'000);
      ASSERT_FALSE(desk.MicrophoneOpened);
      ASSERT_FALSE(desk.State().CallActive);
      ASSERT_FALSE(desk.State().CallEndedDuringFade || desk.State().CallEndedDuringChime);
      ASSERT_EQ(desk.Pc.Loop.Waits(), 1);
      ASSERT_EQ(desk.Alive(), kAllAlive);
      ASSERT_NO_FATAL_FAILURE(ExpectWholeCall(desk));
    }
  }
}

/// A row waits for the end of the song, which comes during the fade of a call.
class SongEndDesk : public CallDesk {
 public:
  SongEndDesk() : CallDesk(WithRow()) {
    Pc.Disk.AddMp3("/music/march.mp3", 30'000);
    Click("cmdStop");
    Click("cmdPlay");
    RunTo(12, 1, 5);
    EXPECT_TRUE(State().MessageAwaitingSongEnd);
    while (Pc.Song.CurrentPosition() < 29.8) Advance(1);
    Pc.Journal.Clear();
  }

 private:
  static DeskOptions WithRow() {
    DeskOptions options = Chimes();
    options.Sequences = {{.Timer = "Between"}};
    options.Now = {2024, 1, 1, 12, 0, 50};
    return options;
  }
};

/// The call has dropped the messages, so the break plays none of them, and the fade continues over
/// the next song. The tick remains held by the call.
TEST(SongEndInACallsFade, OverAWaitingRowLeavesTheTickToTheCall) {
  SongEndDesk desk;
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Alive(), "cmdPlay cmdSkip cmdStop");
  desk.Advance(210);
  EXPECT_TRUE(desk.State().FadeRunning);
  EXPECT_FALSE(desk.State().MessageAwaitingSongEnd);
  EXPECT_EQ(desk.Alive(), "cmdPlay cmdSkip cmdStop");
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 22000");
  desk.Advance(3000);
  EXPECT_EQ(desk.Station(), "Speak, lamps green, speaks");
  EXPECT_EQ(desk.Alive(), "cmdPlay cmdSkip cmdStop");
  desk.Release("cmdCall");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(),
            "200 song end\n200 song play waltz.mp3\n713 song pause\n"
            "713 wav play chime.wav\n913 send 68\n1713 wav end chime.wav\n"
            "3210 wav play gong.wav\n4010 wav end gong.wav\n4010 send 0\n"
            "4010 song resume waltz.mp3\n");
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(SkipUnderASpeaker, OverARowThatWaitedLeavesHimTheMicrophone) {
  DeskOptions options = CallDesk::Chimes();
  options.Sequences = {{.Timer = "Between"}};
  options.Now = {2024, 1, 1, 12, 0, 50};
  CallDesk desk(options);
  desk.RunTo(12, 1, 5);
  ASSERT_TRUE(desk.State().MessageAwaitingSongEnd);
  desk.Press("cmdCall");
  desk.Advance(3000);
  ASSERT_EQ(desk.Station(), "Speak, lamps green, speaks");
  desk.Click("cmdSkip");
  EXPECT_EQ(desk.Station(), "Speak, lamps green, speaks");
  desk.Release("cmdCall");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

}  // namespace
}  // namespace marlex
