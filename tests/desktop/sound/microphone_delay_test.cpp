#include "desktop/sound/microphone_delay.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace marlex {
namespace {

/// The best of five, since the machine is shared.
double BestDelayMs(const SoundOptions& options) {
  MicrophoneDelay booth(options);
  const std::vector<double> delays = booth.Measure(5);
  return delays.empty() ? 1e9 : *std::min_element(delays.begin(), delays.end());
}

TEST(MicrophoneDelay, SpeechIsPassedToTheServerWithinTwentyMilliseconds) {
  EXPECT_LT(BestDelayMs({.UseCard = false}), 20);
}

/// The card is one that plays into a server, which adds to the delay what it likes.
TEST(MicrophoneDelay, SpeechIsPassedToACardWithoutTheBufferOfMusic) {
  EXPECT_LT(BestDelayMs({.UseServer = false, .CardDevice = "pulse"}), 40);
}

}  // namespace
}  // namespace marlex
