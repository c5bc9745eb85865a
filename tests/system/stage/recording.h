#pragma once

#include <string>
#include <vector>

namespace marlex::stage {

/// A stretch of time on the steady clock, in seconds.
struct Span {
  double From = 0;
  double To = 0;
  double Sounding = 0;  // seconds of it with sound, without what a busy machine drops
};

/// Sound with the steady time of its first sample. Levels are root mean square relative to a
/// full-scale square wave, so a full-scale sine has -3 dB; silence is `kSilenceDb`.
class Recording {
 public:
  static constexpr double kSilenceDb = -120;
  static constexpr double kWindowSeconds = 0.010;  // of the lists of levels

  int Rate = 48'000;
  double StartTime = 0;
  std::vector<float> Samples;  // both channels together, -1 to 1

  double EndTime() const { return StartTime + double(Samples.size()) / Rate; }

  /// Level of all sound between two times.
  double LevelDb(double from, double to) const;

  /// Median level of the windows between two times: the level of a steady sound, even when a busy
  /// machine has dropped some of it.
  double TypicalLevelDb(double from, double to) const;

  /// Level of one tone between two times, by Goertzel's method. Tones can be distinguished when
  /// they are at least 1 / (to - from) Hz apart.
  double ToneDb(double frequency, double from, double to) const;

  /// When a tone is louder than the threshold; pauses shorter than `joinSeconds` don't count.
  std::vector<Span> Tone(double frequency, double thresholdDb, double joinSeconds = 0.3) const;

  /// When any sound is louder than the threshold.
  std::vector<Span> Sound(double thresholdDb, double joinSeconds = 0.3) const;

  /// Which of the tones is the loudest in the window around a time; -1 when all are below the
  /// threshold.
  int LoudestTone(const std::vector<double>& frequencies, double time, double thresholdDb) const;

  /// Writes a WAV file.
  bool Write(const std::string& file) const;

 private:
  std::vector<Span> Spans(const std::vector<double>& levels, double thresholdDb,
                          double joinSeconds) const;
  size_t IndexAt(double time) const;
  size_t WindowSize() const { return size_t(kWindowSeconds * Rate); }
};

}  // namespace marlex::stage
