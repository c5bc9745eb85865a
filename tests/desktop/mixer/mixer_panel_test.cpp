// The mixer panel as the program composes it: its strips control the engine's lines, and its meters
// show what the engine plays.

#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <optional>

#include "desktop/mixer/engine_mixer.h"
#include "desktop/process/qt_event_loop.h"
#include "desktop/sound/engine_wave_player.h"
#include "desktop/sound/media_files.h"
#include "desktop/sound/private_server.h"
#include "mixer/mixer_window.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

constexpr auto kLimit = 30s;  // for each step of a script, however busy the machine is
constexpr int kMaster = 0;
constexpr int kWave = 1;
constexpr int kFullSlider = 65535;

// The tone's loudest sample at full level is 29851 of 32767, between the last two marks.
constexpr double kToneAmplitude = 0.911;
constexpr double kTonePeak = 29851;

/// Position of the wave line's slider at which the tone reaches a given peak.
int PositionFor(double peak) {
  return static_cast<int>(kFullSlider - kFullSlider * peak / kTonePeak);
}

/// A box would mean that there is no mixer.
class NoDialogs : public Dialogs {
 protected:
  void ShowBox(const std::string& body, BoxIcon, const std::string&) override {
    ADD_FAILURE() << body;
  }
  void OpenBox(const std::string& body, BoxIcon, const std::string&,
               std::function<void()>) override {
    ADD_FAILURE() << body;
  }
  void OpenFileDialog(const FileDialog&, OnChosen) override { ADD_FAILURE(); }
};

/// The test's process goes on when the program ends; only the event that ended it is abandoned.
class EndedProcess : public Process {
 public:
  std::string ApplicationDirectory() const override { return "/"; }
  bool FindWindow(const std::string&) const override { return false; }
  bool ClaimWindow(const std::string&) override { return true; }
  SystemVersion GetVersion() const override { return {}; }
  [[noreturn]] void End() override {
    ++Ends;
    throw RuntimeFailure("The process has ended");
  }

  int Ends = 0;
};

class MixerPanelTest : public testing::Test {
 protected:
  void SetUp() override {
    Engine = std::make_unique<SoundEngine>(Loop);
    Functions = MakeEngineMixer(Loop, *Engine);
    Access = std::make_unique<MixerAccess>(*Functions, Panel, Boxes, Program, Strings);
    Window = std::make_unique<MixerWindow>(Panel, *Access, Loop, Program);
    Player = std::make_unique<EngineWavePlayer>(*Engine, Loop);
    Access->InitMixer();
    ASSERT_EQ(Access->SourceLineCount, kWave);
    ASSERT_EQ(Access->WaveLine, kWave);
  }

  /// One step of what happens while the meters run: an action, and the condition that must then
  /// come to hold.
  struct Step {
    std::string Name;
    std::function<void()> Do;
    std::function<bool()> Holds;
  };

  /// Shows the panel, takes the steps while its meters run, unloads it, and returns when the meters
  /// have ended.
  void ShowPanelDuring(std::deque<Step> steps) {
    constexpr int kLookMs = 10;
    EventLoop::TimerId script{};
    std::optional<SteadyClock::time_point> deadline;  // of the first step, once it has been taken
    script = Loop.StartTimer(kLookMs, [&] {
      if (steps.empty()) {
        Loop.StopTimer(script);
        return Panel.Unload();
      }
      if (!deadline) {
        steps.front().Do();
        deadline = SteadyClock::now() + kLimit;
      }
      const bool holds = steps.front().Holds();
      if (!holds && SteadyClock::now() < *deadline) return;
      EXPECT_TRUE(holds) << steps.front().Name << " never came; the wave line's bar is at "
                         << Panel.PicLed[kWave].BarTop;
      steps.pop_front();
      deadline.reset();
    });
    Window->ActivateMixerWindow({15360, 11520});
    EXPECT_TRUE(steps.empty());
  }

  void PlayTone() {
    Player->FileName = Files.Wav("tone.wav", 120, kToneAmplitude);
    Player->Command("Open");
    Player->Command("Play");
  }

