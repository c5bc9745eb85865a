#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

/// Something that the desk may be doing at the exit, and how it gets there.
struct Midst {
  const char* Name;
  std::function<void(Desk&)> Reach;
};

void RunUntil(Desk& desk, const std::function<bool()>& reached) {
  constexpr int kLimitMs = 120'000;
  ASSERT_TRUE(desk.Pc.Loop.RunUntil(reached, kLimitMs));
}

void ReachFadeDown(Desk& desk) {
  desk.Click("cmdPlay");
  RunUntil(desk, [&] { return desk.State().FadeRunning; });
  desk.Advance(200);
}

void ReachMessage(Desk& desk) {
  ReachFadeDown(desk);
  RunUntil(desk, [&] { return desk.State().MessagePlaying; });
  desk.Advance(1000);
}

void ReachFadeUp(Desk& desk) {
  ReachMessage(desk);
  RunUntil(desk, [&] { return !desk.State().MessagePlaying && desk.State().FadeRunning; });
  desk.Advance(200);
}

void OpenNotice(Desk& desk) {
  desk.Do([&] { desk.Sys->TheNotices.Leave("No paper", BoxIcon::Critical, "Error"); });
  ASSERT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
}

void OpenFileDialog(Desk& desk) {
  const int open = desk.Pc.Dialogs.OpenBoxCount();
  desk.Click("mnuSequence");
  ASSERT_EQ(desk.Pc.Dialogs.OpenBoxCount(), open + 1);
}

/// The call button that the main window has for the amplifier in use.
const char* CallButton(Desk& desk) { return desk.Values().RouterPresent ? "cmdCall" : "cmdCall2"; }

/// Presses the button over music and holds it for the given time: the fade ends after half a
/// second, the chime one second later.
void Call(Desk& desk, int heldMs) {
  desk.Click("cmdPlay");
  desk.Advance(1000);
  desk.Press(CallButton(desk));
  desk.Advance(heldMs);
  ASSERT_TRUE(desk.State().CallActive);
}

void ReachSpeech(Desk& desk) {
  Call(desk, 3000);
  ASSERT_EQ(desk.Text(CallButton(desk)), "Speak");
  ASSERT_FALSE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
}

void ReachPostChime(Desk& desk) {
  ReachSpeech(desk);
  desk.Release(CallButton(desk));
  desk.Advance(400);
  ASSERT_EQ(desk.Heard(), "wav gong.wav at 10000");
}

const std::vector<Midst> kMidsts = {
    {"nothing", [](Desk&) {}},
    {"music", [](Desk& desk) { desk.Click("cmdPlay"); }},
    {"the fade down", ReachFadeDown},
    {"a message", ReachMessage},
    {"the fade up", ReachFadeUp},
    {"a notice", OpenNotice},
    {"a file dialog", OpenFileDialog},
    {"a file dialog over a message",
     [](Desk& desk) {
       ReachMessage(desk);
       OpenFileDialog(desk);
     }},
    {"a notice in the fade down, over a file dialog",
     [](Desk& desk) {
       OpenFileDialog(desk);
       ReachFadeDown(desk);
       desk.Do([&] { desk.Sys->TheNotices.Leave("No paper", BoxIcon::Critical, "Error"); });
       ASSERT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 2);
     }},
    {"a message under a file dialog",
     [](Desk& desk) {
       OpenFileDialog(desk);
       ReachMessage(desk);
     }},
    {"the about window",
     [](Desk& desk) {
       desk.Click("mnuAboutbox");
       ReachMessage(desk);
     }},
    {"a takeover",
     [](Desk& desk) {
       ReachMessage(desk);
       desk.Status(192);
       ASSERT_TRUE(desk.State().PriorityPreempted);
     }},
    {"the fade of a call",
     [](Desk& desk) {
       Call(desk, 200);
       ASSERT_TRUE(desk.State().FadeRunning);
     }},
    {"the chime of a call",
     [](Desk& desk) {
       Call(desk, 1000);
       ASSERT_EQ(desk.Heard(), "wav chime.wav at 10000");
     }},
    {"the speech of a call", ReachSpeech},
    {"the second chime of a call", ReachPostChime},
    {"the fade back of a call",
     [](Desk& desk) {
       ReachPostChime(desk);
       desk.Advance(600);
       ASSERT_TRUE(desk.State().FadeRunning);
     }},
};

DeskOptions Shop(bool router) {
  return {.Music = {{"march"}},
          .Messages = {{"welcome", 3000}, {"chime", 1000}, {"gong", 800}},
          .Sequences = {{.Minutes = "01"}},
          .Router = router,
          .PreChime = "chime",
          .PostChime = "gong"};
}

const auto kNobodyAnswers = [](SimulatedPc& pc) {
  pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
};

