#include "mixer/mixer_window.h"

#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

constexpr MixerWindow::Screen kScreen{15360, 11520};

std::string CallsOf(Desk& desk, const std::function<void()>& action) {
  desk.Pc.Journal.Only({"mixer"});
  desk.Pc.Journal.Clear();
  desk.Do(action);
  return desk.TakeJournal();
}

/// A mixer whose lines have no meters, so that showing the panel returns.
void WithoutMeters(SimulatedPc& pc) {
  SimulatedDestination& speakers = pc.Mixer.Devices.front().Destinations.front();
  speakers.Line.HasMeter = false;
  for (SimulatedLine& line : speakers.Sources) line.HasMeter = false;
}

TEST(MixerWindow, ItsStripsAreReadyAndHidden) {
  Desk desk;
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  EXPECT_TRUE(panel.Loaded());
  EXPECT_FALSE(panel.Visible);
  for (int line = 0; line <= 10; ++line) {
    EXPECT_FALSE(panel.Fra[line].Visible);
    EXPECT_EQ(panel.LblVol[line].Caption.Get(), "Volume:");
    EXPECT_EQ(panel.LblPan[line].Caption.Get(), "Balance:");
    EXPECT_EQ(panel.ChkMute[line].Caption.Get(), "Mute");
    EXPECT_EQ(panel.SldrVol[line].Min, 0);
    EXPECT_EQ(panel.SldrVol[line].Max, 65535);
    EXPECT_EQ(panel.SldrPan[line].Min, -100);
    EXPECT_EQ(panel.SldrPan[line].Max, 100);
  }
  EXPECT_EQ(panel.TmrQuit.Interval, 100);
  EXPECT_FALSE(panel.TmrQuit.Enabled);
}

TEST(MixerWindow, TheLowestPositionOfASliderIsSilence) {
  Desk desk;
  desk.Do([&] { desk.Sys->TheFrmMxr.SldrVol[desk.Sys->Mixer.WaveLine].Value = 65535; });
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentWaveOut), 0u);
  desk.Do([&] { desk.Sys->TheFrmMxr.SldrVol[desk.Sys->Mixer.WaveLine].Value = 0; });
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentWaveOut), 65535u);
}

TEST(MixerWindow, AnEqualValueMakesNoCall) {
  Desk desk;
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  panel.SldrVol[1].Value = 500;
  panel.SldrPan[1].Value = 20;
  panel.ChkMute[1].Value = 1;
  EXPECT_EQ(CallsOf(desk,
                    [&] {
                      panel.SldrVol[1].Value = 500;
                      panel.SldrPan[1].Value = 20;
                      panel.ChkMute[1].Value = 1;
                    }),
            "");
}

TEST(MixerWindow, EachControlOfALineReachesThatLine) {
  Desk desk;
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  panel.ChkMute[2].Value = 1;
  EXPECT_EQ(CallsOf(desk,
                    [&] {
                      panel.SldrVol[0].Value = 35535;
                      panel.SldrVol[1].Value = 25535;
                      panel.SldrVol[2].Value = 15535;
                      panel.SldrPan[0].Value = -50;
                      panel.ChkMute[2].Value = 0;
                    }),
            "0 mixer volume speakers 30000 30000\n"
            "0 mixer volume wave 40000 40000\n"
            "0 mixer volume microphone 50000\n"
            "0 mixer volume speakers 30000 15000\n"
            "0 mixer mute microphone 0\n");
}

TEST(MixerWindow, ASliderWithoutAControlStillTakesValuesAndHurtsNothing) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Mixer.Line(kComponentSpeakers)->HasVolume = false;
    pc.Mixer.Line(kComponentSpeakers)->HasMute = false;
  });
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  EXPECT_EQ(CallsOf(desk,
                    [&] {
                      panel.SldrVol[0].Value = 35535;
                      panel.ChkMute[0].Value = 1 - panel.ChkMute[0].Value;
                    }),
            "");
  EXPECT_EQ(panel.SldrVol[0].Value, 35535);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(MixerWindow, TheFirstUnloadingClosesTheMixerAndTheSecondEndsTheProcess) {
  Desk desk;
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  EXPECT_EQ(CallsOf(desk, [&] { panel.Unload(); }), "0 mixer close\n");
  EXPECT_TRUE(desk.Sys->TheMixerWindow.QuitRequested);
  EXPECT_TRUE(panel.TmrQuit.Enabled);
  desk.Advance(99);
  EXPECT_FALSE(desk.Pc.Process.Ended());
  desk.Advance(1);
  EXPECT_TRUE(desk.Pc.Process.Ended());
}

