#include "simulation/virtual_loop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace marlex {

namespace {

/// So many events without a millisecond between them are a ring of events that feed each other.
constexpr std::uint64_t kMostEventsOfAnInstant = 1'000'000;

/// Counts one more for as long as it lives, also when the stack is unwound.
class Counted {
 public:
  explicit Counted(int& count) : Count(count) { ++Count; }
  ~Counted() { --Count; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& Count;
};

}  // namespace

VirtualLoop::~VirtualLoop() { Kill(); }

EventLoop::TimerId VirtualLoop::StartTimer(int intervalMs, std::function<void()> onTimeout) {
  const int periodMs = std::max(intervalMs, 1);
  const std::uint64_t order = NextOrder++;
  Timers.push_back({Now + periodMs, order, periodMs, order,
                    std::make_shared<const std::function<void()>>(std::move(onTimeout))});
  return order;
}

void VirtualLoop::StopTimer(TimerId timer) {
  std::erase_if(Timers, [timer](const Timer& running) { return running.Id == timer; });
}

void VirtualLoop::Post(std::function<void()> event) { Schedule(0, std::move(event)); }

void VirtualLoop::Schedule(std::int64_t delayMs, std::function<void()> event) {
  ScheduleAt(Now + delayMs, std::move(event));
}

void VirtualLoop::ScheduleAt(std::int64_t dueMs, std::function<void()> event) {
  Queue.push_back({std::max(dueMs, Now), NextOrder++, std::move(event)});
  std::push_heap(Queue.begin(), Queue.end(), ComesLater);
}

void VirtualLoop::Pump() {
  if (Ending || Gone) return RefuseToRunOn();
  const std::uint64_t newcomers = NextOrder;
  while (const std::optional<Next> next = FindNext()) {
    if (next->DueMs > Now || next->Order >= newcomers) return;
    DeliverNext(*next);
  }
}

void VirtualLoop::PumpUntil(const std::function<bool()>& done) {
  if (Ending || Gone) return RefuseToRunOn();
  const Counted standing(WaitCount);
  while (!done()) DeliverNext(WaitForEvent());
}

void VirtualLoop::RunFor(std::int64_t ms) {
  RunUntil([] { return false; }, ms);
}

bool VirtualLoop::RunUntil(const std::function<bool()>& condition, std::int64_t limitMs) {
  if (OnSystemThread()) throw std::logic_error("the system cannot advance its own clock");
  DeadlineMs = Now + limitMs;
  StopWhen = &condition;
  if (!Gone) HandOver();
  const bool holds = condition();
  if (!holds) Now = std::max(Now, DeadlineMs);
  return holds;
}

void VirtualLoop::Do(std::function<void()> action) {
  if (Gone) return;
  Post(std::move(action));
  RunFor(0);
}

void VirtualLoop::End() {
  Ending = true;
  if (!OnSystemThread()) {
    Gone = true;
    Discard();
  }
  throw LoopGone{};
}

void VirtualLoop::Kill() {
  if (OnSystemThread()) End();
  Ending = true;
  if (System.joinable()) HandOver();
  Gone = true;
  Discard();
}

void VirtualLoop::Restart() {
  Kill();
  Ending = false;
  Gone = false;
  Failure = nullptr;
}

bool VirtualLoop::ComesLater(const Queued& left, const Queued& right) {
  return std::pair(left.DueMs, left.Order) > std::pair(right.DueMs, right.Order);
}

std::optional<VirtualLoop::Next> VirtualLoop::FindNext() const {
  std::optional<Next> next;
  if (!Queue.empty()) next = Next{Queue.front().DueMs, Queue.front().Order, kFromQueue};
  for (std::size_t i = 0; i < Timers.size(); ++i) {
    const Timer& timer = Timers[i];
    const bool earlier = !next || timer.DueMs < next->DueMs ||
                         (timer.DueMs == next->DueMs && timer.Order < next->Order);
    if (earlier) next = Next{timer.DueMs, timer.Order, i};
  }
  return next;
}

void VirtualLoop::DeliverNext(const Next& next) {
  MoveClock(next.DueMs);
  if (next.Timer == kFromQueue) {
    DeliverQueued();
  } else {
    DeliverTimer(Timers[next.Timer]);
  }
  if (AfterEvent) AfterEvent();
}

void VirtualLoop::DeliverTimer(Timer& timer) {
  const auto onTimeout = timer.OnTimeout;
  timer.DueMs += timer.IntervalMs;
  if (timer.DueMs <= Now) {
    timer.DueMs += ((Now - timer.DueMs) / timer.IntervalMs + 1) * timer.IntervalMs;
  }
  timer.Order = NextOrder++;
  Deliver(*onTimeout);
}

void VirtualLoop::DeliverQueued() {
  std::pop_heap(Queue.begin(), Queue.end(), ComesLater);
  const std::function<void()> event = std::move(Queue.back().Event);
  Queue.pop_back();
  Deliver(event);
}

void VirtualLoop::MoveClock(std::int64_t dueMs) {
  if (dueMs > Now) {
    Now = dueMs;
    EventsThisInstant = 0;
  }
  if (++EventsThisInstant > kMostEventsOfAnInstant) {
    throw std::logic_error("events feed each other and the clock stands still");
  }
}

VirtualLoop::Next VirtualLoop::WaitForEvent() {
  const bool limited = OnSystemThread();
  while (true) {
    const std::optional<Next> next = FindNext();
    if (limited) {
      if (next && next->DueMs <= DeadlineMs && !StopRequested()) return *next;
      Park();
    } else {
      if (next) return *next;
      throw std::logic_error("a wait that nothing can end");
    }
  }
}

/// Destructors that run while the stack is unwound, or after it, may still pump: nothing happens
/// then.
void VirtualLoop::RefuseToRunOn() {
  if (OnSystemThread() && std::uncaught_exceptions() == 0) throw LoopGone{};
}

void VirtualLoop::HandOver() {
  if (!System.joinable()) System = std::thread([this] { Live(); });
  {
    std::unique_lock<std::mutex> lock(Hand);
    Turn = Side::System;
    TurnChanged.notify_all();
    TurnChanged.wait(lock, [this] { return Turn == Side::Test; });
  }
  StopWhen = nullptr;
  if (Gone) System.join();
  if (Failure) std::rethrow_exception(std::exchange(Failure, nullptr));
}

void VirtualLoop::Park() {
  if (!StopRequested()) Now = std::max(Now, DeadlineMs);
  std::unique_lock<std::mutex> lock(Hand);
  Turn = Side::Test;
  TurnChanged.notify_all();
  TurnChanged.wait(lock, [this] { return Turn == Side::System; });
  if (Ending) throw LoopGone{};
}

/// Life of the system's thread, from the first hand-over to the end of the process.
void VirtualLoop::Live() {
  {
    std::unique_lock<std::mutex> lock(Hand);
    TurnChanged.wait(lock, [this] { return Turn == Side::System; });
  }
  try {
    PumpUntil([] { return false; });
  } catch (const LoopGone&) {
  } catch (...) {
    Failure = std::current_exception();
  }
  Discard();
  Ending = true;
  Gone = true;
  const std::lock_guard<std::mutex> lock(Hand);
  Turn = Side::Test;
  TurnChanged.notify_all();
}

void VirtualLoop::Discard() {
  Timers.clear();
  Queue.clear();
}

}  // namespace marlex
