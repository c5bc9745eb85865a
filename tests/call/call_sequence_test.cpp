#include "call/call_sequence.h"

#include <gtest/gtest.h>

#include "call/call_desk.h"
#include "desk/deeds.h"

namespace marlex {
namespace {

constexpr auto kSilent = CallDesk::MusicAtStart::IsSilent;

TEST(CallSequence, OverMusicItIsFadeChimeVoiceChimeAndFade) {
  CallDesk desk;
  desk.PressAt(0);
  EXPECT_EQ(desk.Text("cmdCall"), "Wait");
  EXPECT_EQ(desk.LitZones(), "110000");
  desk.AdvanceTo(528);
  EXPECT_EQ(desk.Heard().substr(0, 14), "song march.mp3");
  desk.AdvanceTo(530);
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 10000");
  EXPECT_EQ(desk.LitZones(), "001000");
  EXPECT_EQ(desk.Text("cmdCall"), "Wait");
  desk.AdvanceTo(1529);
  EXPECT_EQ(desk.Station(), "Speak, lamps green, speaks");
  EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.WaveLine));
  desk.ReleaseAt(5000);
  EXPECT_FALSE(desk.Speaks());
  EXPECT_EQ(desk.Text("cmdCall"), "Wait");
  EXPECT_EQ(desk.Heard(), "wav gong.wav at 10000");
  desk.AdvanceTo(5801);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.LitZones(), "110000");
  EXPECT_EQ(desk.Alive(), "cmdPlay cmdSkip cmdStop");
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "529 song pause\n"
            "529 wav play chime.wav\n"
            "729 send 68\n"
            "1529 wav end chime.wav\n"
            "5000 wav play gong.wav\n"
            "5800 wav end gong.wav\n"
            "5800 send 0\n"
            "5800 song resume march.mp3\n");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(CallSequence, WithoutMusicItOpensAtOnceAndFreesTheZonesAtItsEnd) {
  CallDesk desk({}, kSilent);
  desk.PressAt(0);
  EXPECT_EQ(desk.Station(), "Speak, lamps green");
  EXPECT_FALSE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
  desk.ReleaseAt(3000);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  desk.AdvanceTo(4000);
  EXPECT_EQ(desk.Journal(), "200 send 68\n3000 send 0\n");
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_FALSE(desk.MuteCheck(desk.Sys->Mixer.WaveLine));
}

TEST(CallSequence, TheMasterStaysAsItIsUntilMusicAMessageOrAChimeOpensIt) {
  CallDesk fresh({}, kSilent);
  fresh.PressAt(0);
  EXPECT_TRUE(fresh.MuteCheck(0));  // as left by the start
  CallDesk afterMusic(DeskOptions{});
  afterMusic.Click("cmdStop");
  afterMusic.PressAt(0);
  EXPECT_TRUE(afterMusic.Speaks());
  CallDesk withChime(CallDesk::Chimes(), kSilent);
  withChime.PressAt(0);
  withChime.AdvanceTo(1000);
  EXPECT_TRUE(withChime.Speaks());
}

TEST(CallSequence, TheLampsFlashTogetherWhileTheCallIsPrepared) {
  CallDesk desk;
  desk.PressAt(0);
  std::string lamps;
  for (int time = 60; time < 1529; time += 125) {
    desk.AdvanceTo(time);
    EXPECT_EQ(desk.Main().lblBusy[0].BackColor.Get(), desk.Main().lblBusy[1].BackColor.Get());
    lamps += desk.Main().lblBusy[0].BackColor == kGreen ? 'g' : '-';
  }
  EXPECT_EQ(lamps, "-g-g-g-g-g-g");
}

TEST(CallSequence, AQuickClickPlaysThePreChimeAndOpensNoMicrophone) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  desk.PressAt(0);
  desk.ReleaseAt(100);
  EXPECT_EQ(desk.Text("cmdCall"), "Wait");
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "0 wav play chime.wav\n200 send 68\n1000 wav end chime.wav\n1000 send 0\n");
  EXPECT_FALSE(desk.MicrophoneOpened);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(CallSequence, AQuickClickWithMusicTurnsTheFadeAndSendsNothing) {
  CallDesk desk;
  desk.PressAt(0);
  desk.ReleaseAt(200);
  EXPECT_EQ(desk.Text("cmdCall"), "Wait");
  desk.AdvanceTo(2000);
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_FALSE(desk.MicrophoneOpened);
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_FALSE(desk.State().CallActive);
  EXPECT_FALSE(desk.State().CallEndedDuringFade);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(CallSequence, AButtonThatIsHeldPastTheChimeWaitsAndThenSpeaks) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  desk.PressAt(0);
  desk.AdvanceTo(999);
  EXPECT_EQ(desk.Text("cmdCall") + desk.Text("cmdCall2"), "WaitWait");
  EXPECT_FALSE(desk.Speaks());
  desk.AdvanceTo(1000);
  EXPECT_EQ(desk.Text("cmdCall") + desk.Text("cmdCall2"), "SpeakSpeak");
  for (int time = 1000; time < 4000; time += 60) {
    desk.AdvanceTo(time);
    ASSERT_EQ(desk.Station(), "Speak, lamps green, speaks");
  }
}