  bool IsDark(int line) { return !Panel.PicLed[line].Lit; }
  bool IsLitFrom(int line, int top) {
    return Panel.PicLed[line].Lit && Panel.PicLed[line].BarTop == top;
  }

  /// A tone at this peak lights both bars up to the same mark: the speakers play the wave line as
  /// it is.
  Step ToneAt(int peak, int top) {
    return {"The peak " + std::to_string(peak),
            [this, peak] { Panel.SldrVol[kWave].Value = PositionFor(peak); },
            [this, top] { return IsLitFrom(kWave, top) && IsLitFrom(kMaster, top); }};
  }

  PrivateServer Server{kOneCard};
  QtEventLoop Loop;
  MediaFiles Files;
  NoDialogs Boxes;
  EndedProcess Program;
  StringTable Strings;
  FrmMxr Panel{Loop};
  std::unique_ptr<SoundEngine> Engine;
  std::unique_ptr<MixerFunctions> Functions;
  std::unique_ptr<MixerAccess> Access;
  std::unique_ptr<MixerWindow> Window;
  std::unique_ptr<EngineWavePlayer> Player;
};

TEST_F(MixerPanelTest, ItsMetersShowTheToneAtEachLevelAndSilenceAsDark) {
  const auto isDark = [this] { return IsDark(kWave) && IsDark(kMaster); };
  const auto isLit = [this] { return !IsDark(kWave) && !IsDark(kMaster); };
  ShowPanelDuring({
      {"Darkness before the tone", [] {}, isDark},
      {"The full tone", [this] { PlayTone(); },
       [this] { return IsLitFrom(kWave, 5) && IsLitFrom(kMaster, 5); }},
      ToneAt(27700, 12),
      ToneAt(24300, 19),
      ToneAt(21000, 26),
      ToneAt(17800, 33),
      ToneAt(14600, 40),
      ToneAt(11400, 47),
      ToneAt(8000, 54),
      ToneAt(3000, 61),
      ToneAt(17800, 33),
      {"Darkness under the mute", [this] { Panel.ChkMute[kWave].Value = FrmMxr::kMuted; }, isDark},
      {"The tone again", [this] { Panel.ChkMute[kWave].Value = FrmMxr::kOpen; }, isLit},
      {"Darkness at the slider's foot", [this] { Panel.SldrVol[kWave].Value = FrmMxr::kSilent; },
       isDark},
      ToneAt(24300, 19),
      {"Darkness after the tone", [this] { Player->Command("Close"); }, isDark},
  });
}

TEST_F(MixerPanelTest, ItIsReadyWithAStripForEachLineOfTheCard) {
  Functions->SetControlDetails(Access->MixerHandle, Access->Record(kWave).VolumeControlId,
                               {45535, 45535});
  Access->InitMixer();
  ShowPanelDuring({});
  EXPECT_EQ(Panel.Caption.Get(), "Volume Control - (" + Engine->CardName() + ")");
  for (int line = 0; line < FrmMxr::kLines; ++line) {
    EXPECT_EQ(Panel.Fra[line].Visible, line <= kWave) << line;
    EXPECT_EQ(Panel.PicLed[line].Visible, line <= kWave) << line;
  }
  EXPECT_EQ(Panel.SldrVol[kWave].Value, 20000);
  EXPECT_EQ(Engine->Wave().Level(), (StereoLevel{45535, 45535}));
}

TEST_F(MixerPanelTest, ItsUnloadingEndsTheMetersAndClosesTheMixerAndThenTheProcess) {
  const auto nothing = [] {};
  ShowPanelDuring({{"A turn of the meters", nothing, [] { return true; }}});
  EXPECT_TRUE(Window->QuitRequested);
  EXPECT_NE(
      Functions->SetControlDetails(Access->MixerHandle, Access->Record(kWave).VolumeControlId, {1}),
      kMixerNoError);
  EXPECT_EQ(Program.Ends, 0);
  const auto deadline = SteadyClock::now() + kLimit;
  const auto watchdog = Loop.StartTimer(20, nothing);
  Loop.PumpUntil([&] { return Program.Ends > 0 || SteadyClock::now() > deadline; });
  Loop.StopTimer(watchdog);
  EXPECT_EQ(Program.Ends, 1);
}

}  // namespace
}  // namespace marlex
