#include "desktop/sound/rate_converter.h"

#include <soxr.h>

#include <algorithm>

#include "desktop/sound/sound_format.h"

namespace marlex {
namespace {

constexpr int kSpare = 1024;  // frames that the converter may return beyond the ratio of the rates

}  // namespace

RateConverter::~RateConverter() { soxr_delete(Handle); }

int RateConverter::Rate() const { return kSampleRate; }

int RateConverter::Read(float* stereo, int frames) {
  while (ReadyTaken == Ready.size() && !SourceOver) {
    const int count = Source->Read(stereo, frames);
    if (count > 0 && !Handle && Source->Rate() == kSampleRate) return count;
    Convert(stereo, count);
  }
  const std::size_t count = std::min(std::size_t(frames) * kChannels, Ready.size() - ReadyTaken);
  std::copy_n(Ready.begin() + std::ptrdiff_t(ReadyTaken), count, stereo);
  ReadyTaken += count;
  return int(count / kChannels);
}

/// Makes the next frames ready, from one block of the source or, at its end, from what the
/// converter still holds back.
void RateConverter::Convert(const float* stereo, int frames) {
  Ready.clear();
  ReadyTaken = 0;
  SourceOver = frames == 0;
  if (!SourceOver && Source->Rate() != SourceRate) SetSourceRate(Source->Rate());
  Push(SourceOver ? nullptr : stereo, frames);
}

/// Drains the previous converter and starts one for the new rate.
void RateConverter::SetSourceRate(int rate) {
  Push(nullptr, 0);
  soxr_delete(Handle);
  Handle = nullptr;
  SourceRate = rate;
  if (rate == kSampleRate) return;
  const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
  Handle = soxr_create(rate, kSampleRate, kChannels, nullptr, nullptr, &quality, nullptr);
}

/// Converts `frames` source frames and appends the result to `Ready`; null drains the current
/// converter.
void RateConverter::Push(const float* stereo, int frames) {
  if (!Handle) {
    if (stereo) Ready.insert(Ready.end(), stereo, stereo + std::size_t(frames) * kChannels);
    return;
  }
  const std::size_t room = std::size_t(double(frames) * kSampleRate / SourceRate) + kSpare;
  std::size_t used = 0;
  std::size_t given = 0;
  do {
    const std::size_t start = Ready.size();
    Ready.resize(start + room * kChannels);
    std::size_t taken = 0;
    const float* input = stereo ? stereo + used * kChannels : nullptr;
    if (soxr_process(Handle, input, std::size_t(frames) - used, &taken, Ready.data() + start, room,
                     &given))
      given = 0;
    Ready.resize(start + given * kChannels);
    used += taken;
  } while (given == room);
}

}  // namespace marlex
