#include "desktop/sound/rate_converter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "desktop/sound/offline_desk.h"

namespace marlex {
namespace {

/// One tone whose rate changes after a second.
class ChangingTone : public Decoder {
 public:
  ChangingTone(int first, int second) : First(first), Second(second) {}

  int Rate() const override { return Given <= First ? First : Second; }
  double Seconds() const override { return 2; }
  int Read(float* stereo, int frames) override {
    const int end = Given < First ? First : First + Second;
    const int count = std::min(frames, end - Given);
    for (int i = 0; i < count; ++i, ++Given) {
      const double seconds =
          Given < First ? double(Given) / First : 1 + double(Given - First) / Second;
      stereo[2 * i] = stereo[2 * i + 1] =
          float(0.5 * std::sin(2 * std::numbers::pi * 441 * seconds));
    }
    return count;
  }

 private:
  const int First;
  const int Second;
  int Given = 0;
};

TEST(RateConverter, AToneStaysWholeWhereItsRateChanges) {
  for (const auto& [first, second] :
       {std::pair(44100, 48000), {44100, 22050}, {22050, 44100}, {48000, 44100}, {48000, 32000}}) {
    RateConverter converter(std::make_unique<ChangingTone>(first, second));
    std::vector<float> sound;
    std::vector<float> block(2 * 512);
    while (const int count = converter.Read(block.data(), 512)) {
      sound.insert(sound.end(), block.begin(), block.begin() + count * 2);
    }
    EXPECT_NEAR(double(sound.size()) / 2, 88200, 2) << first << " " << second;
    constexpr float kStepOfTheTone = 0.0315f;
    // A converter that begins or ends within a tone rings a little.
    EXPECT_LT(GreatestStep(sound), kStepOfTheTone * 1.2f) << first << " " << second;
  }
}

}  // namespace
}  // namespace marlex