TEST(CallSequence, TheFirstOneWithoutAPreChimeLosesItsPostChime) {
  CallDesk desk({.PostChime = "gong"}, kSilent);
  for (const int time : {0, 2000, 4000}) {
    desk.PressAt(time);
    desk.ReleaseAt(time + 1000);
  }
  desk.AdvanceTo(6000);
  EXPECT_EQ(desk.Journal(),
            "200 send 68\n1000 send 0\n2200 send 68\n3000 send 0\n4200 send 68\n5000 send 0\n");
  EXPECT_TRUE(desk.State().CallEndedDuringChime);
}

TEST(CallSequence, AKeptReleaseIsTakenForThatOfTheNextPreChime) {
  CallDesk desk({.PostChime = "gong"}, kSilent);
  desk.PressAt(0);
  desk.ReleaseAt(1000);
  PickPreChime(desk, "chime");
  desk.MicrophoneOpened = false;
  desk.PressAt(2000);
  EXPECT_FALSE(desk.State().CallActive);
  EXPECT_FALSE(desk.State().CallEndedDuringChime);
  EXPECT_EQ(desk.Alive(), "cmdPlay cmdSkip cmdStop");  // the tick is off until the next call
  desk.ReleaseAt(4000);
  EXPECT_FALSE(desk.MicrophoneOpened);
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  desk.Advance(2000);
  EXPECT_TRUE(desk.Speaks());
  desk.Release("cmdCall");
  desk.Advance(2000);
  EXPECT_EQ(desk.Journal(),
            "0 wav play chime.wav\n200 send 68\n1000 wav end chime.wav\n"
            "2000 wav play gong.wav\n2800 wav end gong.wav\n2800 send 0\n");
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

TEST(CallSequence, AfterAnyMessageThePostChimeIsHeardAlsoWithoutAPreChime) {
  CallDesk desk({.Sequences = {{}}, .PostChime = "gong"}, kSilent);
  desk.RunTo(12, 1, 30);
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Release("cmdCall");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(),
            "200 send 68\n1000 wav play gong.wav\n1800 wav end gong.wav\n1800 send 0\n");
}

