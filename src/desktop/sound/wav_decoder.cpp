#include "desktop/sound/wav_decoder.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "desktop/sound/sound_file.h"
#include "desktop/sound/sound_format.h"

namespace marlex {
namespace {

constexpr int kLowestRate = 1000;  // frames a second; beyond these no card and no converter goes
constexpr int kHighestRate = 768000;
constexpr int kMostChannels = 64;
constexpr float kLoudest = 16;  // amplitude, 24 dB over full: more is no sound but a damaged file

class WavDecoder : public Decoder {
 public:
  ~WavDecoder() override {
    if (Handle) sf_close(Handle);
  }

  bool Open(const std::string& path);
  int Rate() const override { return Info.samplerate; }
  double Seconds() const override { return double(Info.frames) / Info.samplerate; }
  int Read(float* stereo, int frames) override;

 private:
  SNDFILE* Handle = nullptr;
  SF_INFO Info = {};
  std::vector<float> Raw;
};

/// Whether the file begins as a WAV, so that no other reader of the library ever sees it.
bool BeginsAsWav(SoundFile& file) {
  char bytes[12];
  if (file.Read(bytes, sizeof bytes) != sizeof bytes || std::memcmp(bytes + 8, "WAVE", 4) != 0)
    return false;
  return std::memcmp(bytes, "RIFF", 4) == 0 || std::memcmp(bytes, "RIFX", 4) == 0 ||
         std::memcmp(bytes, "RF64", 4) == 0;
}

bool WavDecoder::Open(const std::string& path) {
  SoundFile file;
  if (!file.Open(path) || !BeginsAsWav(file)) return false;
  Handle = sf_open_fd(file.Release(), SFM_READ, &Info, SF_TRUE);
  return Handle && Info.samplerate >= kLowestRate && Info.samplerate <= kHighestRate &&
         Info.channels >= 1 && Info.channels <= kMostChannels && Info.frames >= 0;
}

/// A number of a floating-point file as a sample: damaged ones are silence.
float Clean(float sample) {
  return std::isfinite(sample) ? std::clamp(sample, -kLoudest, kLoudest) : 0;
}

int WavDecoder::Read(float* stereo, int frames) {
  const std::size_t channels = std::size_t(Info.channels);
  Raw.resize(std::size_t(frames) * channels);
  const int count = int(std::max<sf_count_t>(0, sf_readf_float(Handle, Raw.data(), frames)));
  const std::size_t right = channels > 1 ? 1 : 0;
  for (std::size_t i = 0; i < std::size_t(count); ++i) {
    stereo[i * kChannels] = Clean(Raw[i * channels]);
    stereo[i * kChannels + 1] = Clean(Raw[i * channels + right]);
  }
  return count;
}

}  // namespace

std::unique_ptr<Decoder> OpenWav(const std::string& path) {
  auto decoder = std::make_unique<WavDecoder>();
  if (!decoder->Open(path)) return nullptr;
  return decoder;
}

}  // namespace marlex
