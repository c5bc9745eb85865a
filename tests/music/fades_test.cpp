#include "music/fades.h"

#include <gtest/gtest.h>

#include "music/music_desk.h"

namespace marlex {
namespace {

constexpr int kSilent = FrmMxr::kSilent;

/// A desk that plays, and the positions that its slider has passed through.
class FadeDesk : public MusicDesk {
 public:
  struct Step {
    std::int64_t AtMs;  // since the beginning of the watch
    int Position;
  };

  explicit FadeDesk(DeskOptions options = {}) : MusicDesk(std::move(options)) {
    Click("cmdPlay");
    Watch();
  }
  ~FadeDesk() { Wave().Watcher = nullptr; }

  /// Forgets the steps and counts their time from now.
  void Watch() {
    Steps.clear();
    StartMs = Pc.Loop.NowMs();
    Wave().Watcher = [this] { Steps.push_back({Pc.Loop.NowMs() - StartMs, Wave().Value}); };
  }

  void FadeDown() {
    Do([this] {
      Sys->TheFades.FadeDown();
      ReturnedMs = Pc.Loop.NowMs() - StartMs;
    });
  }

  /// The fade up after a message: from silence.
  void FadeUp() {
    Do([this] {
      Wave().Value = kSilent;
      Watch();
      Sys->TheFades.FadeUp();
      ReturnedMs = Pc.Loop.NowMs() - StartMs;
    });
  }

  void SetMusicVolume(int position) {
    Do([this, position] {
      Values().MusicVolume = position;
      Wave().Value = position;
    });
    Watch();
  }

  int Lowest() const {
    int lowest = kSilent;
    for (const Step& step : Steps) lowest = std::min(lowest, step.Position);
    return lowest;
  }

  std::string Timer() {
    return std::to_string(Players().tmrFadeTime.Interval) +
           (Players().tmrFadeTime.Enabled ? " on" : " off");
  }

