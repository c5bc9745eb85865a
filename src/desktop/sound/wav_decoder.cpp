#include "desktop/sound/wav_decoder.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/sound/sound_format.h"
#include "desktop/sound/wav_channels.h"
#include "desktop/sound/wav_file.h"

namespace marlex {
namespace {

constexpr int kLowestRate = 1000;  // frames per second; no card or converter goes beyond these
constexpr int kHighestRate = 768000;
constexpr int kMostChannels = 64;
constexpr float kLoudest = 16;  // amplitude, 24 dB over full scale; more is damage, not sound

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
  WavFile File;
  SNDFILE* Handle = nullptr;
  SF_INFO Info = {};
  std::vector<ChannelShare> Shares;  // of each channel
  std::vector<float> Raw;
};

WavFile& FileOf(void* file) { return *static_cast<WavFile*>(file); }

SF_VIRTUAL_IO Reader() {
  SF_VIRTUAL_IO reader = {};
  reader.get_filelen = [](void* file) { return sf_count_t(FileOf(file).Size()); };
  reader.seek = [](sf_count_t offset, int whence, void* file) {
    return sf_count_t(FileOf(file).Seek(offset, whence));
  };
  reader.read = [](void* buffer, sf_count_t bytes, void* file) {
    return sf_count_t(FileOf(file).Read(buffer, std::size_t(bytes)));
  };
  reader.tell = [](void* file) { return sf_count_t(FileOf(file).Seek(0, SEEK_CUR)); };
  return reader;
}

bool WavDecoder::Open(const std::string& path) {
  if (!File.Open(path)) return false;
  SF_VIRTUAL_IO reader = Reader();
  Handle = sf_open_virtual(&reader, SFM_READ, &Info, &File);
  if (!Handle || Info.samplerate < kLowestRate || Info.samplerate > kHighestRate ||
      Info.channels < 1 || Info.channels > kMostChannels || Info.frames < 0)
    return false;
  Shares = SharesOf(Handle, Info.channels);
  return true;
}

/// A sample of a floating-point file, clamped to `kLoudest`; infinities and NaNs become silence.
float Clean(float sample) {
  return std::isfinite(sample) ? std::clamp(sample, -kLoudest, kLoudest) : 0;
}

int WavDecoder::Read(float* stereo, int frames) {
  const std::size_t channels = std::size_t(Info.channels);
  Raw.resize(std::size_t(frames) * channels);
  const int count = int(std::max<sf_count_t>(0, sf_readf_float(Handle, Raw.data(), frames)));
  std::fill_n(stereo, std::size_t(count) * kChannels, 0.0f);
  const float* sample = Raw.data();
  for (int i = 0; i < count; ++i, stereo += kChannels) {
    for (const ChannelShare& share : Shares) {
      const float clean = Clean(*sample++);
      stereo[0] += clean * share.Left;
      stereo[1] += clean * share.Right;
    }
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
