#include "tones.h"

#include <cmath>
#include <filesystem>
#include <numbers>

#include "sound/child_process.h"
#include "wav_file.h"

namespace marlex::stage {
namespace {

constexpr double kLadderFoot =
    2000;  // above the tones of messages, so that the two are never confused
constexpr double kLadderStep = 200;

/// A sine whose frequency may change without a jump in its phase.
Sound Sweep(double seconds, double level, int rate,
            const std::function<double(double)>& frequencyAt) {
  Sound sound;
  sound.Rate = rate;
  double phase = 0;
  auto count = size_t(seconds * rate);
  sound.Samples.reserve(count);
  for (size_t i = 0; i < count; ++i) {
    sound.Samples.push_back(float(level * std::sin(phase)));
    phase += 2 * std::numbers::pi * frequencyAt(double(i) / rate) / rate;
  }
  return sound;
}

}  // namespace

Sound Tone(double frequency, double seconds, double level, int rate) {
  return Sweep(seconds, level, rate, [frequency](double) { return frequency; });
}

Sound Ladder(double seconds, double level) {
  return Sweep(seconds, level, Sound::kRate,
               [](double time) { return LadderFrequency(int(time / kLadderStepSeconds)); });
}

double LadderFrequency(int step) { return kLadderFoot + kLadderStep * (step % kLadderTones); }

std::vector<double> LadderFrequencies() {
  std::vector<double> frequencies;
  for (int step = 0; step < kLadderTones; ++step) frequencies.push_back(LadderFrequency(step));
  return frequencies;
}

bool WriteWavFile(const std::string& file, const Sound& sound) {
  return WriteWav(file, sound.Samples, sound.Rate);
}

bool WriteMp3File(const std::string& file, const Sound& sound) {
  std::string raw = file + ".raw.wav";
  if (!WriteWavFile(raw, sound)) return false;
  Command command;
  command.Arguments = {"lame", "--quiet", "-m", "m", "-b", "128", "--lowpass", "16", raw, file};
  bool done = Run(command) == 0;
  std::filesystem::remove(raw);
  return done;
}

}  // namespace marlex::stage
