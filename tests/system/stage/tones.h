#pragma once

#include <functional>
#include <string>
#include <vector>

namespace marlex::stage {

/// A mono sound, samples from -1 to 1.
struct Sound {
  static constexpr int kRate = 44'100;  // where a sound does not set its own
  std::vector<float> Samples;
  int Rate = kRate;
};

/// A steady tone. `level` is the peak of the sine, 1 the loudest. Tones at multiples of 100 Hz do
/// not leak into each other in the 10 ms windows in which recordings are measured.
Sound Tone(double frequency, double seconds, double level = 0.5, int rate = Sound::kRate);

/// A sound that reveals the position in the song: every 100 ms it moves to the next of
/// `kLadderTones` frequencies, and starts over after the last.
Sound Ladder(double seconds, double level = 0.5);
constexpr int kLadderTones = 50;
constexpr double kLadderStepSeconds = 0.1;
double LadderFrequency(int step);

/// All frequencies of the ladder.
std::vector<double> LadderFrequencies();

bool WriteWavFile(const std::string& file, const Sound& sound);

/// Writes an MP3 file, with the encoder of the distribution.
bool WriteMp3File(const std::string& file, const Sound& sound);

}  // namespace marlex::stage
