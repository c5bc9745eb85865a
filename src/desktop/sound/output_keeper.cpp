#include "desktop/sound/output_keeper.h"

#include "desktop/sound/steady_time.h"
#include "desktop/sound/timer_output.h"

namespace marlex {
namespace {

constexpr std::int64_t kLookUs = 500 * kUsPerMs;     // between two checks of a playing device
constexpr std::int64_t kStallUs = 2 * kUsPerSecond;  // without a block: the device is dead
constexpr std::int64_t kRetryUs = kUsPerSecond;      // between two attempts to open the device

}  // namespace

OutputKeeper::OutputKeeper(OutputSource& source) : Source(source) {}

OutputKeeper::~OutputKeeper() { Stop(); }

void OutputKeeper::Start(std::unique_ptr<SoundOutput> output, Opener opener) {
  Open = std::move(opener);
  const bool device = output != nullptr;
  if (!device) output = std::make_unique<TimerOutput>();
  Use(std::move(output), device);
  if (Open) Thread = std::thread([this] { Run(); });
}

void OutputKeeper::Stop() {
  Quit = true;
  Waking.Wake();
  if (Thread.joinable()) Thread.join();
  Output.reset();
}

void OutputKeeper::Wake() {
  {
    const std::scoped_lock lock(Guard);
    if (Output) Output->Wake();
  }
  Waking.Wake();
}

void OutputKeeper::OutputChanged() { Waking.Wake(); }

void OutputKeeper::Run() {
  while (!Quit) {
    if (OnDevice) {
      WatchDevice();
    } else {
      AwaitDevice();
    }
  }
}

void OutputKeeper::WatchDevice() {
  const bool asleep = Output->Asleep();
  Waking.WaitUntil(asleep ? kForeverUs : SteadyUs() + kLookUs);
  if (asleep) SeenUs = SteadyUs();
  if (Quit || (Output->Alive() && !Stalled())) return;
  Use(std::make_unique<TimerOutput>(), false);
}

/// Whether the device is awake and has taken nothing for two seconds.
bool OutputKeeper::Stalled() {
  const std::int64_t now = SteadyUs();
  if (Output->Asleep() || Blocks != SeenBlocks) {
    SeenBlocks = Blocks;
    SeenUs = now;
  }
  return now - SeenUs >= kStallUs;
}

void OutputKeeper::AwaitDevice() {
  const std::int64_t next = SteadyUs() + kRetryUs;
  while (!Quit && Waking.WaitUntil(next)) {
  }
  if (Quit) return;
  if (auto device = Open()) Use(std::move(device), true);
}

/// Stops the current output before the next one starts, so that no frame is taken twice.
void OutputKeeper::Use(std::unique_ptr<SoundOutput> output, bool device) {
  std::unique_ptr<SoundOutput> former;
  {
    const std::scoped_lock lock(Guard);
    former = std::move(Output);
  }
  OnDevice = false;
  former.reset();
  SeenUs = SteadyUs();
  output->Start(Source);
  {
    const std::scoped_lock lock(Guard);
    Output = std::move(output);
    Output->Wake();
  }
  OnDevice = device;
}

}  // namespace marlex