  std::vector<Step> Steps;
  std::int64_t StartMs = 0;
  std::int64_t ReturnedMs = -1;
};

struct Figures {
  std::string FadeTime;
  int MusicVolume;
  int FadeStep;
  int FadeSteps;
  int IntervalMs;
  int EventsDown;
  int EventsUp;
  int LowestUp;
};

const std::vector<Figures> kFigures = {{"Slow", 20'000, 1000, 45, 33, 46, 48, 18'535},
                                       {"Fast", 20'000, 2000, 22, 23, 23, 25, 17'535},
                                       {"Slow", 0, 1000, 65, 23, 66, 67, 0},
                                       {"Fast", 0, 2000, 32, 16, 33, 34, 0}};

TEST(Fades, AFadeDownTakesItsStepsInItsTime) {
  for (const Figures& figures : kFigures) {
    SCOPED_TRACE(figures.FadeTime + " from " + std::to_string(figures.MusicVolume));
    FadeDesk desk({.FadeTime = figures.FadeTime, .MusicVolume = figures.MusicVolume});
    EXPECT_EQ(desk.Timer(), "10 off");
    desk.FadeDown();
    EXPECT_EQ(desk.Sys->TheFades.FadeStep, figures.FadeStep);
    EXPECT_EQ(desk.Sys->TheFades.FadeSteps, figures.FadeSteps);
    EXPECT_EQ(desk.Sys->TheFades.FadeTarget, figures.MusicVolume);
    EXPECT_EQ(desk.Timer(), std::to_string(figures.IntervalMs) + " on");
    EXPECT_TRUE(desk.State().FadeRunning);
    EXPECT_FALSE(desk.Sys->TheFades.FadeIn);
    desk.Advance(3000);
    ASSERT_EQ(desk.Steps.size(), static_cast<std::size_t>(figures.EventsDown));
    for (int event = 1; event <= figures.EventsDown; ++event) {
      const FadeDesk::Step& step = desk.Steps[static_cast<std::size_t>(event - 1)];
      EXPECT_EQ(step.AtMs, event * figures.IntervalMs);
      EXPECT_EQ(step.Position, event == figures.EventsDown
                                   ? kSilent
                                   : figures.MusicVolume + event * figures.FadeStep);
    }
    EXPECT_EQ(desk.ReturnedMs, figures.EventsDown * figures.IntervalMs);
    EXPECT_FALSE(desk.State().FadeRunning);
    EXPECT_EQ(desk.Timer(), std::to_string(figures.IntervalMs) + " off");
  }
}

TEST(Fades, AFadeUpRunsPastItsTargetAndFallsBackToItWithTheLastEvent) {
  for (const Figures& figures : kFigures) {
    SCOPED_TRACE(figures.FadeTime + " to " + std::to_string(figures.MusicVolume));
    FadeDesk desk({.FadeTime = figures.FadeTime, .MusicVolume = figures.MusicVolume});
    desk.FadeDown();
    desk.Advance(3000);
    desk.FadeUp();
    EXPECT_TRUE(desk.Sys->TheFades.FadeIn);
    EXPECT_TRUE(desk.State().FadeRunning);
    desk.Advance(3000);
    EXPECT_EQ(desk.ReturnedMs, figures.EventsUp * figures.IntervalMs);
    EXPECT_EQ(desk.Lowest(), figures.LowestUp);
    EXPECT_EQ(desk.WaveSlider(), figures.MusicVolume);
    EXPECT_FALSE(desk.State().FadeRunning);
    EXPECT_EQ(desk.Timer(), std::to_string(figures.IntervalMs) + " off");
  }
}

TEST(Fades, TheEventsOfAFadeUpAreOneStepEachUpToTheDip) {
  FadeDesk desk({.FadeTime = "Fast"});
  desk.FadeDown();
  desk.Advance(3000);
  desk.FadeUp();
  desk.Advance(3000);
  ASSERT_EQ(desk.Steps.size(), 25u);
  for (int event = 1; event <= 24; ++event) {
    const FadeDesk::Step& step = desk.Steps[static_cast<std::size_t>(event - 1)];
    EXPECT_EQ(step.AtMs, event * 23);
    EXPECT_EQ(step.Position, kSilent - event * 2000);
  }
  EXPECT_EQ(desk.Steps.back().AtMs, 25 * 23);
  EXPECT_EQ(desk.Steps.back().Position, 20'000);
}

TEST(Fades, TheDipIsAlmostOneToTwoStepsDeep) {
  int shallowest = kSilent;
  int deepest = 0;
  FadeDesk desk({.FadeTime = "Fast"});
  for (int target = 20'000; target < 22'000; ++target) {
    desk.SetMusicVolume(target);
    desk.FadeDown();
    desk.Advance(1000);
    desk.FadeUp();
    desk.Advance(1000);
    ASSERT_EQ(desk.WaveSlider(), target);
    shallowest = std::min(shallowest, target - desk.Lowest());
    deepest = std::max(deepest, target - desk.Lowest());
  }
  EXPECT_EQ(shallowest, 2000 - 1);
  EXPECT_EQ(deepest, 2 * 2000 - 2);
}

TEST(Fades, AnyFadeTimeButFastTakesTheSmallSteps) {
  FadeDesk desk;
  desk.Do([&] { desk.Values().FadeTime = 501; });
  desk.FadeDown();
  EXPECT_EQ(desk.Sys->TheFades.FadeStep, 1000);
  EXPECT_EQ(desk.Timer(), "11 on");
}

TEST(Fades, TheIntervalIsRoundedToTheNearestEvenMillisecond) {
  FadeDesk desk;
  desk.SetMusicVolume(kSilent - 40'000);
  desk.Do([&] { desk.Values().FadeTime = 500; });
  desk.FadeDown();
  EXPECT_EQ(desk.Timer(), "25 on");
  desk.Advance(3000);
  desk.SetMusicVolume(kSilent - 20'000);
  desk.Do([&] { desk.Values().FadeTime = 490; });
  desk.FadeDown();
  EXPECT_EQ(desk.Timer(), "24 on");
}

TEST(Fades, AFadeDownFromSilenceTakesOneEvent) {
  FadeDesk desk;
  desk.Do([&] { desk.Wave().Value = kSilent; });
  desk.FadeDown();
  desk.Advance(3000);
  EXPECT_EQ(desk.ReturnedMs, 23);
  EXPECT_EQ(desk.WaveSlider(), kSilent);
}

TEST(Fades, AFadeDownAfterAFadeUpGoesDownAgain) {
  FadeDesk desk;
  desk.FadeDown();
  desk.Advance(3000);
  desk.FadeUp();
  desk.Advance(3000);
  desk.Watch();
  desk.FadeDown();
  EXPECT_FALSE(desk.Sys->TheFades.FadeIn);
  desk.Advance(3000);
  EXPECT_EQ(desk.ReturnedMs, 23 * 23);
  EXPECT_EQ(desk.WaveSlider(), kSilent);
}

TEST(Fades, AFadeDownFromCloseToSilenceEndsAtIt) {
  FadeDesk desk({.FadeTime = "Fast"});
  for (const int start : {63'533, 63'534}) {
    desk.Do([&] { desk.Wave().Value = start; });
    desk.Watch();
    desk.FadeDown();
    desk.Advance(3000);
    EXPECT_EQ(desk.ReturnedMs, start == 63'533 ? 46 : 23) << start;
    EXPECT_EQ(desk.Steps.back().Position, kSilent);
  }
}

TEST(Fades, AMusicLevelNextToSilenceFadesInOneStepDownAndUp) {
  const std::vector<std::pair<std::string, int>> levels = {
      {"Slow", 64'536}, {"Slow", kSilent}, {"Fast", 63'536}, {"Fast", kSilent}};
  for (const auto& [fadeTime, level] : levels) {
    FadeDesk desk({.FadeTime = fadeTime, .MusicVolume = level});
    desk.FadeDown();
    EXPECT_EQ(desk.Sys->TheFades.FadeSteps, 0);
    desk.Advance(1500);
    EXPECT_EQ(desk.ReturnedMs, fadeTime == "Slow" ? 1500 : 500) << level;
    EXPECT_EQ(desk.WaveSlider(), kSilent);
    desk.FadeUp();
    desk.Advance(1500);
    EXPECT_EQ(desk.ReturnedMs, fadeTime == "Slow" ? 1500 : 500) << level;
    EXPECT_EQ(desk.WaveSlider(), level);
    EXPECT_FALSE(desk.State().FadeRunning);
  }
}

TEST(Fades, AFadeUpToATargetBelowOneStepEndsAtTheLoudest) {
  FadeDesk desk({.FadeTime = "Fast", .MusicVolume = 700});
  desk.FadeDown();
  desk.Advance(3000);
  desk.FadeUp();
  desk.Advance(3000);
  EXPECT_EQ(desk.Lowest(), 0);
  EXPECT_EQ(desk.Steps.back().Position, 0);
  EXPECT_EQ(desk.ReturnedMs, 34 * 16);
  EXPECT_EQ(desk.WaveSlider(), 0);
  EXPECT_FALSE(desk.State().FadeRunning);
}

TEST(Fades, AFadeUpThatIsMovedToTheLoudestEndEndsThereAboveItsTarget) {
  FadeDesk desk;
  desk.FadeDown();
  desk.Advance(3000);
  desk.FadeUp();
  desk.Advance(100);
  desk.Do([&] { desk.Wave().Value = 0; });
  desk.Advance(23);
  EXPECT_FALSE(desk.State().FadeRunning);
  desk.Advance(1000);
  EXPECT_EQ(desk.WaveSlider(), 0);
}

TEST(Fades, AFadeUpHasTheSpeedAndTargetOfTheLastFadeDown) {
  FadeDesk desk({.FadeTime = "Fast"});
  desk.FadeDown();
  desk.Advance(3000);
  desk.Do([&] {
    desk.Values().MusicVolume = 50'000;
    desk.Values().FadeTime = 1500;
  });
  desk.FadeUp();
  desk.Advance(3000);
  EXPECT_EQ(desk.ReturnedMs, 25 * 23);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
}

TEST(Fades, AFadeUpBeforeAnyFadeDownWorksItsStepsOutItself) {
  FadeDesk desk({.FadeTime = "Slow"});
  EXPECT_EQ(desk.Sys->TheFades.FadeStep, 0);
  desk.FadeUp();
  desk.Advance(3000);
  EXPECT_EQ(desk.ReturnedMs, 48 * 33);
  EXPECT_EQ(desk.Lowest(), 18'535);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
}

TEST(Fades, ASliderMovedInAFadeIsGoneOnFromAndTheTargetStays) {
  FadeDesk desk({.FadeTime = "Fast"});
  desk.FadeDown();
  desk.Advance(100);
  EXPECT_EQ(desk.WaveSlider(), 28'000);
  desk.Do([&] {
    desk.Values().MusicVolume = 40'000;
    desk.Wave().Value = 40'000;
  });
  desk.Advance(23);
  EXPECT_EQ(desk.WaveSlider(), 42'000);
  EXPECT_EQ(desk.Sys->TheFades.FadeTarget, 20'000);
  desk.Advance(3000);
  EXPECT_EQ(desk.WaveSlider(), kSilent);
  desk.FadeUp();
  desk.Advance(3000);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
}

TEST(Fades, OnlyTheWaveLineIsFaded) {
  FadeDesk desk;
  const int master = desk.Slider(0);
  const int microphone = desk.Slider(desk.Sys->Mixer.MicLine);
  desk.FadeDown();
  desk.Advance(3000);
  EXPECT_EQ(desk.Slider(0), master);
  EXPECT_EQ(desk.Slider(desk.Sys->Mixer.MicLine), microphone);
  EXPECT_FALSE(desk.WaveMute().Value);
  EXPECT_FALSE(desk.MuteCheck(0));
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(Fades, AFadeLeavesTheDeskAlive) {
  FadeDesk desk({.FadeTime = "Slow"});
  desk.FadeDown();
  desk.Advance(500);
  desk.Click("cmdMusicZones_4");
  EXPECT_EQ(desk.LitZones(), "110010");
  desk.Click("cmdSkip");
  EXPECT_EQ(desk.Pc.Song.FileName(), "/music/b.mp3");
  EXPECT_TRUE(desk.State().FadeRunning);
  desk.Advance(3000);
  EXPECT_EQ(desk.ReturnedMs, 46 * 33);
}

TEST(Fades, ACallReleasedInAFadeDownTurnsItRoundWithoutStoppingTheTimer) {
  FadeDesk desk({.FadeTime = "Fast"});
  desk.FadeDown();
  desk.Advance(230);
  EXPECT_EQ(desk.WaveSlider(), 40'000);
  std::int64_t upMs = 0;
  desk.Do([&] {
    desk.State().CallEndedDuringFade = true;
    desk.Sys->TheFades.FadeUp();
    upMs = desk.Pc.Loop.NowMs() - desk.StartMs;
  });
  EXPECT_EQ(desk.Timer(), "23 on");
  EXPECT_EQ(desk.ReturnedMs, -1);  // the inner wait ends first
  desk.Advance(23);
  EXPECT_EQ(desk.WaveSlider(), 38'000);
  desk.Advance(3000);
  EXPECT_EQ(upMs, 230 + 12 * 23);
  EXPECT_EQ(desk.ReturnedMs, upMs);
  EXPECT_EQ(desk.Lowest(), 18'000);
  EXPECT_EQ(desk.WaveSlider(), 20'000);
}

TEST(Fades, AReleasedCallEndsTheWaitOfAFadeDownButNotThatOfAFadeUp) {
  FadeDesk desk({.FadeTime = "Fast"});
  desk.FadeDown();
  desk.Advance(100);
  desk.Do([&] { desk.State().CallEndedDuringFade = true; });
  EXPECT_EQ(desk.ReturnedMs, 100);
  EXPECT_TRUE(desk.State().FadeRunning);
  desk.FadeUp();
  desk.Advance(3000);
  constexpr int kToNextEvent = 15;  // the timer has kept running
  EXPECT_EQ(desk.ReturnedMs, kToNextEvent + 24 * 23);
}

TEST(Fades, ATakeoverEndsEitherFadeAtOnceAtTheLevelOfTheMusic) {
  for (const bool up : {false, true}) {
    FadeDesk desk({.FadeTime = "Slow"});
    desk.FadeDown();
    if (up) {
      desk.Advance(3000);
      desk.FadeUp();
    }
    desk.Advance(330);
    desk.Status(128);
    EXPECT_EQ(desk.ReturnedMs, 330) << up;
    EXPECT_EQ(desk.WaveSlider(), 20'000);
    EXPECT_EQ(desk.Timer(), "33 off");
    EXPECT_EQ(desk.Heard(), "silence");
    desk.Advance(3000);
    EXPECT_EQ(desk.WaveSlider(), 20'000);
    desk.Status(0);
    EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  }
}

TEST(Fades, AStatusThatTakesNothingOverLetsTheFadeRun) {
  FadeDesk desk({.FadeTime = "Slow"});
  desk.FadeDown();
  desk.Advance(330);
  desk.Status(64);
  desk.Status(0);
  desk.Advance(3000);
  EXPECT_EQ(desk.ReturnedMs, 46 * 33);
}

TEST(Fades, TheExitInTheMiddleOfAFadeEndsTheProgramAtOnce) {
  FadeDesk desk({.FadeTime = "Slow"});
  desk.FadeDown();
  desk.Advance(330);
  desk.Pc.Journal.Only({"send", "process"});
  desk.Pc.Journal.Clear();
  desk.Wave().Watcher = nullptr;
  desk.Click("mnuExit");
  EXPECT_EQ(desk.Journal(), "0 send 0\n0 process ends\n");
  EXPECT_EQ(desk.ReturnedMs, -1);
}

TEST(Fades, ABoxThatNobodyReadsDoesNotHoldAFadeUp) {
  FadeDesk desk({.FadeTime = "Slow"});
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Pc.Disk.Vanish("/music");
  desk.FadeDown();
  desk.Advance(330);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
  desk.Advance(3000);
  EXPECT_EQ(desk.ReturnedMs, 46 * 33);
}

}  // namespace
}  // namespace marlex
