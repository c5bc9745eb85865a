#include "desktop/sound/render_path.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "desktop/sound/media_files.h"
#include "desktop/sound/offline_desk.h"
#include "desktop/sound/wav_decoder.h"

namespace marlex {
namespace {

/// A path with one file playing on it.
struct Road {
  explicit Road(double seconds = 2) {
    Stream =
        SoundStream::Open(Files.Wav("tone.wav", seconds, 0.5), OpenWav, EndReport::kHeard, Family);
    Stream->Play();
  }
  ~Road() { Mixer.Remove(Stream); }

  std::vector<float> Render(int frames) {
    std::vector<float> sound(std::size_t(frames) * 2);
    Mixer.AwaitDecoding(frames);
    Sounded = Path.Render(sound.data(), frames);
    return sound;
  }

  MediaFiles Files;
  std::shared_ptr<StreamFamily> Family = std::make_shared<StreamFamily>();
  StreamMixer Mixer{[](void*, const SoundStream&) { return true; }, nullptr};
  SoundLine Wave;
  SoundLine Master;
  RenderPath Path{Mixer, Wave, Master};
  std::shared_ptr<SoundStream> Stream;
  bool Sounded = false;
};

TEST(RenderPath, WhatIsTakenBackComesAgainSampleForSample) {
  Road road;
  road.Mixer.Add(road.Stream);
  const std::vector<float> first = road.Render(3000);
  ASSERT_EQ(road.Path.Rewind(1, 1000), 1000);
  const std::vector<float> again = road.Render(1500);
  for (int i = 0; i < 2000; ++i) ASSERT_EQ(again[i], first[4000 + i]) << i;
  EXPECT_EQ(road.Stream->FramesPlayed(), 3500);  // nothing was taken from the file twice
  const float seam = std::fabs(again[2000] - again[1998]);
  EXPECT_LT(seam, 0.04);  // a step of the tone itself
}

TEST(RenderPath, AMuteActsOnWhatWasTakenBack) {
  Road road;
  road.Mixer.Add(road.Stream);
  std::vector<float> sound = road.Render(3000);
  road.Master.SetMute(true);
  const int back = road.Path.Rewind(100, 2000);
  ASSERT_EQ(back, 2000);
  const std::vector<float> muted = road.Render(2000);
  EXPECT_EQ(Loudest(muted, 441), 0);
  sound.resize(2000);
  sound.insert(sound.end(), muted.begin(), muted.end());
  EXPECT_LT(GreatestStep(sound), 0.04);
}

TEST(RenderPath, FramesOfARampStayAsTheyAre) {
  Road road;
  road.Mixer.Add(road.Stream);
  road.Render(3000);
  road.Wave.SetLevel(30000, 30000);
  road.Render(400);  // the ramp covers 220 of them
  EXPECT_EQ(road.Path.Rewind(200, 1000), 0);
  EXPECT_EQ(road.Path.Rewind(100, 1000), 180);
  road.Render(180);
  EXPECT_EQ(road.Path.Rewind(1, 1000), 180);
}

TEST(RenderPath, SilenceIsTakenBackForAStreamThatBegins) {
  Road road;
  EXPECT_EQ(Loudest(road.Render(3000)), 0);
  EXPECT_FALSE(road.Sounded);
  road.Mixer.Add(road.Stream);
  EXPECT_EQ(road.Path.Rewind(100, 1000), 1000);
  const std::vector<float> sound = road.Render(1000);
  EXPECT_TRUE(road.Sounded);
  EXPECT_NE(sound[2 * 10], 0);
  EXPECT_EQ(road.Stream->FramesPlayed(), 1000);
}

TEST(RenderPath, NoMoreIsTakenBackThanWasRenderedSinceTheBeginning) {
  Road road;
  road.Mixer.Add(road.Stream);
  road.Render(150);
  EXPECT_EQ(road.Path.Rewind(1, 1000), 150);
}

/// A file that is broken in its middle: a NaN, and samples beyond full scale.
class BrokenFile : public Decoder {
 public:
  int Rate() const override { return 44100; }
  double Seconds() const override { return 1; }
  int Read(float* stereo, int frames) override {
    std::fill(stereo, stereo + 2 * frames, 0.25f);
    if (!Begun && frames > 10) {
      stereo[10] = stereo[13] = std::numeric_limits<float>::quiet_NaN();
      stereo[16] = 3;
      stereo[19] = -3;
    }
    Begun = true;
    return frames;
  }

 private:
  bool Begun = false;
};

TEST(RenderPath, WhatIsBeyondFullScaleIsCutAndANaNIsSilence) {
  Road road;
  const OpenDecoder open = [](const std::string&) -> std::unique_ptr<Decoder> {
    return std::make_unique<BrokenFile>();
  };
  const auto stream = SoundStream::Open("broken", open, EndReport::kHeard, road.Family);
  ASSERT_TRUE(stream);
  stream->Play();
  road.Mixer.Add(stream);
  const std::vector<float> sound = road.Render(1000);
  EXPECT_EQ(sound[10], 0);
  EXPECT_EQ(sound[13], 0);
  EXPECT_EQ(sound[16], 1);
  EXPECT_EQ(sound[19], -1);
  EXPECT_EQ(sound[30], 0.25f);
  road.Mixer.Remove(stream);
}

TEST(RenderPath, TakingBackAtAnyMomentLeavesTheSoundWhole) {
  Road road(4);
  road.Mixer.Add(road.Stream);
  std::vector<float> sound;
  std::uint32_t random = 1;
  while (sound.size() < 2 * 120000) {
    random = random * 1664525u + 1013904223u;
    const int frames = int(random >> 20) + 1;
    const int back = random % 3 == 0 ? road.Path.Rewind(1, int(random % 2000)) : 0;
    sound.resize(sound.size() - std::size_t(back) * 2);
    const std::vector<float> block = road.Render(std::max(frames, back));
    sound.insert(sound.end(), block.begin(), block.end());
  }
  EXPECT_LT(GreatestStep(sound), 0.04);
  EXPECT_EQ(road.Stream->FramesPlayed(), std::int64_t(sound.size() / 2));
}

}  // namespace
}  // namespace marlex
