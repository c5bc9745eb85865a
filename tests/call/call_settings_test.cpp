// The settings dialog is opened, confirmed and cancelled in the middle of a call.

#include <gtest/gtest.h>

#include "call/call_desk.h"

namespace marlex {
namespace {

constexpr int kReleaseMs = 5000;

struct Moment {
  const char* During;
  int AtMs;
};

/// Press at 0, fade to 529, chime to 1529, speech to 5000, second chime to 5800, fade up.
constexpr Moment kMoments[] = {{"the fade", 200},
                               {"the pre-chime", 900},
                               {"the speech", 3000},
                               {"the post-chime", 5400},
                               {"the fade back", 6000}};

/// Makes a call, runs `hand` at its moment, and waits until the desk is at rest.
void CallWith(CallDesk& desk, int atMs, const std::function<void()>& hand) {
  desk.PressAt(0);
  if (atMs > kReleaseMs) desk.ReleaseAt(kReleaseMs);
  desk.AdvanceTo(atMs);
  hand();
  if (atMs < kReleaseMs) desk.ReleaseAt(kReleaseMs);
  desk.AdvanceTo(12'000);
}

void ExpectRest(CallDesk& desk) {
  EXPECT_FALSE(desk.State().CallActive);
  EXPECT_FALSE(desk.State().FadeRunning);
  EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
  EXPECT_EQ(desk.Text("cmdCall2"), "Call");
  EXPECT_EQ(desk.Heard(), kMusic);
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(CallMeetsSettings, AnOkInItsMidstLeavesItsStepsAsTheyAre) {
  for (const auto& [during, atMs] : kMoments) {
    SCOPED_TRACE(during);
    CallDesk desk;
    CallWith(desk, atMs, [&] {
      desk.Click("mnuSettings");
      const std::string before = desk.Station();
      desk.Click("cmdOK");
      EXPECT_EQ(desk.Station(), before);
    });
    // The dialog sets the line to the music's level, and a running fade starts over from there.
    const bool fades = atMs < 529;
    const auto at = [&](int ms) { return std::to_string(ms + (fades ? 184 : 0)); };
    EXPECT_EQ(desk.Journal(), at(529) + " song pause\n" + at(529) + " wav play chime.wav\n" +
                                  at(729) + " send 68\n" + at(1529) +
                                  " wav end chime.wav\n"
                                  "5000 wav play gong.wav\n5800 wav end gong.wav\n5800 send 0\n"
                                  "5800 song resume march.mp3\n");
    EXPECT_TRUE(desk.MicrophoneOpened);
    ExpectRest(desk);
  }
}

TEST(CallMeetsSettings, AnOkInTheMidstOfOneWithoutMusicClosesNothingOfIt) {
  for (const auto& [during, atMs] : kMoments) {
    SCOPED_TRACE(during);
    CallDesk desk(CallDesk::Chimes(), CallDesk::MusicAtStart::IsSilent);
    CallWith(desk, atMs, [&] {
      desk.Click("mnuSettings");
      desk.Click("cmdOK");
    });
    EXPECT_EQ(desk.Journal(),
              "0 wav play chime.wav\n200 send 68\n1000 wav end chime.wav\n"
              "5000 wav play gong.wav\n5800 wav end gong.wav\n5800 send 0\n");
    EXPECT_TRUE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
    EXPECT_EQ(desk.Station(), "Call, lamps off");
    EXPECT_EQ(desk.Alive(), kAllAlive);
  }
}

/// The port closes immediately, leaving the amplifier with its present zones. No byte follows.
TEST(CallMeetsSettings, AChangeToTheOtherAmplifierInItsMidstLetsItEndWithoutAByte) {
  for (const auto& [during, atMs] : kMoments) {
    SCOPED_TRACE(during);
    CallDesk desk;
    CallWith(desk, atMs, [&] {
      desk.Click("mnuSettings");
      desk.Click("optTolvo_1");
      desk.Click("cmdOK");
      EXPECT_NE(desk.TakeJournal().find("serial close\n"), std::string::npos);
    });
    EXPECT_EQ(desk.Journal().find(" send "), std::string::npos);
    EXPECT_EQ(desk.Journal().find(" lost "), std::string::npos);
    EXPECT_FALSE(desk.Values().RouterPresent);
    EXPECT_TRUE(desk.Visible("frCall"));
    ExpectRest(desk);
    desk.Press("cmdCall2");
    desk.Advance(3000);
    EXPECT_TRUE(desk.Speaks());
    desk.Release("cmdCall2");
    desk.Advance(5000);
    ExpectRest(desk);
  }
}

/// While the amplifier held the outputs, only the amplifier could give them back.
TEST(CallMeetsSettings, ChangingTheAmplifierUnderATakeoverKeepsTheMicrophoneShut) {
  CallDesk desk;
  desk.PressAt(0);
  desk.AdvanceTo(3000);
  desk.Status(128);
  desk.Click("mnuSettings");
  desk.Click("optTolvo_1");
  desk.Click("cmdOK");
  EXPECT_FALSE(desk.State().PriorityPreempted);
  EXPECT_FALSE(desk.State().CallActive);
  EXPECT_FALSE(desk.Speaks());
  desk.ReleaseAt(5000);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  desk.Press("cmdCall2");
  desk.Advance(3000);
  EXPECT_TRUE(desk.Speaks());
  desk.Release("cmdCall2");
  desk.Advance(5000);
  ExpectRest(desk);
}

/// Showing the dialog's sliders has the same effect as moving them by hand: the fade continues from
/// the music's level, and so takes longer.
TEST(CallMeetsSettings, TheMereOpeningOverAFadeBeginsItAgain) {
  CallDesk desk;
  desk.PressAt(0);
  desk.AdvanceTo(200);
  EXPECT_EQ(desk.WaveSlider(), 36'000);
  desk.Click("mnuSettings");
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  desk.AdvanceTo(207);
  EXPECT_EQ(desk.WaveSlider(), 22'000);
  desk.Click("cmdCancel");
  desk.AdvanceTo(712);
  EXPECT_EQ(desk.WaveSlider(), 64'000);
  desk.AdvanceTo(713);
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 10000");
  desk.ReleaseAt(5000);
  desk.AdvanceTo(12'000);
  ExpectRest(desk);
}

/// A fade up that is at its target overshoots once more and falls back to it.
TEST(CallMeetsSettings, TheMereOpeningOverAFadeBackShortensIt) {
  CallDesk desk;
  desk.PressAt(0);
  desk.ReleaseAt(5000);
  desk.AdvanceTo(6000);
  EXPECT_GT(desk.WaveSlider(), 40'000);
  desk.Click("mnuSettings");
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  desk.Advance(23);
  EXPECT_EQ(desk.WaveSlider(), 18'000);
  desk.Advance(23);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  EXPECT_FALSE(desk.State().CallActive);
  ExpectRest(desk);
}

/// For the sliders a chime is not a message: when the dialog opens, the line gets the music's
/// level, and the message's own slider has no effect.
TEST(CallMeetsSettings, TheMereOpeningOverAChimePutsTheMusicsLevelOnIt) {
  CallDesk desk;
  desk.PressAt(0);
  desk.AdvanceTo(900);
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 10000");
  desk.Click("mnuSettings");
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 20000");
  FrmSettings& dialog = desk.Sys->TheWindows.frmSettings;
  desk.Do([&] { dialog.slMessageVolume.Value = 7000; });
  EXPECT_EQ(desk.Heard(), "wav chime.wav at 20000");
  EXPECT_EQ(desk.Values().MessageVolume, 7000);
  desk.ReleaseAt(5000);
  EXPECT_EQ(desk.Heard(), "wav gong.wav at 7000");
  desk.AdvanceTo(12'000);
  ExpectRest(desk);
}

}  // namespace
}  // namespace marlex
