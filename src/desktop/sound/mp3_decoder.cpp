#include "desktop/sound/mp3_decoder.h"

#include <mpg123.h>

#include "desktop/sound/mp3_frames.h"
#include "desktop/sound/sound_file.h"
#include "desktop/sound/sound_format.h"

namespace marlex {
namespace {

constexpr double kSlowestMp3 = 8000 / 8;          // bytes a second at the lowest bitrate
constexpr double kFastestMp3 = 320000 / 8 * 1.1;  // and at the highest, with some room
constexpr std::int64_t kScanLimit =
    64 * 1024 * 1024;  // bytes that are read through within some tens of milliseconds
constexpr int kFruitlessReads = 100;  // calls without a sample after which a stream counts as over

class Mp3Decoder : public Decoder {
 public:
  ~Mp3Decoder() override { mpg123_delete(Handle); }

  bool Open(const std::string& path);
  int Rate() const override { return FrameRate; }
  double Seconds() const override { return Length; }
  int Read(float* stereo, int frames) override;

 private:
  bool Prepare();
  bool TakeFormat();
  void Measure(std::int64_t claimedFrames);

  SoundFile File;
  mpg123_handle* Handle = nullptr;
  int FrameRate = kSampleRate;
  double Length = 0;
};

ssize_t ReadFile(void* file, void* buffer, size_t bytes) {
  return static_cast<SoundFile*>(file)->Read(buffer, bytes);
}

off_t SeekFile(void* file, off_t offset, int whence) {
  return static_cast<SoundFile*>(file)->Seek(offset, whence);
}

bool Mp3Decoder::Open(const std::string& path) {
  Mp3Start start;
  if (!File.Open(path) || !FindMp3Start(File, start)) return false;
  File.SetBase(start.FirstFrame);
  if (!Prepare() || mpg123_open_handle(Handle, &File) != MPG123_OK || !TakeFormat()) return false;
  Measure(start.ClaimedFrames);
  return true;
}

bool Mp3Decoder::Prepare() {
  mpg123_init();
  Handle = mpg123_new(nullptr, nullptr);
  if (!Handle) return false;
  const long flags = MPG123_QUIET | MPG123_GAPLESS | MPG123_FORCE_STEREO | MPG123_SKIP_ID3V2;
  mpg123_param(Handle, MPG123_ADD_FLAGS, flags, 0);
  mpg123_param(Handle, MPG123_REMOVE_FLAGS, MPG123_AUTO_RESAMPLE, 0);
  mpg123_param(Handle, MPG123_RESYNC_LIMIT, -1, 0);
  mpg123_format_none(Handle);
  const long* rates = nullptr;
  size_t count = 0;
  mpg123_rates(&rates, &count);
  for (size_t i = 0; i < count; ++i) {
    mpg123_format(Handle, rates[i], MPG123_MONO | MPG123_STEREO, MPG123_ENC_FLOAT_32);
  }
  return mpg123_replace_reader_handle(Handle, ReadFile, SeekFile, nullptr) == MPG123_OK;
}

/// Learns the rate of the frames that come next.
bool Mp3Decoder::TakeFormat() {
  long rate = 0;
  int channels = 0;
  int encoding = 0;
  if (mpg123_getformat(Handle, &rate, &channels, &encoding) != MPG123_OK) return false;
  FrameRate = int(rate);
  return rate > 0 && channels == kChannels && encoding == MPG123_ENC_FLOAT_32;
}

/// Takes the length from the Xing or Info header if there is one that can be true; otherwise the
/// file is read through, since a length by the first bitrate is wrong for every variable one.
void Mp3Decoder::Measure(std::int64_t claimedFrames) {
  const double bytes = double(File.Size());
  const auto seconds = [this] {
    return double(std::max<off_t>(0, mpg123_length(Handle))) / FrameRate;
  };
  Length = seconds();
  const bool possible = Length <= bytes / kSlowestMp3 && Length >= bytes / kFastestMp3;
  if ((claimedFrames > 0 && possible) || File.Size() > kScanLimit) return;
  if (mpg123_scan(Handle) == MPG123_OK) Length = seconds();
}

int Mp3Decoder::Read(float* stereo, int frames) {
  constexpr size_t kFrameBytes = kChannels * sizeof(float);
  for (int fruitless = 0; fruitless < kFruitlessReads; ++fruitless) {
    size_t bytes = 0;
    const int result = mpg123_read(Handle, stereo, size_t(frames) * kFrameBytes, &bytes);
    // A new format is told with the last samples of the former one, or with none.
    if (bytes > 0) return int(bytes / kFrameBytes);
    if (result == MPG123_NEW_FORMAT && TakeFormat()) continue;
    if (result == MPG123_DONE) return 0;
  }
  return 0;
}

}  // namespace

std::unique_ptr<Decoder> OpenMp3(const std::string& path) {
  auto decoder = std::make_unique<Mp3Decoder>();
  if (!decoder->Open(path)) return nullptr;
  return decoder;
}

}  // namespace marlex
