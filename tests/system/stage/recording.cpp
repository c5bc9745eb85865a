#include "recording.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "wav_file.h"

namespace marlex::stage {
namespace {

double ToDb(double meanSquare) {
  return meanSquare <= 0 ? Recording::kSilenceDb
                         : std::max(Recording::kSilenceDb, 10 * std::log10(meanSquare));
}

double SquareLevelDb(const float* samples, size_t count) {
  double sum = 0;
  for (size_t i = 0; i < count; ++i) sum += double(samples[i]) * samples[i];
  return count ? ToDb(sum / double(count)) : Recording::kSilenceDb;
}

double GoertzelDb(const float* samples, size_t count, double cyclesPerSample) {
  double factor = 2 * std::cos(2 * std::numbers::pi * cyclesPerSample);
  double last = 0;
  double beforeLast = 0;
  for (size_t i = 0; i < count; ++i) {
    double next = samples[i] + factor * last - beforeLast;
    beforeLast = last;
    last = next;
  }
  double power = last * last + beforeLast * beforeLast - factor * last * beforeLast;
  double half = double(count) / 2;
  return count ? ToDb(power / (half * half) / 2) : Recording::kSilenceDb;
}

}  // namespace

size_t Recording::IndexAt(double time) const {
  double index = (time - StartTime) * Rate;
  return index <= 0 ? 0 : std::min(Samples.size(), size_t(index));
}

double Recording::LevelDb(double from, double to) const {
  size_t first = IndexAt(from);
  return SquareLevelDb(Samples.data() + first, IndexAt(to) - first);
}

double Recording::TypicalLevelDb(double from, double to) const {
  std::vector<double> levels;
  for (size_t at = IndexAt(from); at + WindowSize() <= IndexAt(to); at += WindowSize()) {
    levels.push_back(SquareLevelDb(Samples.data() + at, WindowSize()));
  }
  if (levels.empty()) return kSilenceDb;
  auto middle = levels.begin() + std::ptrdiff_t(levels.size() / 2);
  std::nth_element(levels.begin(), middle, levels.end());
  return *middle;
}

double Recording::ToneDb(double frequency, double from, double to) const {
  size_t first = IndexAt(from);
  return GoertzelDb(Samples.data() + first, IndexAt(to) - first, frequency / Rate);
}

std::vector<Span> Recording::Tone(double frequency, double thresholdDb, double joinSeconds) const {
  std::vector<double> levels;
  for (size_t at = 0; at + WindowSize() <= Samples.size(); at += WindowSize()) {
    levels.push_back(GoertzelDb(Samples.data() + at, WindowSize(), frequency / Rate));
  }
  return Spans(levels, thresholdDb, joinSeconds);
}

std::vector<Span> Recording::Sound(double thresholdDb, double joinSeconds) const {
  std::vector<double> levels;
  for (size_t at = 0; at + WindowSize() <= Samples.size(); at += WindowSize()) {
    levels.push_back(SquareLevelDb(Samples.data() + at, WindowSize()));
  }
  return Spans(levels, thresholdDb, joinSeconds);
}

std::vector<Span> Recording::Spans(const std::vector<double>& levels, double thresholdDb,
                                   double joinSeconds) const {
  std::vector<Span> spans;
  for (size_t i = 0; i < levels.size(); ++i) {
    if (levels[i] < thresholdDb) continue;
    double from = StartTime + double(i) * kWindowSeconds;
    bool goesOn = !spans.empty() && from - spans.back().To < joinSeconds;
    if (!goesOn) spans.push_back({from, from, 0});
    spans.back().To = from + kWindowSeconds;
    spans.back().Sounding += kWindowSeconds;
  }
  return spans;
}

int Recording::LoudestTone(const std::vector<double>& frequencies, double time,
                           double thresholdDb) const {
  int best = -1;
  double bestDb = thresholdDb;
  for (size_t i = 0; i < frequencies.size(); ++i) {
    double level = ToneDb(frequencies[i], time - kWindowSeconds / 2, time + kWindowSeconds / 2);
    if (level <= bestDb) continue;
    best = int(i);
    bestDb = level;
  }
  return best;
}

bool Recording::Write(const std::string& file) const { return WriteWav(file, Samples, Rate); }

}  // namespace marlex::stage
