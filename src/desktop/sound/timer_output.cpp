#include "desktop/sound/timer_output.h"

#include <vector>

#include "desktop/sound/steady_time.h"

namespace marlex {
namespace {

constexpr int kBlockMs = 20;
constexpr std::int64_t kBlockUs = kBlockMs * kUsPerMs;
// A longer gap, after the machine slept, is not made up.
constexpr std::int64_t kLateUs = 500 * kUsPerMs;

}  // namespace

TimerOutput::TimerOutput() = default;

TimerOutput::~TimerOutput() {
  Quit = true;
  Waking.Wake();
  if (Thread.joinable()) Thread.join();
}

void TimerOutput::Start(OutputSource& source) {
  Thread = std::thread([this, &source] { Run(source); });
}

void TimerOutput::Wake() { Waking.Wake(); }

void TimerOutput::Run(OutputSource& source) {
  std::vector<float> block(std::size_t(FramesIn(kBlockMs)) * kChannels);
  SleepTimer silence;
  std::int64_t due = SteadyUs() + kBlockUs;
  while (!Quit) {
    if (Waking.WaitUntil(due)) continue;
    due += kBlockUs;
    if (SteadyUs() - due > kLateUs) due = SteadyUs() + kBlockUs;
    const bool sounded = source.RenderBlock(block.data(), FramesIn(kBlockMs), 0);
    if (!silence.Passed(sounded, FramesIn(kBlockMs))) continue;
    Sleep(source);
    silence.Reset();
    due = SteadyUs();
  }
}

/// A `Wake` since the last block was taken has posted the semaphore already, so none is missed.
void TimerOutput::Sleep(OutputSource& source) {
  Sleeping = true;
  source.OutputChanged();
  Waking.WaitUntil(kForeverUs);
  Sleeping = false;
}

}  // namespace marlex
