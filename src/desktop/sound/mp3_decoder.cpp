#include "desktop/sound/mp3_decoder.h"

#include <mpg123.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "desktop/sound/mp3_frames.h"
#include "desktop/sound/sound_file.h"
#include "desktop/sound/sound_format.h"

namespace marlex {
namespace {

constexpr double kSlowestMp3 = 8000 / 8.0;          // bytes per second at the lowest bitrate
constexpr double kFastestMp3 = 320000 / 8.0 * 1.1;  // and at the highest, with some margin
// Bytes that can be scanned within some tens of milliseconds.
constexpr std::int64_t kScanLimit = 64 * 1024 * 1024;
constexpr std::int64_t kTagRoom = 4096;  // bytes of trailing tags that a claim leaves out
constexpr int kProof = 4;                // frames for which a new rate must last to be real
constexpr int kFruitlessReads = 100;  // calls without a sample after which a stream counts as over

class Mp3Decoder : public Decoder {
 public:
  ~Mp3Decoder() override { mpg123_delete(Handle); }

  bool Open(const std::string& path);
  int Rate() const override { return FrameRate; }
  double Seconds() const override { return Length; }
  int Read(float* stereo, int frames) override;

 private:
  struct Run {
    long Rate = 0;
    int Frames = 0;  // consecutive frames of this rate
    double Seconds = 0;
  };

  bool Begin();
  bool Prepare();
  bool TakeFormat();
  bool Measure(const Mp3Start& start);
  bool IsClaimCredible(const Mp3Start& start) const;
  bool CountSeconds();
  int ReadFormat(float* stereo, int frames);
  void AwaitProof();

  SoundFile File;
  mpg123_handle* Handle = nullptr;
  int FrameRate = kSampleRate;
  bool FormatChanges = false;  // after the samples read last
  std::vector<float> Held;     // first samples of a new format that proved real
  std::size_t HeldTaken = 0;   // samples of `Held` that were already delivered
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
  return Begin() && Measure(start);
}

/// Positions a new decoder at the first frame.
bool Mp3Decoder::Begin() {
  mpg123_delete(Handle);
  File.Seek(0, SEEK_SET);
  return Prepare() && mpg123_open_handle(Handle, &File) == MPG123_OK && TakeFormat();
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

/// Reads the rate of the frames that come next.
bool Mp3Decoder::TakeFormat() {
  long rate = 0;
  int channels = 0;
  int encoding = 0;
  if (mpg123_getformat(Handle, &rate, &channels, &encoding) != MPG123_OK) return false;
  FrameRate = int(rate);
  FormatChanges = false;
  return rate > 0 && channels == kChannels && encoding == MPG123_ENC_FLOAT_32;
}

/// Takes the length from a Xing or Info header with a plausible claim; otherwise, unless the file
/// exceeds `kScanLimit`, reads all of it, since a length estimated from the first bitrate is wrong
/// for every variable one.
bool Mp3Decoder::Measure(const Mp3Start& start) {
  Length = double(std::max<off_t>(0, mpg123_length(Handle))) / FrameRate;
  if (IsClaimCredible(start) || File.Size() > kScanLimit) return true;
  return CountSeconds();
}

/// Whether the header's claim was made for the whole file: other files may have been appended
/// since, or the end may be missing. A header without a byte count cannot prove it.
bool Mp3Decoder::IsClaimCredible(const Mp3Start& start) const {
  const std::int64_t bytes = File.Size() - start.FirstFrame;
  if (start.ClaimedBytes == 0 || std::abs(bytes - start.ClaimedBytes) > kTagRoom) return false;
  return start.ClaimedFrames > 0 && Length <= double(bytes) / kSlowestMp3 &&
         Length >= double(bytes) / kFastestMp3;
}

/// Adds up all frames, each of which may have a different rate, and rewinds. Deliberate: a rate
/// that changes again within a few frames does not count, since `AwaitProof` drops it.
bool Mp3Decoder::CountSeconds() {
  Length = 0;
  Run run;
  for (int result = MPG123_OK; result == MPG123_OK || result == MPG123_NEW_FORMAT;) {
    mpg123_frameinfo frame = {};
    if (mpg123_info(Handle, &frame) != MPG123_OK || frame.rate <= 0) break;
    if (frame.rate != run.Rate) {
      if (run.Frames >= kProof) Length += run.Seconds;
      run = {frame.rate, 0, 0};
    }
    ++run.Frames;
    run.Seconds += double(mpg123_spf(Handle)) / double(frame.rate);
    result = mpg123_framebyframe_next(Handle);
  }
  Length += run.Seconds;
  return Begin();
}

int Mp3Decoder::Read(float* stereo, int frames) {
  if (HeldTaken == Held.size()) {
    const int count = FormatChanges ? 0 : ReadFormat(stereo, frames);
    if (count > 0 || !FormatChanges) return count;
    AwaitProof();
  }
  const size_t count = std::min(size_t(frames) * kChannels, Held.size() - HeldTaken);
  std::copy_n(Held.begin() + std::ptrdiff_t(HeldTaken), count, stereo);
  HeldTaken += count;
  return int(count / kChannels);
}

/// Reads samples of one format. A change of format is reported with the last of them, or alone.
int Mp3Decoder::ReadFormat(float* stereo, int frames) {
  for (int fruitless = 0; fruitless < kFruitlessReads; ++fruitless) {
    size_t bytes = 0;
    const int result = mpg123_read(Handle, stereo, size_t(frames) * kFrameBytes, &bytes);
    FormatChanges = result == MPG123_NEW_FORMAT;
    if (bytes > 0 || FormatChanges || result == MPG123_DONE) return int(bytes / kFrameBytes);
  }
  return 0;
}

/// Holds the first frames of a new format, and drops them if the format changes again before
/// `kProof` of them have come: that was junk that looks like a frame.
void Mp3Decoder::AwaitProof() {
  int held = 0;
  int wanted = 1;
  while (held < wanted && FormatChanges && TakeFormat()) {
    wanted = kProof * mpg123_spf(Handle);
    held = 0;
    Held.resize(std::size_t(wanted) * kChannels);
    for (int count = 1; count > 0 && held < wanted && !FormatChanges; held += count) {
      count = ReadFormat(&Held[std::size_t(held) * kChannels], wanted - held);
    }
  }
  Held.resize(std::size_t(held) * kChannels);
  HeldTaken = 0;
}

}  // namespace

std::unique_ptr<Decoder> OpenMp3(const std::string& path) {
  auto decoder = std::make_unique<Mp3Decoder>();
  if (!decoder->Open(path)) return nullptr;
  return decoder;
}

}  // namespace marlex
