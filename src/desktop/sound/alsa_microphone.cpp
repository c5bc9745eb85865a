#include "desktop/sound/alsa_microphone.h"

#include <algorithm>
#include <vector>

#include "desktop/sound/alsa_device.h"
#include "desktop/sound/steady_time.h"
#include "desktop/sound/thread_priority.h"

namespace marlex {
namespace {

constexpr int kBufferMs = 40;
constexpr int kAwaitMs = 100;
constexpr int kBlockFrames = 1024;
constexpr std::int64_t kDeadUs = 2 * kUsPerSecond;  // without a piece: reopen the microphone
// Between two attempts to open a missing microphone.
constexpr std::int64_t kRetryUs = kUsPerSecond;

}  // namespace

AlsaMicrophone::AlsaMicrophone(const std::string& name, const MicrophoneLines& lines)
    : Name(name), Line(lines.Microphone), IsGone(lines.IsGone), Path(lines) {
  Thread = std::thread([this] { Run(); });
}

AlsaMicrophone::~AlsaMicrophone() {
  Quit = true;
  Waking.Wake();
  Thread.join();
}

void AlsaMicrophone::Follow() { Waking.Wake(); }

void AlsaMicrophone::Run() {
  PreferThisThread();
  while (!Quit) {
    const bool isIdle = Line.Muted() && !IsGone;
    Waking.WaitUntil(isIdle ? kForeverUs : SteadyUs() + kRetryUs);
    if (Quit) return;
    if (!Line.Muted()) Capture();
    if (Line.Muted() && IsGone) Open();
  }
}

/// A microphone that is gone is looked for after the call too, so that it is known to be back.
std::unique_ptr<AlsaDevice> AlsaMicrophone::Open() {
  auto device = AlsaDevice::Open(Name, SND_PCM_STREAM_CAPTURE, kPieceMs, kBufferMs);
  IsGone = device == nullptr;
  return device;
}

/// Captures until the line is closed and has faded out, or until the device is gone or dead.
void AlsaMicrophone::Capture() {
  const auto device = Open();
  if (!device || !device->Start()) return;
  Queue.Begin();
  Pass(*device);
  Queue.End();
}

void AlsaMicrophone::Pass(AlsaDevice& device) {
  std::vector<float> block(std::size_t(kBlockFrames + MicrophonePath::kMostAdded) * kChannels);
  std::int64_t seenUs = SteadyUs();
  Path.Begin();
  while (!Quit && !(Line.Muted() && Path.Silent())) {
    const int ready = device.Await(kAwaitMs);
    if (ready < 0 || (ready == 0 && Line.Muted())) break;
    const int frames = std::min(ready, kBlockFrames);
    if (frames == 0 && SteadyUs() - seenUs >= kDeadUs) break;
    if (frames == 0) continue;
    seenUs = SteadyUs();
    if (!device.Read(block.data(), frames)) break;
    Queue.Write(block.data(), Path.Pass(block.data(), frames, Queue.Filled()));
  }
}

bool AlsaMicrophone::MixInto(float* stereo, int frames) {
  Queue.MixInto(stereo, frames);
  return !Line.Muted();
}

}  // namespace marlex
