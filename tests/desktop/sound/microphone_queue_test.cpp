#include "desktop/sound/microphone_queue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <vector>

#include "desktop/sound/alsa_microphone.h"
#include "desktop/sound/alsa_output.h"

namespace marlex {
namespace {

constexpr double kFramesPerMs = kSampleRate / 1000.0;
constexpr double kScale = 1 << 21;  // number of capture frames that a sample can count

/// A card without a server, in virtual time. Its microphone delivers blocks in which each sample is
/// the number of its frame; its output has a clock of its own.
class VirtualCard {
 public:
  explicit VirtualCard(double outputSpeed) : Speed(outputSpeed) { Path.Begin(); }

  void Run(int milliseconds) {
    for (int i = 0; i < milliseconds; ++i) Step();
  }
  void Unmute() { Queue.Begin(); }

  double FewestQueued = 1e9;  // frames in the card
  double LongestDelayMs = 0;  // from mouth to loudspeaker
  int Gaps = 0;               // frames of the microphone that were missing

 private:
  void Step() {
    NowMs += 1;
    Queued -= kFramesPerMs * Speed;
    FewestQueued = std::min(FewestQueued, Queued);
    const int piece = FramesIn(AlsaMicrophone::kPieceMs);
    while (NowMs * kFramesPerMs >= Captured + piece) Capture(piece);
    const CardFill fill = FillOfCard(FramesIn(5), FramesIn(40), Queue.Speaks());
    if (Queued <= fill.Least) Fill(fill.Most - int(Queued));
  }

  void Capture(int piece) {
    std::vector<float> block;
    for (int i = 0; i < piece; ++i) {
      const float number = float((Captured + i + 1) / kScale);
      block.insert(block.end(), {number, number});
    }
    Captured += piece;
    block.resize(block.size() + std::size_t(MicrophonePath::kMostAdded) * kChannels);
    const int passed = Path.Pass(block.data(), piece, Queue.Filled());
    if (Queue.Speaks()) Queue.Write(block.data(), passed);
  }

  void Fill(int frames) {
    std::vector<float> block(std::size_t(frames) * kChannels);
    Queue.MixInto(block.data(), frames);
    for (int i = 0; i < frames; ++i) {
      const double number = double(block[std::size_t(i) * kChannels]) * kScale;
      const double soundsAtMs = NowMs + (Queued + i) / (kFramesPerMs * Speed);
      if (number == 0)
        ++Gaps;
      else
        LongestDelayMs = std::max(LongestDelayMs, soundsAtMs - number / kFramesPerMs);
    }
    Queued += frames;
  }

  const double Speed;
  SoundLine Line;
  SoundLine Master;
  std::atomic<bool> IsGone{false};
  MicrophonePath Path{{Line, Master, IsGone}};
  MicrophoneQueue Queue;
  double NowMs = 0;
  double Queued = 0;
  double Captured = 0;
};

TEST(MicrophoneQueue, SpeechIsHeardInUnderTwentyMillisecondsHoweverTheClocksDrift) {
  for (const double speed : {1.0, 1.0003, 0.9997, 1.001, 0.999}) {
    VirtualCard card(speed);
    card.Run(200);
    card.FewestQueued = 1e9;
    card.Unmute();
    card.Run(1000);  // capture and output synchronise
    card.LongestDelayMs = 0;
    card.Gaps = 0;
    card.Run(30000);
    EXPECT_GT(card.LongestDelayMs, 5) << speed;
    EXPECT_LT(card.LongestDelayMs, 20) << speed;
    EXPECT_EQ(card.Gaps, 0) << speed;
    EXPECT_GT(card.FewestQueued, FramesIn(3)) << speed;
  }
}

TEST(MicrophoneQueue, TheCardIsFilledForMusicAndHardlyForSpeech) {
  const CardFill music = FillOfCard(FramesIn(5), FramesIn(40), false);
  EXPECT_EQ(music.Least, FramesIn(20));
  EXPECT_EQ(music.Most, FramesIn(40));
  const CardFill speech = FillOfCard(220, 1764, true);
  EXPECT_EQ(speech.Least, 220);
  EXPECT_EQ(speech.Most, 440);
  // A card that works in long blocks must not run dry between two of them.
  const CardFill coarse = FillOfCard(1024, 8192, true);
  EXPECT_EQ(coarse.Least, 1024);
  EXPECT_EQ(coarse.Most, 2048);
  const CardFill small = FillOfCard(1024, 1024, true);
  EXPECT_EQ(small.Least, 512);
  EXPECT_EQ(small.Most, 1024);
}

TEST(MicrophoneQueue, BeginsWithTheNewestSoundAndFadesIn) {
  MicrophoneQueue queue;
  EXPECT_FALSE(queue.Speaks());
  queue.Begin();
  EXPECT_TRUE(queue.Speaks());
  const std::vector<float> old(2 * 441, 1.0f);
  const std::vector<float> fresh(2 * 441, 0.5f);
  queue.Write(old.data(), 441);
  queue.Write(old.data(), 441);
  queue.Write(fresh.data(), 441);
  std::vector<float> heard(2 * 220);
  queue.MixInto(heard.data(), 220);
  EXPECT_EQ(heard[0], 0);
  EXPECT_LT(*std::max_element(heard.begin(), heard.end()), 0.501f);
  EXPECT_NEAR(heard.back(), 0.5, 0.01);
  for (std::size_t i = 2; i < heard.size(); ++i) EXPECT_LT(heard[i] - heard[i - 2], 0.01f);
}

TEST(MicrophoneQueue, TheRestOfACallIsHeardToItsEndAndNothingIsLeftForTheNext) {
  MicrophoneQueue queue;
  queue.Begin();
  const std::vector<float> sound(2 * 882, 0.5f);
  queue.Write(sound.data(), 882);
  std::vector<float> heard(2 * 441);
  queue.MixInto(heard.data(), 441);
  queue.End();
  EXPECT_TRUE(queue.Speaks());
  std::fill(heard.begin(), heard.end(), 0.0f);
  queue.MixInto(heard.data(), 441);
  EXPECT_EQ(heard[0], 0.5f);
  EXPECT_FALSE(queue.Speaks());
  queue.Write(sound.data(), 100);  // too little to begin with
  std::fill(heard.begin(), heard.end(), 0.0f);
  queue.MixInto(heard.data(), 441);
  EXPECT_EQ(*std::max_element(heard.begin(), heard.end()), 0);
  EXPECT_FALSE(queue.Speaks());
}

}  // namespace
}  // namespace marlex
