#include "desktop/sound/end_reports.h"

#include <algorithm>

#include "desktop/sound/steady_time.h"

namespace marlex {

EndReports::EndReports(std::function<void(std::uint64_t)> report) : Report(std::move(report)) {
  Thread = std::thread([this] { Run(); });
}

EndReports::~EndReports() {
  Quit = true;
  Waking.Wake();
  Thread.join();
}

bool EndReports::Push(std::uint64_t stream, std::int64_t delayUs) {
  const std::size_t at = Pushed.load(std::memory_order_relaxed);
  if (at - Popped.load(std::memory_order_acquire) == kCapacity) return false;
  Queue[at % kCapacity] = {stream, SteadyUs() + delayUs};
  Pushed.store(at + 1, std::memory_order_release);
  Waking.Wake();
  return true;
}

void EndReports::Run() {
  std::vector<End> waiting;
  while (!Quit) {
    Wait(waiting);
    Collect(waiting);
    const std::int64_t now = SteadyUs();
    const auto later = [now](const End& end) { return end.DueUs > now; };
    const auto due = std::stable_partition(waiting.begin(), waiting.end(), later);
    const std::vector<End> ended(due, waiting.end());
    waiting.erase(due, waiting.end());
    for (const End& end : ended) Report(end.Stream);
  }
}

void EndReports::Collect(std::vector<End>& waiting) {
  std::size_t at = Popped.load(std::memory_order_relaxed);
  for (; at != Pushed.load(std::memory_order_acquire); ++at)
    waiting.push_back(Queue[at % kCapacity]);
  Popped.store(at, std::memory_order_release);
}

/// Sleeps until the next end is due or another one is pushed.
void EndReports::Wait(const std::vector<End>& waiting) {
  std::int64_t due = kForeverUs;
  for (const End& end : waiting) due = std::min(due, end.DueUs);
  Waking.WaitUntil(due);
}

}  // namespace marlex
