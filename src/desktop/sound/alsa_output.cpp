#include "desktop/sound/alsa_output.h"

#include <algorithm>

#include "desktop/sound/steady_time.h"
#include "desktop/sound/thread_priority.h"

namespace marlex {
namespace {

constexpr int kMusicMs = 40;   // buffered for music, unless the card needs more
constexpr int kBlockMs = 40;   // the most rendered in one go
constexpr int kAwaitMs = 100;  // then a silent card is checked again
constexpr std::int64_t kLookUs = 2 * kUsPerSecond;  // between two checks of a sleeping card

}  // namespace

CardFill FillOfCard(int piece, int buffer, bool speaks) {
  const int music = std::min(buffer, std::max(FramesIn(kMusicMs), 2 * piece));
  const int most = speaks ? std::min(2 * piece, music) : music;
  return {most / 2, most};
}

AlsaOutput::AlsaOutput(std::unique_ptr<AlsaDevice> device, const std::string& name,
                       const MicrophoneLines& lines)
    : Device(std::move(device)),
      Input(name, lines),
      Block(std::size_t(FramesIn(kBlockMs)) * kChannels) {}

AlsaOutput::~AlsaOutput() {
  Quit = true;
  Waking.Wake();
  if (Thread.joinable()) Thread.join();
}

void AlsaOutput::Start(OutputSource& source) {
  Source = &source;
  Thread = std::thread([this] { Run(); });
}

void AlsaOutput::Wake() {
  Input.Follow();
  Waking.Wake();
}

void AlsaOutput::Run() {
  PreferThisThread();
  bool good = Device->Start();
  while (good && !Quit) good = Step();
  if (Quit) return;
  Living = false;
  Source->OutputChanged();
}

/// A card that holds more than it should gets nothing until it has drained, so that the change
/// leaves no gap in the sound. A card that takes nothing from the short queue of speech works in
/// larger pieces than it claims; until the speech is over, it is filled as for music.
bool AlsaOutput::Step() {
  const int buffer = Device->BufferFrames();
  const bool speaks = Input.Speaks();
  Coarse = Coarse && speaks;
  const CardFill fill = FillOfCard(Device->PieceFrames(), buffer, speaks && !Coarse);
  Device->SetReady(buffer - fill.Least);
  const std::int64_t dueUs = SteadyUs() + kAwaitMs * kUsPerMs;
  const int room = Device->Await(kAwaitMs);
  if (room > 0) return Fill(fill.Most - (buffer - room));
  Coarse = Coarse || (speaks && SteadyUs() >= dueUs);
  return room == 0;
}

bool AlsaOutput::Fill(int frames) {
  frames = std::min(frames, FramesIn(kBlockMs));
  if (frames == 0) return true;
  Waking.Drain();  // the block below covers what these asked for
  const std::int64_t delayUs = UsOf(Device->Delay());
  const bool sounds = Source->RenderBlock(Block.data(), frames, delayUs);
  const bool speaks = Input.MixInto(Block.data(), frames);
  if (!Device->Write(Block.data(), frames)) return false;
  return !Silence.Passed(sounds || speaks, frames) || Sleep();
}

/// A `Wake` since the last block was taken has posted the semaphore already, so none is missed.
/// False when the card is gone, which reports nothing by itself as long as nothing plays.
bool AlsaOutput::Sleep() {
  Device->Drop();
  Sleeping = true;
  Source->OutputChanged();
  while (!Waking.WaitUntil(SteadyUs() + kLookUs)) {
    if (!Device->IsConnected()) return false;
  }
  Sleeping = false;
  Silence.Reset();
  Device->Start();
  return true;
}

}  // namespace marlex
