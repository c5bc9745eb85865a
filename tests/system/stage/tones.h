#pragma once

#include <functional>
#include <string>
#include <vector>

namespace marlex::stage {

/// A mono sound, -1 to 1.
struct Sound {
  static constexpr int kRate = 44'100;  // of a sound that says nothing else
  std::vector<float> Samples;
  int Rate = kRate;
};

/// A steady tone. `level` is the peak of the sine, 1 the loudest. Tones of whole hundreds of hertz
/// do not leak into each other in the windows of 10 ms that recordings are measured in.
Sound Tone(double frequency, double seconds, double level = 0.5, int rate = Sound::kRate);

/// A sound from which the place in the song can be heard: each 100 ms it goes on to the next of
/// `kLadderTones` frequencies, and begins again after the last.
Sound Ladder(double seconds, double level = 0.5);
constexpr int kLadderTones = 50;
constexpr double kLadderStepSeconds = 0.1;
double LadderFrequency(int step);

/// Frequencies of the whole ladder.
std::vector<double> LadderFrequencies();

bool WriteWavFile(const std::string& file, const Sound& sound);

/// Writes an MP3 file, with the encoder of the distribution.
bool WriteMp3File(const std::string& file, const Sound& sound);

}  // namespace marlex::stage
