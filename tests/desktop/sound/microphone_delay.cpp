#include "desktop/sound/microphone_delay.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>

#include "desktop/sound/recording.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

constexpr int kRate = 44100;
constexpr int kPauseFrames = kRate / 2;
constexpr int kWordFrames = kRate / 4;
constexpr float kHeard = 0.05f;  // amplitude, reached within two samples of the start of a word

/// Frames at which the words begin.
std::vector<std::size_t> Beginnings(const std::vector<float>& sound) {
  std::vector<std::size_t> beginnings;
  std::size_t silence = kPauseFrames;
  for (std::size_t frame = 0; frame < sound.size() / 2; ++frame) {
    const bool isLoud = std::fabs(sound[frame * 2]) > kHeard;
    if (isLoud && silence >= kPauseFrames / 2) beginnings.push_back(frame);
    silence = isLoud ? 0 : silence + 1;
  }
  return beginnings;
}

}  // namespace

MicrophoneDelay::MicrophoneDelay(const SoundOptions& options) : Engine(Loop, options) {}

std::string MicrophoneDelay::Words(int count) {
  std::string data;
  for (int i = 0; i < count * (kPauseFrames + kWordFrames); ++i) {
    const int at = i % (kPauseFrames + kWordFrames) - kPauseFrames;
    const double wave = at < 0 ? 0 : std::sin(2 * std::numbers::pi * 1000 * at / kRate);
    const auto sample = std::uint16_t(std::int16_t(std::lround(wave * 16000)));
    for (int channel = 0; channel < 2; ++channel) {
      data += char(sample & 0xFF);
      data += char(sample >> 8);
    }
  }
  const auto size = std::uint32_t(data.size());
  return Files.Write("words.wav", WavBytes({.RiffSize = 36 + size, .DataSize = size}, data));
}

std::vector<double> MicrophoneDelay::Measure(int words) {
  Recording mouth("mouth");
  Recording desk("desk");
  Engine.Microphone().SetMute(false);
  Loop.Within(1500ms, [&] {  // capture and output synchronise
    mouth.Sound();
    desk.Sound();
    return false;
  });
  const std::string file = Words(words);
  FILE* const speaker = popen(("paplay -d mouth --latency-msec=20 '" + file + "'").c_str(), "r");
  const auto count = std::size_t(words);
  Loop.Within(std::chrono::milliseconds(words * 750 + 2000), [&] {
    mouth.Sound();
    return Beginnings(desk.Sound()).size() > count;
  });
  pclose(speaker);
  Engine.Microphone().SetMute(true);
  std::vector<double> delays;
  for (const std::size_t spoken : Beginnings(mouth.Sound())) {
    for (const std::size_t heard : Beginnings(desk.Sound())) {
      const double delay = desk.TimeOf(heard) - mouth.TimeOf(spoken);
      if (delay > 0 && delay < 0.3) delays.push_back(delay * 1000);
    }
  }
  return delays;
}

}  // namespace marlex
