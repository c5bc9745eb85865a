// Tests of the instruments themselves: only accurate ones may judge the program.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "system/stage/recording.h"
#include "system/stage/tones.h"

namespace marlex::stage {
namespace {

constexpr double kHalfSineDb = -9.03;  // a sine with a peak of one half

Recording RecordingOf(const Sound& sound) {
  Recording recording;
  recording.Rate = Sound::kRate;
  recording.StartTime = 100;
  recording.Samples = sound.Samples;
  return recording;
}

TEST(Instruments, AToneIsMeasuredAtItsOwnLevelAndNotAtAnothers) {
  Recording recording = RecordingOf(Tone(1000, 1));
  EXPECT_NEAR(recording.LevelDb(100, 101), kHalfSineDb, 0.05);
  EXPECT_NEAR(recording.ToneDb(1000, 100.2, 100.3), kHalfSineDb, 0.1);
  EXPECT_LT(recording.ToneDb(1200, 100.2, 100.3), -40);
}

TEST(Instruments, TheTimesOfAToneAreThoseAtWhichItSounds) {
  Sound sound = Tone(700, 0.5, 0);
  Sound tone = Tone(700, 0.3);
  sound.Samples.insert(sound.Samples.end(), tone.Samples.begin(), tone.Samples.end());
  Sound rest = Tone(700, 0.4, 0);
  sound.Samples.insert(sound.Samples.end(), rest.Samples.begin(), rest.Samples.end());
  std::vector<Span> spans = RecordingOf(sound).Tone(700, -30);
  ASSERT_EQ(spans.size(), 1U);
  EXPECT_NEAR(spans[0].From, 100.5, 0.011);
  EXPECT_NEAR(spans[0].To, 100.8, 0.011);
}

TEST(Instruments, ThePlaceInASongIsHeardFromItsLadder) {
  Recording recording = RecordingOf(Ladder(8));
  for (double place : {0.05, 1.25, 4.95, 5.05, 7.75}) {
    int step = recording.LoudestTone(LadderFrequencies(), 100 + place, -40);
    EXPECT_EQ(step, int(place / kLadderStepSeconds) % kLadderTones) << place;
  }
}

}  // namespace
}  // namespace marlex::stage
