// A call and what may interrupt it or be interrupted by it: messages, takeovers, clicks.

#include <gtest/gtest.h>

#include "call/call_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = CallDesk::MusicAtStart::IsSilent;

/// A desk one second before a row of two messages into zone 3; the call goes into zone 4.
DeskOptions WithRow(const std::string& timer = "Exact") {
  DeskOptions options = CallDesk::Chimes();
  options.CallRouting = "000100";
  options.Sequences = {{.Messages = "welcome,closing", .Zones = "003000", .Timer = timer}};
  options.Now = {2024, 1, 1, 12, 0, 55};
  return options;
}

/// Lets the tick see the row, and a fade pass if there is music.
void ReachRow(CallDesk& desk) { desk.RunTo(12, 1, 2); }

TEST(CallMeetsMessage, OverMusicIsCutOffAndTheMusicReturnsWithTheCallsEnd) {
  CallDesk desk(WithRow());
  ReachRow(desk);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 10000");
  desk.Advance(2000);
  EXPECT_TRUE(desk.Speaks());
  desk.Release("cmdCall");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(),
            "0 wav stop welcome.wav\n"
            "0 wav play chime.wav\n"
            "200 send 72\n"
            "1000 wav end chime.wav\n"
            "1000 wav refuse \n"  // the runner goes over what is left of its list
            "2000 wav play gong.wav\n"
            "2800 wav end gong.wav\n"
            "2800 send 0\n"
            "2800 song resume march.mp3\n");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  for (int zone = 0; zone < kZones; ++zone) EXPECT_TRUE(desk.Main().cmdMusicZones[zone].Enabled);
}

