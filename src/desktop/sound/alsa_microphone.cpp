#include "desktop/sound/alsa_microphone.h"

#include <algorithm>
#include <vector>

#include "desktop/sound/alsa_device.h"
#include "desktop/sound/steady_time.h"
#include "desktop/sound/thread_priority.h"

namespace marlex {
namespace {

constexpr int kRingFrames = 16384;
constexpr int kPieceMs = 5;
constexpr int kBufferMs = 40;
constexpr int kAwaitMs = 100;
constexpr int kBlockFrames = 1024;
constexpr std::int64_t kRetryUs =
    1000000;  // between two attempts to open a microphone that is gone

}  // namespace

AlsaMicrophone::AlsaMicrophone(const std::string& name, const MicrophoneLines& lines)
    : Name(name), Line(lines.Microphone), Path(lines), Ring(kRingFrames) {
  sem_init(&Waker, 0, 0);
  Thread = std::thread([this] { Run(); });
}

AlsaMicrophone::~AlsaMicrophone() {
  Quit = true;
  sem_post(&Waker);
  Thread.join();
  sem_destroy(&Waker);
}

void AlsaMicrophone::Follow() { sem_post(&Waker); }

void AlsaMicrophone::Run() {
  PreferThisThread();
  while (!Quit) {
    WaitUntil(Waker, Line.Muted() ? kForeverUs : SteadyUs() + kRetryUs);
    if (!Quit && !Line.Muted()) Capture();
  }
}

/// Captures until the line is closed and has faded out, or the device is gone.
void AlsaMicrophone::Capture() {
  const auto device = AlsaDevice::Open(Name, SND_PCM_STREAM_CAPTURE, kPieceMs, kBufferMs);
  if (!device || !device->Start()) return;
  std::vector<float> block(std::size_t(kBlockFrames + MicrophonePath::kMostAdded) * kChannels);
  Path.Begin();
  while (!Quit && !(Line.Muted() && Path.Silent())) {
    const int ready = device->Await(kAwaitMs);
    if (ready < 0 || (ready == 0 && Line.Muted())) break;
    const int frames = std::min(ready, kBlockFrames);
    if (frames == 0) continue;
    if (!device->Read(block.data(), frames)) break;
    Ring.Write(block.data(), Path.Pass(block.data(), frames, Ring.Filled()));
  }
}

bool AlsaMicrophone::MixInto(float* stereo, int frames) {
  for (int done = 0; done < frames;) {
    const float* source = nullptr;
    const int count = Ring.Peek(source, frames - done);
    if (count == 0) break;
    for (int i = 0; i < count * kChannels; ++i) stereo[done * kChannels + i] += source[i];
    Ring.Take(count);
    done += count;
  }
  return !Line.Muted();
}

}  // namespace marlex
