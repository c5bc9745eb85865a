#include "desktop/sound/sound_line.h"

#include <gtest/gtest.h>

#include "desktop/sound/offline_desk.h"

namespace marlex {
namespace {

constexpr int kSettled = 441;  // frames after which every ramp has ended

TEST(SoundLine, StartsFullAndCutsLevelsToItsRange) {
  SoundLine line;
  EXPECT_EQ(line.Level(), (StereoLevel{65535, 65535}));
  line.SetLevel(-5, 70000);
  EXPECT_EQ(line.Level(), (StereoLevel{0, 65535}));
  EXPECT_FALSE(line.Muted());
}

TEST(SoundLine, ReportsEveryChange) {
  SoundLine line;
  int changes = 0;
  line.OnChange = [&] { ++changes; };
  line.SetMute(true);
  line.SetLevel(1, 2);
  EXPECT_EQ(changes, 2);
}

TEST(SoundLine, MeterHoldsThePeakUntilItIsRead) {
  SoundLine line;
  line.Meter(0.5f);
  line.Meter(0.25f);
  EXPECT_EQ(line.Peak(), 16384);
  EXPECT_EQ(line.Peak(), 0);
  line.Meter(3);
  EXPECT_EQ(line.Peak(), 32767);
}

TEST(SoundLine, LevelsOfBothLinesAreAmplitudesOfEachChannel) {
  OfflineDesk desk;
  desk.Engine.Wave().SetLevel(32768, 65535);
  desk.Engine.Master().SetLevel(65535, 16384);
  desk.Wave.FileName = desk.Files.Wav("tone.wav", 1, 0.8);
  desk.Wave.Command("Open");
  desk.Wave.Command("Play");
  const std::vector<float> sound = desk.Render(8820);
  float left = 0, right = 0;
  for (std::size_t i = kSettled; i < 8820; ++i) {
    left = std::max(left, sound[i * 2]);
    right = std::max(right, sound[i * 2 + 1]);
  }
  EXPECT_NEAR(left, 0.4, 0.001);
  EXPECT_NEAR(right, 0.2, 0.001);
  EXPECT_NEAR(desk.Engine.Wave().Peak(), 0.8 * 32767, 20);
  EXPECT_NEAR(desk.Engine.Master().Peak(), 0.4 * 32767, 20);
}

TEST(SoundLine, MuteSilencesWithinTenMillisecondsAndWithoutAClick) {
  OfflineDesk desk;
  desk.Wave.FileName = desk.Files.Wav("tone.wav", 2, 1.0);
  desk.Wave.Command("Open");
  desk.Wave.Command("Play");
  std::vector<float> sound = desk.Render(4410);
  const float ownStep = GreatestStep(sound);
  desk.Engine.Master().SetMute(true);
  const std::vector<float> muted = desk.Render(4410);
  sound.insert(sound.end(), muted.begin(), muted.end());
  desk.Engine.Master().SetMute(false);
  const std::vector<float> open = desk.Render(4410);
  sound.insert(sound.end(), open.begin(), open.end());
  EXPECT_EQ(Loudest(muted, kSettled), 0);
  EXPECT_GT(Loudest(muted), 0.5);
  EXPECT_GT(Loudest(open, kSettled), 0.99);
  // A straight ramp of five milliseconds adds at most 1/220 to a step of the tone itself.
  EXPECT_LT(GreatestStep(sound), ownStep + 0.006);
}

TEST(SoundLine, AFadeInStepsDoesNotClick) {
  OfflineDesk desk;
  desk.Wave.FileName = desk.Files.Wav("tone.wav", 2, 1.0);
  desk.Wave.Command("Open");
  desk.Wave.Command("Play");
  std::vector<float> sound = desk.Render(4410);
  const float ownStep = GreatestStep(sound);
  for (int level = 65535; level >= 0; level -= 1311) {
    desk.Engine.Wave().SetLevel(level, level);
    const std::vector<float> block = desk.Render(441);
    sound.insert(sound.end(), block.begin(), block.end());
  }
  EXPECT_LT(GreatestStep(sound), ownStep + 0.001);
}

TEST(SoundLine, WhatIsLouderThanFullIsCut) {
  OfflineDesk desk;
  EngineWavePlayer second(desk.Engine, desk.Loop);
  desk.Wave.FileName = second.FileName = desk.Files.Wav("tone.wav", 1, 0.9);
  for (WavePlayer* player :
       {static_cast<WavePlayer*>(&desk.Wave), static_cast<WavePlayer*>(&second)}) {
    player->Command("Open");
    player->Command("Play");
  }
  EXPECT_EQ(Loudest(desk.Render(4410)), 1.0f);
}

}  // namespace
}  // namespace marlex