void ExpectTheEnd(Desk& desk, const std::string& farewell) {
  EXPECT_EQ(desk.Journal(), farewell);
  EXPECT_TRUE(desk.Pc.Process.Ended());
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_FALSE(desk.Pc.Serial.PortOpen());
  EXPECT_FALSE(desk.Pc.Mixer.IsOpen());
  desk.Advance(3'600'000);
  EXPECT_EQ(desk.Journal(), farewell);
}

constexpr const char* kFarewell = "0 send 0\n0 serial close\n0 process ends\n";

TEST(Exit, TheMenuEndsTheProgramAtOnceWhateverGoesOn) {
  for (const Midst& midst : kMidsts) {
    SCOPED_TRACE(midst.Name);
    Desk desk(Shop(true), kNobodyAnswers);
    midst.Reach(desk);
    desk.Pc.Journal.Clear();
    desk.Click("mnuExit");
    ExpectTheEnd(desk, kFarewell);
  }
}

TEST(Exit, ClosingTheWindowEndsTheProgramAtOnceWhateverGoesOn) {
  for (const Midst& midst : kMidsts) {
    SCOPED_TRACE(midst.Name);
    Desk desk(Shop(true), kNobodyAnswers);
    midst.Reach(desk);
    desk.Pc.Journal.Clear();
    desk.CloseMainWindow();
    ExpectTheEnd(desk, kFarewell);
  }
}

TEST(Exit, WithoutTheRouterNoByteIsSent) {
  for (const Midst& midst : kMidsts) {
    if (midst.Name == std::string("a takeover")) continue;
    SCOPED_TRACE(midst.Name);
    Desk desk(Shop(false), kNobodyAnswers);
    midst.Reach(desk);
    desk.Pc.Journal.Clear();
    desk.Click("mnuExit");
    ExpectTheEnd(desk, "0 process ends\n");
  }
}

TEST(Exit, InTheMidstOfMessagesAtTheMusicBreakEndsTheProgramAtOnce) {
  Desk desk({.Music = {{"march", 60'000}}, .Sequences = {{.Minutes = "01", .Timer = "Between"}}});
  desk.Click("cmdPlay");
  RunUntil(desk, [&] { return desk.State().MessagePlaying; });
  desk.Advance(1000);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Pc.Journal.Clear();
  desk.Click("mnuExit");
  ExpectTheEnd(desk, kFarewell);
}

TEST(Exit, InTheFadeWithWhichTheClockStopsTheMusicEndsTheProgramAtOnce) {
  Desk desk({.Music = {{"march"}},
             .StartTime = "12:01",
             .StopTime = "12:02",
             .WeekDays = "1234567",
             .Now = {2024, 1, 1, 12, 0, 0}});
  RunUntil(desk, [&] { return desk.State().FadeRunning; });
  desk.Advance(200);
  desk.Pc.Journal.Clear();
  desk.CloseMainWindow();
  ExpectTheEnd(desk, kFarewell);
}

TEST(Exit, AsksForNothingWritesNothingAndLeavesTheMixerAsItIs) {
  Desk desk(Shop(true));
  ReachMessage(desk);
  desk.Pc.Journal.Only({"write", "mixer", "box", "open"});
  desk.Pc.Journal.Clear();
  desk.Click("mnuExit");
  EXPECT_EQ(desk.Journal(), "0 mixer close\n");
  EXPECT_FALSE(desk.Pc.Mixer.Muted(kComponentWaveOut));
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentWaveOut), 65535u - 10000u);
}

TEST(Exit, UnloadsTheMixerThenTheEnginesThenTheMainWindow) {
  Desk desk(Shop(true));
  std::string order;
  for (Form* form : {static_cast<Form*>(&desk.Main()), static_cast<Form*>(&desk.Sys->TheFrmPlayers),
                     static_cast<Form*>(&desk.Sys->TheFrmMxr)}) {
    form->OnUnload = [&order, form, unload = form->OnUnload] {
      order += form->Name + " ";
      return !unload || unload();
    };
  }
  desk.Click("mnuExit");
  EXPECT_EQ(order, "FrmMxr frmPlayers frmMain ");
}

TEST(Exit, TheProgramStartsAgainAfterIt) {
  Desk desk(Shop(true));
  ReachMessage(desk);
  desk.Click("mnuExit");
  EXPECT_EQ(desk.Pc.Process.ClaimedWindow, "");
  desk.Restart();
  EXPECT_TRUE(desk.Main().Visible);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(Exit, AmplifierThatIsGoneHoldsNothingUp) {
  Desk desk(Shop(true));
  ReachMessage(desk);
  desk.Pc.Serial.Unplug();
  desk.Pc.Journal.Clear();
  desk.Click("mnuExit");
  ExpectTheEnd(desk, "0 lost 0\n0 serial close\n0 process ends\n");
}

}  // namespace
}  // namespace marlex