TEST(MixerWindow, ShownItLaysOutAStripForEachLine) {
  Desk desk({}, [](SimulatedPc& pc) {
    WithoutMeters(pc);
    pc.Mixer.Devices.front().ProductName = "Card 3";
    SimulatedLine& disc = pc.Mixer.AddSource(4101, "Disc player");
    disc.HasMeter = false;
    disc.Volume = {1000, 1000};
    disc.Mute = 1;
  });
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  desk.Do([&] { desk.Sys->TheMixerWindow.ActivateMixerWindow(kScreen); });
  EXPECT_EQ(panel.Caption.Get(), "Volume Control - (Card 3)");
  EXPECT_EQ(panel.Height, 4170);
  EXPECT_EQ(panel.Width, (4 * 92 + 15) * 15);
  EXPECT_EQ(panel.Left, (15360 - 5745) / 2);
  EXPECT_EQ(panel.Top, (11520 - 4170) / 3);
  for (int line = 0; line <= 10; ++line) EXPECT_EQ(panel.Fra[line].Visible, line <= 3) << line;
  EXPECT_TRUE(panel.SldrPan[1].Enabled);
  EXPECT_FALSE(panel.SldrPan[2].Enabled);  // the microphone is a mono line
  EXPECT_EQ(panel.SldrVol[3].Value, 64535);
  EXPECT_EQ(panel.ChkMute[3].Value, 1);
  EXPECT_EQ(panel.SldrVol[3].Left, 390);
  EXPECT_FALSE(panel.PicLed[3].Visible);
}

TEST(MixerWindow, AMeterLightsItsBarUpToThePeak) {
  Desk desk;
  SimulatedLine& wave = *desk.Pc.Mixer.Line(kComponentWaveOut);
  Picture& meter = desk.Sys->TheFrmMxr.PicLed[1];
  wave.Peak = {1, 0};
  desk.Do([&] { desk.Sys->TheMixerWindow.ActivateMixerWindow(kScreen); });
  EXPECT_TRUE(meter.Visible);
  std::string tops;
  for (const std::uint32_t peak :
       {1u, 6445u, 6446u, 9768u, 9769u, 13029u, 13030u, 16143u, 16144u, 19494u, 19495u, 22677u,
        22678u, 25978u, 25979u, 29435u, 29436u, 30260u}) {
    wave.Peak = {peak, 0};
    desk.Advance(60);
    tops += std::to_string(meter.BarTop.Get()) + " ";
    EXPECT_TRUE(meter.Lit);
  }
  EXPECT_EQ(tops, "61 61 54 54 47 47 40 40 33 33 26 26 19 19 12 12 5 5 ");
}

TEST(MixerWindow, AMeterBeyondItsLastMarkKeepsItsBarAndOneAtNoughtGoesDark) {
  Desk desk;
  SimulatedLine& wave = *desk.Pc.Mixer.Line(kComponentWaveOut);
  Picture& meter = desk.Sys->TheFrmMxr.PicLed[1];
  wave.Peak = {20000, 0};
  desk.Do([&] { desk.Sys->TheMixerWindow.ActivateMixerWindow(kScreen); });
  EXPECT_EQ(meter.BarTop, 26);
  wave.Peak = {30261, 0};
  desk.Advance(60);
  EXPECT_EQ(meter.BarTop, 26);
  EXPECT_TRUE(meter.Lit);
  wave.Peak = {0, 0};
  desk.Advance(60);
  EXPECT_FALSE(meter.Lit);
}

TEST(MixerWindow, AMeterTakesTheSizeOfItsPeakWithoutTheSign) {
  Desk desk;
  desk.Pc.Mixer.Line(kComponentWaveOut)->Peak = {static_cast<std::uint32_t>(-15000), 0};
  desk.Do([&] { desk.Sys->TheMixerWindow.ActivateMixerWindow(kScreen); });
  EXPECT_EQ(desk.Sys->TheFrmMxr.PicLed[1].BarTop, 40);
}

TEST(MixerWindow, TheMetersRunUntilThePanelIsUnloadedAndLetTheDeskWork) {
  Desk desk({.Music = {{"march"}}});
  bool ended = false;
  desk.Do([&] {
    desk.Sys->TheMixerWindow.ActivateMixerWindow(kScreen);
    ended = true;
  });
  desk.Click("cmdPlay");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_FALSE(ended);
  desk.Do([&] { desk.Sys->TheFrmMxr.Unload(); });
  EXPECT_TRUE(ended);
}

}  // namespace
}  // namespace marlex
