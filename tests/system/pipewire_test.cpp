// The real program on PipeWire, which it reaches as on a desktop, through the process that speaks
// the PulseAudio protocol: what is heard, and what happens when that process, the card or all of
// PipeWire is lost under a song.

#include <gtest/gtest.h>

#include <functional>

#include "system/found_program.h"
#include "system/real_desk.h"

namespace marlex {
namespace {

stage::StageOptions OnPipeWire() {
  stage::StageOptions options = WithMicrophone();
  options.Cards.OnPipeWire = true;
  return options;
}

class PipeWire : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* program : {"pipewire", "wireplumber"}) {
      if (!IsInstalled(program)) GTEST_SKIP() << program << " is not installed";
    }
    stage::InstallationFiles files = TwoSongs(120);
    files.Sequences = {{"Morning", "Short", "09", "00"}};
    Desk = std::make_unique<RealDesk>(files, OnPipeWire());
    Desk->Start("2031-05-05 08:59:50");
    ASSERT_TRUE(Desk->AwaitTone(kFirstSong));
    ASSERT_TRUE(Desk->Await("frmMain.paneFaults", "visible", "no"));
  }

  /// Waits until one tone is heard and the other is not.
  bool AwaitOnly(double tone, double other) const {
    const auto isAlone = [&] { return Desk->IsLoud(tone) && Desk->ToneNowDb(other) < kNothingDb; };
    return stage::WaitUntil(isAlone, 30);
  }

  void Lose(const std::function<void()>& lose) {
    Lost = stage::Now();
    lose();
    ASSERT_TRUE(Desk->AwaitFault("No sound: "));
    EXPECT_TRUE(Desk->Records("fault: No sound: "));
    GTEST_LOG_(INFO) << "in sight after " << stage::Now() - Lost << " s: " << Desk->NewestFault();
  }

  /// What was lost is back: the song is heard again, and the fault is gone.
  void GiveBack(const std::function<void()>& giveBack) {
    giveBack();
    const double since = stage::Now();
    ASSERT_TRUE(Desk->AwaitTone(kFirstSong));
    GTEST_LOG_(INFO) << "heard " << stage::Now() - since << " s after it was back, "
                     << stage::Now() - Lost << " s after it was lost";
    EXPECT_TRUE(Desk->Await("frmMain.paneFaults", "visible", "no")) << Desk->NewestFault();
    EXPECT_TRUE(Desk->Records("fault over: No sound: "));
  }

  std::unique_ptr<RealDesk> Desk;
  double Lost = 0;
};

TEST_F(PipeWire, CarriesMusicAMessageAndTheMicrophone) {
  Desk->Speak();
  ASSERT_TRUE(AwaitOnly(kFirstSong, kVoice));
  ASSERT_TRUE(AwaitOnly(kMessage, kFirstSong));
  ASSERT_TRUE(AwaitOnly(kFirstSong, kMessage));
  ASSERT_TRUE(Desk->Press("frmMain.cmdCall"));
  ASSERT_TRUE(AwaitOnly(kVoice, kFirstSong));
  Desk->Display->Release();
  ASSERT_TRUE(AwaitOnly(kFirstSong, kVoice));
}

TEST_F(PipeWire, MusicIsBackWithTheCard) {
  Lose([this] { Desk->PullCard(); });
  GiveBack([this] {
    Desk->PlugCard();
    Desk->StartRecording();
  });
}

TEST_F(PipeWire, MusicIsBackWhenOnlyItsInterfaceIsRestarted) {
  Lose([this] { Desk->Server->KillInterface(); });
  EXPECT_TRUE(Desk->AwaitSilence());
  GiveBack([this] { Desk->Server->StartInterface(); });
}

TEST_F(PipeWire, MusicIsBackWhenAllOfItIsRestarted) {
  Lose([this] { Desk->Server->Kill(); });
  GiveBack([this] {
    Desk->Server->Start(OnPipeWire().Cards);
    Desk->StartRecording();
  });
}

}  // namespace
}  // namespace marlex
