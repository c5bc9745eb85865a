#include "desktop/sound/sound_stream.h"

#include <algorithm>
#include <chrono>
#include <system_error>
#include <thread>
#include <vector>

#include "desktop/sound/rate_converter.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

constexpr int kRingFrames = 65536;        // 1.5 seconds decoded ahead
constexpr int kDecodeBlock = 4096;        // frames decoded in one go
constexpr auto kOpenLimit = 250ms;        // that the system's thread waits for a file
constexpr int kMostThreads = 16;          // more of them hang in drives: nothing new is opened
constexpr auto kShortestNap = 50ms;       // of a decoder whose ring nobody empties
constexpr int kFadeFrames = FramesIn(5);  // of a pause, a resumption and a stop
constexpr int kStarvingLimit =
    10 * kSampleRate;  // frames without a sample after which a file is given up

}  // namespace

SoundStream::SoundStream(std::uint64_t number, EndReport report)
    : Number(number), WhenEnded(report), Ring(kRingFrames) {}

std::shared_ptr<SoundStream> SoundStream::Open(const std::string& path, OpenDecoder open,
                                               EndReport report,
                                               const std::shared_ptr<StreamFamily>& family) {
  if (family->Threads >= kMostThreads) return nullptr;
  auto stream = std::make_shared<SoundStream>(++family->LastStream, report);
  ++family->Threads;
  try {
    std::thread([stream, family, path, open]() mutable {
      stream->Run(path, open);
      stream.reset();
      --family->Threads;
    }).detach();
  } catch (const std::system_error&) {  // the machine has no thread left
    --family->Threads;
    return nullptr;
  }
  std::unique_lock lock(stream->Guard);
  stream->Changed.wait_for(lock, kOpenLimit, [&] { return stream->Outcome != Opening::kPending; });
  return stream->Outcome == Opening::kRefused ? nullptr : stream;
}

double SoundStream::Seconds() const {
  const std::scoped_lock lock(Guard);
  return Length;
}

void SoundStream::Want(Wanted wanted) {
  {
    const std::scoped_lock lock(Guard);
    Intent.store(wanted, std::memory_order_release);
  }
  Changed.notify_all();
}

void SoundStream::Run(const std::string& path, OpenDecoder open) {
  std::unique_ptr<Decoder> file = open(path);
  const bool isOpen = file != nullptr;
  if (isOpen) {
    RateConverter decoder(std::move(file));
    Settle(Opening::kOpen, decoder.Seconds());
    Decode(decoder);
  }
  DecodedAll.store(true, std::memory_order_release);
  if (!isOpen) Settle(Opening::kRefused, 0);
}

void SoundStream::Settle(Opening outcome, double seconds) {
  {
    const std::scoped_lock lock(Guard);
    Outcome = outcome;
    Length = seconds;
  }
  Changed.notify_all();
}

void SoundStream::Decode(Decoder& decoder) {
  std::vector<float> block(std::size_t(kDecodeBlock) * kChannels);
  while (!Stopped()) {
    if (Ring.Free() < kDecodeBlock) {
      if (!WaitForRoom()) return;
      continue;
    }
    const int frames = decoder.Read(block.data(), kDecodeBlock);
    if (frames == 0) return;
    Ring.Write(block.data(), frames);
  }
}

/// Sleeps until half of the ring is played, so that decoding wakes the processor about once a
/// second; a stream that does not play is not looked after at all. False when the stream was
/// stopped.
bool SoundStream::WaitForRoom() {
  std::unique_lock lock(Guard);
  while (Ring.Filled() > kRingFrames / 2) {
    if (Stopped()) return false;
    if (Intent == Wanted::kPause) {
      Changed.wait(lock, [this] { return Intent != Wanted::kPause; });
      continue;
    }
    const std::chrono::milliseconds due((Ring.Filled() - kRingFrames / 2) * 1000LL / kSampleRate);
    Changed.wait_for(lock, std::max<std::chrono::milliseconds>(due, kShortestNap));
  }
  return !Stopped();
}

void SoundStream::AwaitDecoding(int frames) {
  while (Intent == Wanted::kPlay && !DecodedAll && Ring.Filled() < frames) {
    Changed.notify_all();
    std::this_thread::sleep_for(100us);
  }
}

SoundStream::State SoundStream::MixInto(float* stereo, int frames) {
  const Wanted wanted = Intent.load(std::memory_order_acquire);
  const bool play = wanted == Wanted::kPlay;
  const bool decodedAll = DecodedAll.load(std::memory_order_acquire);
  const int mixed = MixFrames(stereo, frames, play);
  MissingFrames = frames - mixed;
  if (mixed > 0) Played.fetch_add(mixed, std::memory_order_acq_rel);
  const bool empty = Ring.Filled() == 0;
  if (!play && empty) Fade = 0;
  if (!play && Fade <= 0) return wanted == Wanted::kStop ? State::kGone : State::kSilent;
  if (empty && (decodedAll || Starves(MissingFrames))) return State::kEnded;
  return State::kActive;
}

/// Adds frames until the block is full, the ring is empty or the fade has reached silence.
int SoundStream::MixFrames(float* stereo, int frames, bool play) {
  constexpr float kStep = 1.0f / kFadeFrames;
  int mixed = 0;
  while (mixed < frames && (play || Fade > 0)) {
    const float* source = nullptr;
    const bool steady = play && Fade >= 1;
    const int count = Ring.Peek(source, steady ? frames - mixed : 1);
    if (count == 0) break;
    for (int i = 0; i < count * kChannels; ++i) stereo[i] += source[i] * Fade;
    Ring.Take(count);
    stereo += count * kChannels;
    mixed += count;
    if (!steady) Fade = std::clamp(Fade + (play ? kStep : -kStep), 0.0f, 1.0f);
  }
  return mixed;
}

/// Whether the decoder has owed frames for so long that the file counts as over.
bool SoundStream::Starves(int missing) {
  Starving = missing > 0 ? Starving + missing : 0;
  return Starving >= kStarvingLimit;
}

}  // namespace marlex
