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

/// Unwinds the system's stack when its process ends, from any depth of nested waits. It is
/// deliberately no std::exception, so that nothing between takes it for a fault.
struct LoopGone {};

/// The event loop on a virtual clock. Events come in the order of their due time, and among equals
/// in the order in which they were queued; the clock jumps from one to the next, so a run is as
/// fast as its handlers and repeats exactly.
///
/// The system has a stack of its own, on a second thread that runs only while the test stands in
/// `RunFor`, `RunUntil` or `Do`. Those return at their deadline however deep the system waits then,
/// and the next one lets it go on from there. While the test has the turn, it may read the whole
/// state of the system freely.
///
/// Nothing here is locked beyond that hand-over: `Post` is for these two threads alone.
///
/// `Pump` and `PumpUntil` may also be called by the test itself, without a deadline: the events
/// then run on its stack.
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

  /// Virtual milliseconds since the loop was made. It never goes back, not even by `Restart`.
  std::int64_t NowMs() const { return Ms; }

  /// Queues one event `delayMs` from now (at least 0), or at a virtual time that is not past:
  /// clicks, bytes, faults.
  void Schedule(std::int64_t delayMs, std::function<void()> event);
  void ScheduleAt(std::int64_t dueMs, std::function<void()> event);

  /// Delivers everything that is due within `ms` milliseconds and sets the clock to their end. An
  /// exception other than `RuntimeFailure` that an event lets out ends the process and comes out
  /// here.
  void RunFor(std::int64_t ms);

  /// Like `RunFor`, but returns as soon as `condition` holds and the system waits; it is tested
  /// before the first and after each event. False when the limit passed first.
  bool RunUntil(const std::function<bool()>& condition, std::int64_t limitMs);

  /// Delivers `action` as an event of this moment, on top of whatever waits. Returns when it is
  /// through, or waits, and nothing more is due at this moment.
  void Do(std::function<void()> action);

  /// Lets the time pass without delivering anything, as a blocked machine or one asleep does.
  void Block(std::int64_t ms) { Ms += ms; }

  /// Ends the process from inside the system: unwinds its stack, and nothing of it runs any more.
  [[noreturn]] void End();

  /// Ends the process from outside at whatever point it has reached, as a power cut does. The queue
  /// is empty then.
  void Kill();

  bool Ended() const { return Gone; }

  /// Number of pumping waits that stand on the system's stack, the process's own included: 1 while
  /// it is at rest, 0 once it has ended.
  int Waits() const { return WaitCount; }

  /// Kills what still runs, and makes the loop ready for another process.
  void Restart();

  /// Called on the system's thread after every event, nested ones included: for what must hold
  /// always.
  std::function<void()> AfterEvent;

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
  std::int64_t Ms = 0;          // virtual now
  std::int64_t DeadlineMs = 0;  // of the test's present call
  int WaitCount = 0;
  std::uint64_t EventsThisInstant = 0;  // a guard against a clock that stands still for ever
  const std::function<bool()>* StopWhen = nullptr;

  std::thread System;
  std::mutex Hand;  // guards Turn, and with it orders everything that the two sides do
  std::condition_variable TurnChanged;
  Side Turn = Side::Test;
  bool Ending = false;  // the system's stack is to be unwound
  bool Gone = false;    // the process has ended
  std::exception_ptr Failure;
};

}  // namespace marlex