TEST(CallSequence, WithoutAMicrophoneItIsTheSameAndTouchesNoMicrophone) {
  DeskOptions options = CallDesk::Chimes();
  options.Microphone = false;
  CallDesk desk(options, kSilent);
  desk.Pc.Journal.Unmute("mixer");
  const auto strike = [&](bool press) {
    desk.Do([&desk, press] { press ? desk.Sys->Call.StartCall() : desk.Sys->Call.EndCall(); });
  };
  strike(true);
  desk.AdvanceTo(500);
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 10000");
  desk.AdvanceTo(2000);
  strike(false);
  desk.AdvanceTo(2100);
  EXPECT_EQ(desk.Heard(), "wav gong.wav at 10000");
  desk.AdvanceTo(4000);
  EXPECT_EQ(desk.Journal().find("microphone"), std::string::npos);
  desk.Pc.Journal.Mute("mixer");
  EXPECT_NE(desk.Journal().find("2000 wav play gong.wav\n"), std::string::npos);
  EXPECT_FALSE(desk.MuteCheck(0));
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

/// Without a microphone, the number of its line is that of the master.
TEST(CallSequence, WithoutAMicrophoneOnlyAChimeTouchesTheMaster) {
  for (const bool chimes : {false, true}) {
    CallDesk desk({.Microphone = false, .PreChime = chimes ? "chime" : ""}, kSilent);
    ASSERT_TRUE(desk.MuteCheck(0));  // as left by the start
    desk.Do([&] { desk.Sys->Call.StartCall(); });
    desk.AdvanceTo(2000);
    EXPECT_EQ(desk.Text("cmdCall"), "Speak");
    EXPECT_EQ(desk.MuteCheck(0), !chimes);
    desk.Do([&] { desk.Sys->Call.EndCall(); });
    desk.AdvanceTo(4000);
    EXPECT_EQ(desk.MuteCheck(0), !chimes);
  }
}

TEST(CallSequence, WithTheOtherAmplifierNoByteIsSentAndTheSecondButtonCalls) {
  DeskOptions options = CallDesk::Chimes();
  options.Router = false;
  CallDesk desk(options);
  desk.Press("cmdCall2");
  desk.AdvanceTo(3000);
  EXPECT_TRUE(desk.Speaks());
  desk.Release("cmdCall2");
  desk.AdvanceTo(6000);
  EXPECT_EQ(desk.Journal(),
            "529 song pause\n529 wav play chime.wav\n1529 wav end chime.wav\n"
            "3000 wav play gong.wav\n3800 wav end gong.wav\n3800 song resume march.mp3\n");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(CallSequence, AZoneThatIsChosenForItInItsMidstCountsFromTheNextOneOn) {
  for (const int clickMs : {600, 1200, 3000}) {  // before the byte, in the chime, in the speech
    SCOPED_TRACE(clickMs);
    CallDesk desk;
    desk.Pc.Journal.Only({"send"});
    desk.PressAt(0);
    desk.AdvanceTo(clickMs);
    desk.Click("cmdCallZone_3");
    EXPECT_EQ(desk.Setting("Routing", "Call routing"), "001100");
    desk.AdvanceTo(5000);
    EXPECT_EQ(desk.LitZones(), "001000");
    desk.ReleaseAt(5000);
    desk.PressAt(10'000);
    desk.AdvanceTo(14'000);
    EXPECT_EQ(desk.LitZones(), "001100");
    desk.ReleaseAt(15'000);
    desk.AdvanceTo(20'000);
    EXPECT_EQ(desk.Journal(), "729 send 68\n5800 send 0\n10729 send 76\n15800 send 0\n");
  }
}

TEST(CallSequence, OnlyTheLeftButtonCalls) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  const auto press = [&](MouseButton button) {
    desk.Do([&desk, button] { desk.Main().cmdCall.OnMouseDown(button); });
  };
  press(MouseButton::Right);
  press(MouseButton::Middle);
  EXPECT_FALSE(desk.State().CallActive);
  press(MouseButton::Left);
  desk.AdvanceTo(2000);
  for (const MouseButton button : {MouseButton::Right, MouseButton::Middle})
    desk.Do([&desk, button] { desk.Main().cmdCall.OnMouseUp(button); });
  EXPECT_TRUE(desk.Speaks());
}

TEST(CallSequence, ACallOfTheAmplifierRefusesItWithoutAWord) {
  CallDesk desk(CallDesk::Chimes(), kSilent);
  desk.Status(64);
  ASSERT_FALSE(desk.State().PriorityClear);
  desk.PressAt(0);
  desk.ReleaseAt(1000);
  desk.AdvanceTo(2000);
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_EQ(desk.Station(), kRest);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(CallSequence, AnAmplifierThatIsNotIdleIsReleasedFirst) {
  DeskOptions options;
  options.Priority = "High";
  CallDesk desk(options, kSilent);
  desk.Status(64);
  desk.PressAt(0);
  desk.AdvanceTo(1000);
  EXPECT_EQ(desk.Journal(), "0 send 0\n200 send 132\n");
}

TEST(CallSequence, ASecondPressChangesNothing) {
  for (const int again : {100, 900, 2000, 5100, 5900}) {
    CallDesk once;
    CallDesk twice;
    for (CallDesk* desk : {&once, &twice}) {
      desk->PressAt(0);
      if (again < 5000 && desk == &twice) desk->PressAt(again);
      desk->ReleaseAt(5000);
      if (again > 5000 && desk == &twice) desk->PressAt(again);
      desk->AdvanceTo(10'000);
    }
    EXPECT_EQ(twice.Journal(), once.Journal()) << again;
    EXPECT_EQ(twice.Heard(), once.Heard()) << again;
    EXPECT_EQ(twice.Alive(), once.Alive()) << again;
  }
}

TEST(CallSequence, AReleaseWithoutACallDoesNothing) {
  CallDesk desk;
  desk.ReleaseAt(0);
  desk.AdvanceTo(1000);
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_EQ(desk.Station(), kRest);
}

TEST(CallSequence, AReleaseInTheSameInstantEndsItBeforeTheMicrophoneOpens) {
  for (const char* chime : {"", "chime"}) {
    for (const auto music : {CallDesk::MusicAtStart::Plays, kSilent}) {
      CallDesk desk({.PreChime = chime}, music);
      desk.Do([&] {
        desk.Pc.Loop.Post([&desk] { desk.Main().cmdCall.OnMouseUp(MouseButton::Left); });
        desk.Main().cmdCall.OnMouseDown(MouseButton::Left);
      });
      desk.AdvanceTo(5000);
      EXPECT_FALSE(desk.MicrophoneOpened);
      EXPECT_FALSE(desk.State().CallActive);
      EXPECT_EQ(desk.Station(), kRest);
      EXPECT_EQ(desk.Alive(), kAllAlive);
      EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
      if (music == CallDesk::MusicAtStart::Plays) {
        EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
      }
    }
  }
}

/// Press, release and press, delivered at the same instant: the first press is unaffected by the
/// second.
TEST(CallSequence, APressBelongsToItsOwnCall) {
  for (const char* chime : {"", "chime"}) {
    CallDesk desk({.PreChime = chime}, kSilent);
    desk.Do([&desk] {
      desk.Pc.Loop.Post([&desk] { desk.Main().cmdCall.OnMouseUp(MouseButton::Left); });
      desk.Pc.Loop.Post([&desk] { desk.Main().cmdCall.OnMouseDown(MouseButton::Left); });
      desk.Main().cmdCall.OnMouseDown(MouseButton::Left);
    });
    for (int time = 1010; time < 4000; time += 60) {
      desk.AdvanceTo(time);
      ASSERT_EQ(desk.ButtonCaption(), "Speak") << time;
      ASSERT_FALSE(desk.MuteCheck(desk.Sys->Mixer.MicLine)) << time;
    }
    desk.ReleaseAt(4000);
    desk.AdvanceTo(6000);
    const std::string played = *chime ? "0 wav play chime.wav\n" : "";
    const std::string ended = *chime ? "1000 wav end chime.wav\n" : "";
    EXPECT_EQ(desk.Journal(), "0 send 0\n" + played + "200 send 68\n" + ended + "4000 send 0\n");
    EXPECT_EQ(desk.Station(), kRest);
    EXPECT_EQ(desk.Alive(), kAllAlive);
    EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  }
}

TEST(CallSequence, AReleaseInTheSameInstantSoundsNoPostChime) {
  CallDesk desk({.Sequences = {{}}, .PostChime = "gong"});
  desk.RunTo(12, 1, 30);  // a message has ended
  desk.Pc.Journal.Clear();
  desk.Do([&desk] {
    desk.Pc.Loop.Post([&desk] { desk.Main().cmdCall.OnMouseUp(MouseButton::Left); });
    desk.Main().cmdCall.OnMouseDown(MouseButton::Left);
  });
  for (int step = 0; step < 20; ++step) {
    ASSERT_EQ(desk.Heard(), "song march.mp3 at 20000") << step;
    desk.Advance(50);
  }
  EXPECT_EQ(desk.Journal(), "200 send 67\n");
  EXPECT_EQ(desk.Alive(), kAllAlive);
}

struct Leaving {
  std::vector<int> ReleasesMs;
  int ExitMs;
};

/// Fade to 529, chime to 1529, speech, second chime for 800 ms after the release, fade back.
const std::vector<Leaving> kLeavings = {
    {{}, 100},            // in the fade
    {{200}, 300},         // in the fade that the release has turned
    {{}, 900},            // in the chime
    {{900}, 1200},        // in the wait of the release for the chime's end
    {{900}, 1700},        // in the fade back after it
    {{}, 2000},           // in the speech
    {{5000}, 5100},       // in the second chime
    {{5000}, 5900},       // in the fade back
    {{5000, 6000}, 6100}  // in the fade back that a second release took for the fade of a press
};

TEST(CallSequence, TheProgramCanBeLeftInTheMidstOfIt) {
  for (const bool router : {true, false}) {
    for (const auto& [releasesMs, exitMs] : kLeavings) {
      SCOPED_TRACE(exitMs);
      DeskOptions options = CallDesk::Chimes();
      options.Router = router;
      CallDesk desk(options);
      const std::string button = router ? "cmdCall" : "cmdCall2";
      desk.Press(button);
      for (const int releaseMs : releasesMs) {
        desk.AdvanceTo(releaseMs);
        desk.Release(button);
      }
      desk.AdvanceTo(exitMs);
      EXPECT_TRUE(desk.State().CallActive);
      desk.Pc.Journal.Clear();
      desk.Click("mnuExit");
      EXPECT_TRUE(desk.Pc.Process.Ended());
      EXPECT_EQ(desk.Heard(), "silence");
      EXPECT_EQ(desk.Journal(),
                router ? "0 send 0\n0 serial close\n0 process ends\n" : "0 process ends\n");
      desk.Pc.Loop.AfterEvent = nullptr;
    }
  }
}

}  // namespace
}  // namespace marlex
