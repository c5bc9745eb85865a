#include "simulation/virtual_loop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace marlex {

namespace {

/// So many events within one millisecond must be an endless cycle of events that trigger each
/// other.
constexpr std::uint64_t kMostEventsOfAnInstant = 1'000'000;

/// Keeps a count one higher during its lifetime, even when the stack is unwound.
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
  const std::chrono::milliseconds interval(std::max(intervalMs, 1));
  return Queue.StartTimer(Now(), interval, std::move(onTimeout));
}

void VirtualLoop::StopTimer(TimerId timer) { Queue.StopTimer(timer); }

void VirtualLoop::Post(std::function<void()> event) { Schedule(0, std::move(event)); }

void VirtualLoop::Schedule(std::int64_t delayMs, std::function<void()> event) {
  ScheduleAt(Ms + delayMs, std::move(event));
}

void VirtualLoop::ScheduleAt(std::int64_t dueMs, std::function<void()> event) {
  Queue.Add(std::chrono::milliseconds(std::max(dueMs, Ms)), std::move(event));
}

void VirtualLoop::Pump() {
  if (Ending || Gone) return RefuseToRunOn();
  const EventQueue::Time now = Now();
  const std::uint64_t newcomers = Queue.Newcomers();
  while (const auto next = Queue.FindNext()) {
    if (next->Due > now || next->Order >= newcomers) return;
    DeliverNext(*next);
  }
}

void VirtualLoop::PumpUntil(const std::function<bool()>& done) {
  if (Ending || Gone) return RefuseToRunOn();
  const Counted wait(WaitCount);
  while (!done()) DeliverNext(WaitForEvent());
}

void VirtualLoop::RunFor(std::int64_t ms) {
  RunUntil([] { return false; }, ms);
}

bool VirtualLoop::RunUntil(const std::function<bool()>& condition, std::int64_t limitMs) {
  if (OnSystemThread()) throw std::logic_error("the system cannot advance its own clock");
  DeadlineMs = Ms + limitMs;
  StopWhen = &condition;
  if (!Gone) HandOver();
  const bool holds = condition();
  if (!holds) Ms = std::max(Ms, DeadlineMs);
  if (AfterTurn) AfterTurn();
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
    Queue.Clear();
  }
  throw LoopGone{};
}

void VirtualLoop::Kill() {
  if (OnSystemThread()) End();
  Ending = true;
  if (System.joinable()) HandOver();
  Gone = true;
  Queue.Clear();
}

void VirtualLoop::Restart() {
  Kill();
  Ending = false;
  Gone = false;
  Failure = nullptr;
}

void VirtualLoop::DeliverNext(const EventQueue::Next& next) {
  MoveClock(std::chrono::ceil<std::chrono::milliseconds>(next.Due).count());
  Deliver(*Queue.Take(next, Now()));
  if (AfterEvent) AfterEvent();
}

void VirtualLoop::MoveClock(std::int64_t dueMs) {
  if (dueMs > Ms) {
    Ms = dueMs;
    EventsThisInstant = 0;
  }
  if (++EventsThisInstant > kMostEventsOfAnInstant) {
    throw std::logic_error("events feed each other and the clock does not advance");
  }
}

EventQueue::Next VirtualLoop::WaitForEvent() {
  const bool limited = OnSystemThread();
  const auto deadline = [this] { return std::chrono::milliseconds(DeadlineMs); };
  while (true) {
    const auto next = Queue.FindNext();
    if (limited) {
      if (next && next->Due <= deadline() && !StopRequested()) return *next;
      Park();
    } else {
      if (next) return *next;
      throw std::logic_error("a wait that nothing can end");
    }
  }
}

/// Called instead of waiting when the process is ending. Destructors that run while the stack is
/// unwound, or after it, may still pump; for them this does nothing.
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
  if (!StopRequested()) Ms = std::max(Ms, DeadlineMs);
  std::unique_lock<std::mutex> lock(Hand);
  Turn = Side::Test;
  TurnChanged.notify_all();
  TurnChanged.wait(lock, [this] { return Turn == Side::System; });
  if (Ending) throw LoopGone{};
}

/// Body of the system's thread, from the first hand-over to the end of the process.
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
  Queue.Clear();
  Ending = true;
  Gone = true;
  const std::lock_guard<std::mutex> lock(Hand);
  Turn = Side::Test;
  TurnChanged.notify_all();
}

}  // namespace marlex
