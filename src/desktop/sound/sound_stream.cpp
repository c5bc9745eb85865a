#include "desktop/sound/sound_stream.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <system_error>
#include <thread>

#include "desktop/sound/rate_converter.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

constexpr int kRingFrames = 65536;        // 1.5 seconds decoded ahead
constexpr int kDecodeBlock = 4096;        // frames decoded in one go
constexpr auto kOpenLimit = 250ms;        // for which the system's thread waits for a file
constexpr int kMostThreads = 16;          // this many at once hang on dead drives: open no more
constexpr auto kShortestNap = 50ms;       // of a decoder whose ring nobody empties
constexpr int kFadeFrames = FramesIn(5);  // for a pause, a resumption and a stop
// Frames without a sample after which a file is given up.
constexpr int kStarvingLimit = 10 * kSampleRate;

// Samples side by side, which the compiler turns into vector instructions.
constexpr int kLanes = 8;

void Add(float* stereo, const float* source, int frames, float gain) {
  const int count = frames * kChannels;
  int done = 0;
  for (; done + kLanes <= count; done += kLanes) {
    for (int i = 0; i < kLanes; ++i) stereo[done + i] += source[done + i] * gain;
  }
  for (; done < count; ++done) stereo[done] += source[done] * gain;
}

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
  } catch (const std::system_error&) {  // the machine is out of threads
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

/// Decodes the first frames before the file counts as open, so that it sounds as soon as it is
/// played.
void SoundStream::Run(const std::string& path, OpenDecoder open) {
  std::unique_ptr<Decoder> decoder = open(path);
  if (decoder) decoder = std::make_unique<RateConverter>(std::move(decoder));
  bool more = decoder && DecodeBlock(*decoder);
  if (!more) DecodedAll.store(true, std::memory_order_release);
  Settle(decoder ? Opening::kOpen : Opening::kRefused, decoder ? decoder->Seconds() : 0);
  while (more && WaitForRoom()) more = DecodeBlock(*decoder);
  DecodedAll.store(true, std::memory_order_release);
}

void SoundStream::Settle(Opening outcome, double seconds) {
  {
    const std::scoped_lock lock(Guard);
    Outcome = outcome;
    Length = seconds;
  }
  Changed.notify_all();
}

/// Decodes the next block into the ring, which must have room for it; false at the end of the file.
bool SoundStream::DecodeBlock(Decoder& decoder) {
  std::array<float, std::size_t(kDecodeBlock) * kChannels> block;
  const int frames = decoder.Read(block.data(), kDecodeBlock);
  Ring.Write(block.data(), frames);
  return frames > 0;
}

/// Once the ring is full, sleeps until half of it has been played, so that decoding wakes the
/// processor about once a second. For a paused stream it sleeps until that is played or stopped.
/// False when the stream was stopped.
bool SoundStream::WaitForRoom() {
  if (Stopped() || Ring.Free() >= kDecodeBlock) return !Stopped();
  std::unique_lock lock(Guard);
  while (!Stopped() && Ring.Filled() > kRingFrames / 2) {
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
  const int held = play ? std::min(Held, frames) : 0;
  Held -= held;
  const int mixed = MixFrames(stereo + held * kChannels, frames - held, play);
  MissingFrames = frames - held - mixed;
  if (mixed > 0) Played.fetch_add(mixed, std::memory_order_acq_rel);
  const bool empty = Ring.Filled() == 0;
  if (!play && empty) Fade = 0;
  if (!play && Fade <= 0) {
    Held = kFadeFrames;
    return wanted == Wanted::kStop ? State::kGone : State::kSilent;
  }
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
    Add(stereo, source, count, Fade);
    Ring.Take(count);
    stereo += count * kChannels;
    mixed += count;
    if (!steady) Fade = std::clamp(Fade + (play ? kStep : -kStep), 0.0f, 1.0f);
  }
  return mixed;
}

/// Whether the decoder has delivered nothing for so long that the file counts as over.
bool SoundStream::Starves(int missing) {
  Starving = missing > 0 ? Starving + missing : 0;
  return Starving >= kStarvingLimit;
}

}  // namespace marlex
