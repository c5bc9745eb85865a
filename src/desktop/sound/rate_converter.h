#pragma once

#include <vector>

#include "desktop/sound/decoder.h"

struct soxr;

namespace marlex {

/// A decoder whose frames come at the engine's rate, whatever the rate of its source. The source
/// may change its rate in mid-file.
class RateConverter : public Decoder {
 public:
  explicit RateConverter(std::unique_ptr<Decoder> source) : Source(std::move(source)) {}
  ~RateConverter() override;
  RateConverter(const RateConverter&) = delete;
  RateConverter& operator=(const RateConverter&) = delete;

  int Rate() const override;
  double Seconds() const override { return Source->Seconds(); }
  int Read(float* stereo, int frames) override;

 private:
  void Convert(const float* stereo, int frames);
  void SetSourceRate(int rate);
  void Push(const float* stereo, int frames);

  std::unique_ptr<Decoder> Source;
  int SourceRate = 0;
  bool SourceOver = false;
  soxr* Handle = nullptr;      // null while the source has the engine's rate
  std::vector<float> Ready;    // converted samples
  std::size_t ReadyTaken = 0;  // samples of `Ready` that were already delivered
};

}  // namespace marlex