TEST(CallMeetsMessage, ThatPlaysWithoutMusicItIsCutOffForGood) {
  CallDesk desk(WithRow(), kSilent);
  ReachRow(desk);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Press("cmdCall");
  desk.Advance(2000);
  EXPECT_TRUE(desk.Speaks());
  desk.Release("cmdCall");
  desk.Advance(30'000);
  EXPECT_EQ(desk.Journal().find("closing"), std::string::npos);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_FALSE(desk.State().MessagePlaying);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(CallMeetsMessage, InTheFadeOfASequenceTheSequenceGivesWayAndTheCallRestores) {
  CallDesk desk(WithRow());
  while (!desk.State().FadeRunning) desk.Advance(1);
  desk.Advance(100);
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  desk.Advance(3000);
  EXPECT_TRUE(desk.Speaks());
  desk.Release("cmdCall");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(CallMeetsMessage, ARowThatFallsIntoACallIsLost) {
  CallDesk desk(WithRow());
  desk.Press("cmdCall");
  desk.RunTo(12, 2, 0);
  desk.Release("cmdCall");
  desk.Advance(120'000);
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

TEST(CallMeetsMessage, AMessageThatWaitsForTheSongsEndIsDropped) {
  CallDesk desk(WithRow("Between"));
  ReachRow(desk);
  ASSERT_TRUE(desk.State().MessageAwaitingSongEnd);
  desk.Press("cmdCall");
  desk.Advance(3000);
  EXPECT_TRUE(desk.Speaks());
  desk.Release("cmdCall");
  desk.Advance(3000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  desk.Advance(300'000);
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

struct Moment {
  const char* During;
  int AtMs;
  bool MusicIsPaused;  // by the call; a takeover keeps the call from resuming it
};

/// Press at 0, fade to 529, chime to 1529, speech to 5000, second chime to 5800, fade up.
constexpr Moment kMoments[] = {{"the fade", 200, false},
                               {"the pre-chime", 900, true},
                               {"the speech", 3000, true},
                               {"the post-chime", 5400, true},
                               {"the fade up", 6000, false}};

TEST(CallMeetsTakeover, AtAnyMomentTheMicrophoneClosesAndNothingIsHeard) {
  for (const int status : {128, 192}) {
    for (const auto& [during, atMs, musicIsPaused] : kMoments) {
      SCOPED_TRACE(during);
      CallDesk desk;
      desk.PressAt(0);
      if (atMs > 5000) desk.ReleaseAt(5000);
      desk.AdvanceTo(atMs);
      desk.Status(status);
      EXPECT_FALSE(desk.State().CallActive);
      EXPECT_TRUE(desk.MuteCheck(0));
      EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
      EXPECT_EQ(desk.Text("cmdCall"), "Call");
      EXPECT_FALSE(desk.Enabled("cmdCall"));
      if (atMs < 5000) desk.ReleaseAt(5000);
      desk.AdvanceTo(10'000);
      EXPECT_EQ(desk.Heard(), "silence");
      EXPECT_FALSE(desk.Speaks());
      EXPECT_FALSE(desk.State().CallActive);
      EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
      desk.Status(0);
      EXPECT_EQ(desk.Heard(), musicIsPaused ? "silence" : "song march.mp3 at 20000");
      desk.AdvanceTo(11'000);
      EXPECT_EQ(desk.Heard(), musicIsPaused ? "silence" : "song march.mp3 at 20000");
      EXPECT_FALSE(desk.Speaks());
      EXPECT_TRUE(desk.Enabled("cmdCall"));
      EXPECT_EQ(desk.Main().lblBusy[0].BackColor.Get(), kButtonFace);
    }
  }
}

TEST(CallMeetsTakeover, InTheSpeechOnlyTheFirstButtonChangesItsText) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  desk.PressAt(0);
  desk.AdvanceTo(2000);
  ASSERT_TRUE(desk.Speaks());
  desk.Status(128);
  EXPECT_EQ(desk.Text("cmdCall") + "|" + desk.Text("cmdCall2"), "Call|Speak");
  desk.Status(0);
  desk.AdvanceTo(3000);
  EXPECT_EQ(desk.Text("cmdCall2"), "Speak");
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Text("cmdCall") + "|" + desk.Text("cmdCall2"), "Wait|Wait");
}

TEST(CallMeetsTakeover, TheScheduleIsHeldAfterItUntilTheNextWholeCall) {
  CallDesk desk(WithRow(), kSilent);
  desk.Press("cmdCall");
  desk.Advance(1500);
  ASSERT_TRUE(desk.Speaks());
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Status(0);
  EXPECT_EQ(desk.Alive(), "cmdPlay");
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
  desk.Press("cmdCall");
  desk.Advance(1500);
  desk.Release("cmdCall");
  desk.Advance(1500);
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

/// A press and another event at the same instant: the event is handled during the press.
void PressUnder(CallDesk& desk, const std::function<void()>& event) {
  desk.Do([&] {
    event();
    desk.Main().cmdCall.OnMouseDown(MouseButton::Left);
  });
}

TEST(CallMeetsTakeover, InTheInstantOfThePressItNeverOpensTheMicrophone) {
  for (const int idleMs : {300, 5000}) {
    CallDesk desk;
    PressUnder(desk, [&] { desk.Pc.Serial.Receive({128}); });
    desk.AdvanceTo(idleMs);
    desk.Status(0);
    desk.AdvanceTo(8000);
    desk.Release("cmdCall");
    desk.AdvanceTo(10'000);
    EXPECT_FALSE(desk.MicrophoneOpened);
    EXPECT_FALSE(desk.State().CallActive);
    EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
    EXPECT_EQ(desk.Station(), "Call, lamps off");
  }
}

TEST(CallMeetsMessage, AReleaseInTheInstantOfThePressOpensNoMicrophone) {
  CallDesk desk(WithRow());
  while (!desk.State().FadeRunning) desk.Advance(1);
  desk.Advance(100);
  PressUnder(desk,
             [&] { desk.Pc.Loop.Post([&] { desk.Main().cmdCall.OnMouseUp(MouseButton::Left); }); });
  desk.Advance(20'000);
  EXPECT_FALSE(desk.MicrophoneOpened);
  EXPECT_EQ(desk.Station(), "Call, lamps off");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

TEST(CallMeetsMusicsClock, AReleaseInTheFadeOfItsStopClosesTheMicrophone) {
  for (const char* chime : {"", "chime"}) {
    DeskOptions options{.FadeTime = "Slow",
                        .StartTime = "11:00",
                        .StopTime = "12:01",
                        .WeekDays = "1234567",
                        .Now = {2024, 1, 1, 12, 0, 50}};
    options.PreChime = chime;
    CallDesk desk(options, kSilent);
    while (!desk.State().FadeRunning) desk.Advance(1);
    desk.Advance(200);
    desk.Click("cmdStop");
    desk.Press("cmdCall");
    desk.Advance(200);
    desk.Release("cmdCall");
    EXPECT_FALSE(desk.Speaks()) << chime;
    desk.Advance(20'000);
    EXPECT_FALSE(desk.Speaks()) << chime;
    EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.MicLine)) << chime;
    EXPECT_FALSE(desk.State().CallActive) << chime;
    EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  }
}

TEST(CallMeetsNothing, AChimeThatIsNotThereHoldsNobodyUp) {
  CallDesk desk({.PreChime = "nothere", .PostChime = "norhere"}, kSilent);
  desk.PressAt(0);
  desk.AdvanceTo(100);
  EXPECT_EQ(desk.Station(), "Speak, lamps green, speaks");
  desk.ReleaseAt(2000);
  desk.AdvanceTo(2100);
  EXPECT_EQ(desk.Station(), "Call, lamps off");
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

TEST(CallMeetsNothing, WithoutAFadeTimeTheMusicPausesAndReturnsAtOnce) {
  CallDesk desk(DeskOptions{});
  desk.Values().FadeTime = 0;
  desk.PressAt(0);
  EXPECT_EQ(desk.Station(), "Speak, lamps green, speaks");
  desk.ReleaseAt(2000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Journal(), "0 song pause\n200 send 68\n2000 send 0\n2000 song resume march.mp3\n");
}

TEST(CallMeetsNothing, WithoutAFadeTimeThePostChimeLeavesTheMusicItsLevel) {
  CallDesk desk;
  desk.Values().FadeTime = 0;
  desk.PressAt(0);
  desk.ReleaseAt(3000);
  desk.AdvanceTo(3400);
  ASSERT_EQ(desk.Heard(), "wav gong.wav at 10000");
  desk.AdvanceTo(5000);
  EXPECT_EQ(desk.WaveSlider(), desk.Values().MusicVolume);
}

TEST(CallMeetsTakeover, AWholeCallAfterItBringsTheMusicBackThatTheFirstHadPaused) {
  CallDesk desk;
  desk.PressAt(0);
  desk.AdvanceTo(3000);
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Status(0);
  desk.AdvanceTo(5000);
  ASSERT_EQ(desk.Heard(), "silence");
  desk.PressAt(5000);
  desk.ReleaseAt(8000);
  desk.AdvanceTo(12'000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

/// Runs a whole call, with these statuses arriving in the middle of it, one after the other.
void CallUnder(CallDesk& desk, int atMs, std::initializer_list<int> statuses) {
  desk.PressAt(0);
  if (atMs > 5000) desk.ReleaseAt(5000);
  desk.AdvanceTo(atMs);
  const std::string captions = desk.Text("cmdCall") + desk.Text("cmdCall2");
  const std::string heard = desk.Heard();
  for (const int status : statuses) {
    desk.Status(status);
    EXPECT_EQ(desk.Text("cmdCall") + desk.Text("cmdCall2"), captions);
    EXPECT_EQ(desk.Heard(), heard);
    EXPECT_TRUE(desk.State().CallActive);
  }
  if (atMs < 5000) desk.ReleaseAt(5000);
  desk.AdvanceTo(10'000);
}

void ExpectTheSame(CallDesk& desk, CallDesk& undisturbed) {
  EXPECT_EQ(desk.Heard(), undisturbed.Heard());
  EXPECT_EQ(desk.MuteCheck(0), undisturbed.MuteCheck(0));
  EXPECT_EQ(desk.Alive(), undisturbed.Alive());
  EXPECT_EQ(desk.Station(), undisturbed.Station());
  EXPECT_FALSE(desk.State().CallActive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

TEST(CallMeetsStatus, OfALowerCallNothingChanges) {
  for (const auto& [during, atMs, musicIsPaused] : kMoments) {
    SCOPED_TRACE(during);
    CallDesk undisturbed;
    CallDesk desk;
    CallUnder(undisturbed, atMs, {});
    CallUnder(desk, atMs, {64});
    ExpectTheSame(desk, undisturbed);
    // A call that is routed during it begins with a release.
    const char* paused = "529 song pause\n";
    const std::string expected = undisturbed.Journal();
    EXPECT_EQ(
        desk.Journal(),
        atMs > 200 ? expected : Replaced(expected, paused, paused + std::string("529 send 0\n")));
  }
}

/// The zones of music that is playing are sent 400 ms after a status of 0, even during a call. They
/// are the zones that the labels show at that moment: in the call's fade, it is the call's byte
/// that is sent early.
TEST(CallMeetsStatus, OfNoCallOnlyTheZonesOfMusicThatPlaysAreSentAgain) {
  for (const std::initializer_list<int> statuses : {std::initializer_list<int>{0}, {64, 0}}) {
    for (const auto& [during, atMs, musicIsPaused] : kMoments) {
      SCOPED_TRACE(during);
      CallDesk undisturbed;
      CallDesk desk;
      CallUnder(undisturbed, atMs, {});
      CallUnder(desk, atMs, statuses);
      ExpectTheSame(desk, undisturbed);
      std::string expected = undisturbed.Journal();
      if (atMs == 200) expected = Replaced(expected, "729 send 68", "600 send 68");
      if (atMs == 6000) expected += "6400 send 67\n";
      EXPECT_EQ(desk.Journal(), expected);
    }
  }
}

/// Deliberate: from then on the lamps are those of a station at rest.
TEST(CallMeetsStatus, OfNoCallTheLampsOfASpeakerGoOutAndHeSpeaksOn) {
  CallDesk desk;
  desk.PressAt(0);
  desk.AdvanceTo(3000);
  desk.Status(0);
  EXPECT_EQ(desk.Station(), "Speak, lamps off, speaks");
  desk.AdvanceTo(4000);
  EXPECT_EQ(desk.Station(), "Speak, lamps off, speaks");
}

/// Adds a wait, as a box does, on top of whatever is waiting at `atMs`; it lasts until the eighth
/// second.
void WaitOnTop(CallDesk& desk, int atMs) {
  desk.Pc.Loop.Schedule(atMs, [&desk, endMs = desk.Pc.Loop.NowMs() + 8000] {
    desk.Pc.Loop.PumpUntil([&] { return desk.Pc.Loop.NowMs() >= endMs; });
  });
}

TEST(CallMeetsWait, AboveItsPressTheWholeCallMayBeOverWhenThePressGoesOn) {
  for (const int boxMs : {100, 900}) {
    for (const bool takenOver : {false, true}) {
      SCOPED_TRACE(boxMs);
      CallDesk desk;
      WaitOnTop(desk, boxMs);
      desk.PressAt(0);
      desk.AdvanceTo(3000);
      if (takenOver) desk.Status(128);
      if (takenOver) desk.Status(0);
      desk.ReleaseAt(4000);
      desk.AdvanceTo(12'000);
      EXPECT_FALSE(desk.MicrophoneOpened) << takenOver;
      EXPECT_FALSE(desk.State().CallActive) << takenOver;
      EXPECT_EQ(desk.Pc.Loop.Waits(), 1) << takenOver;
    }
  }
}

TEST(CallMeetsWait, AboveItsFadeTheReleaseTurnsTheLampsOff) {
  CallDesk desk(DeskOptions{});
  WaitOnTop(desk, 100);
  desk.PressAt(0);
  desk.AdvanceTo(3000);
  ASSERT_TRUE(desk.Sys->TheFrmPlayers.tmrFlash.Enabled);
  desk.ReleaseAt(4000);
  for (int time = 5000; time < 6000; time += 50) {
    desk.AdvanceTo(time);
    ASSERT_EQ(desk.Station(), "Call, lamps off") << time;
  }
}

/// A release in a pre-chime that is held up by a wait on top does not count as the release of the
/// next call.
TEST(CallMeetsWait, AboveTheReleaseInAPreChimeTheNextCallSpeaks) {
  CallDesk desk;
  WaitOnTop(desk, 900);
  desk.PressAt(0);
  desk.ReleaseAt(1000);
  desk.AdvanceTo(4000);
  ASSERT_FALSE(desk.State().CallActive);
  ExpectWholeCall(desk);
}

/// If no microphone has been opened, no post-chime is heard; nor is one ever heard over music.
TEST(CallMeetsWait, AboveItsFadeTheReleaseSoundsNoPostChime) {
  CallDesk desk;
  WaitOnTop(desk, 100);
  desk.PressAt(0);
  desk.ReleaseAt(4000);
  desk.AdvanceTo(12'000);
  EXPECT_EQ(desk.Journal().find("gong"), std::string::npos) << desk.Journal();
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

/// The fade of the first call, turned by its release, is taken over, and the release is held up by
/// the wait on top.
TEST(CallMeetsWait, AboveTheFadeThatAReleaseTurnedTheNextCallFadesAsAnyOther) {
  CallDesk desk;
  WaitOnTop(desk, 250);
  desk.PressAt(0);
  desk.ReleaseAt(200);
  desk.AdvanceTo(300);
  desk.Status(128);
  desk.Status(0);
  desk.AdvanceTo(2000);
  desk.Pc.Journal.Clear();
  desk.PressAt(2000);
  desk.AdvanceTo(5000);
  EXPECT_EQ(desk.Station(), "Speak, lamps green, speaks");
  EXPECT_EQ(desk.TakeJournal(),
            "529 song pause\n529 wav play chime.wav\n729 send 68\n1529 wav end chime.wav\n");
  desk.ReleaseAt(6000);
  desk.AdvanceTo(12'000);
  EXPECT_EQ(desk.Station(), "Call, lamps off");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

}  // namespace
}  // namespace marlex
