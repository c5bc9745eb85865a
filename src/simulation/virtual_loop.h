#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/event_loop.h"
#include "platform/event_queue.h"

namespace marlex {

/// Thrown to unwind the system's stack when its process ends, from any depth of nested waits.
/// Deliberate: not a `std::exception`, so that no handler on the way takes it for an error.
struct LoopGone {};

/// The event loop on a virtual clock. Events come in the order of their due times, and those with
/// the same due time in the order in which they were queued. The clock jumps from one event to the
/// next, so a run is as fast as its handlers and repeats exactly.
///
/// The system has its own stack, on a second thread that runs only while the test is inside
/// `RunFor`, `RunUntil` or `Do`. These return at their deadline, however deeply the system is
/// waiting, and the next call lets it continue from there. While the system is stopped, the test
/// may read its whole state.
///
/// Only the hand-over between the two threads is synchronised, so `Post` may be called from these
/// two threads only.
///
/// The test itself may also call `Pump` and `PumpUntil`, without a deadline: the events then run on
/// its own stack.
class VirtualLoop : public EventLoop {
 public:
  VirtualLoop() = default;
  ~VirtualLoop() override;
  VirtualLoop(const VirtualLoop&) = delete;
  VirtualLoop& operator=(const VirtualLoop&) = delete;

  TimerId StartTimer(int intervalMs, std::function<void()> onTimeout) override;
  void StopTimer(TimerId timer) override;
  void Post(std::function<void()> event) override;
  void Pump() override;
  void PumpUntil(const std::function<bool()>& done) override;

  /// Virtual milliseconds since the loop was created. Never goes back, not even by `Restart`.
  std::int64_t NowMs() const { return Ms; }

  /// Queue one event, such as a click, a byte or a fault, `delayMs` milliseconds from now (at least
  /// 0), or at virtual time `dueMs`. A time in the past counts as now.
  void Schedule(std::int64_t delayMs, std::function<void()> event);
  void ScheduleAt(std::int64_t dueMs, std::function<void()> event);

  /// Delivers everything that is due within `ms` milliseconds, and sets the clock to the end of
  /// that period. An exception other than `RuntimeFailure` that escapes from an event ends the
  /// process and is rethrown here.
  void RunFor(std::int64_t ms);

  /// Like `RunFor`, but returns as soon as `condition` holds and the system waits. The condition is
  /// tested before the first event and after each one. False when the limit of `limitMs`
  /// milliseconds passes first.
  bool RunUntil(const std::function<bool()>& condition, std::int64_t limitMs);

  /// Delivers `action` as an event now, on top of whatever is waiting. Returns when it has
  /// finished, or waits, and nothing more is due at this moment.
  void Do(std::function<void()> action);

  /// Lets time pass without delivering anything, like a machine that is blocked or asleep.
  void Block(std::int64_t ms) { Ms += ms; }

  /// Ends the process from inside the system: unwinds its stack, after which nothing of it runs.
  [[noreturn]] void End();

  /// Ends the process from outside, wherever it is, as a power cut does, and empties the queue.
  void Kill();

  bool Ended() const { return Gone; }

  /// Number of waits on the system's stack, including the main loop of the process: 1 while it is
  /// idle, 0 once it has ended.
  int Waits() const { return WaitCount; }

  /// Kills what is still running, and prepares the loop for another process.
  void Restart();

  /// Called on the system's thread after every event, including nested ones: for invariants.
  std::function<void()> AfterEvent;

  /// Called on the test's thread each time it has its turn again: for what follows the system's
  /// state, and must not run on the system's thread.
  std::function<void()> AfterTurn;

 private:
  enum class Side { Test, System };

  EventQueue::Time Now() const { return std::chrono::milliseconds(Ms); }
  void DeliverNext(const EventQueue::Next& next);
  void MoveClock(std::int64_t dueMs);
  EventQueue::Next WaitForEvent();
  void RefuseToRunOn();

  bool OnSystemThread() const { return std::this_thread::get_id() == System.get_id(); }
  bool StopRequested() const { return StopWhen && (*StopWhen)(); }
  void HandOver();
  void Park();
  void Live();

  EventQueue Queue;
  std::int64_t Ms = 0;          // current virtual time
  std::int64_t DeadlineMs = 0;  // end of the test's current call
  int WaitCount = 0;
  std::uint64_t EventsThisInstant = 0;  // guards against a clock that never advances
  const std::function<bool()>* StopWhen = nullptr;

  std::thread System;
  std::mutex Hand;  // guards `Turn`, and so orders everything that the two sides do
  std::condition_variable TurnChanged;
  Side Turn = Side::Test;
  bool Ending = false;  // the system's stack must be unwound
  bool Gone = false;    // the process has ended
  std::exception_ptr Failure;
};

}  // namespace marlex
