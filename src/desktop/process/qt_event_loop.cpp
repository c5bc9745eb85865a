#include "desktop/process/qt_event_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QTimerEvent>
#include <algorithm>
#include <chrono>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace marlex {

namespace {

using SteadyClock = std::chrono::steady_clock;
using TimePoint = SteadyClock::time_point;
using std::chrono::milliseconds;

bool Holds(const std::function<bool()>& condition) {
  try {
    return condition();
  } catch (...) {
    return true;  // nothing may fly through Qt; the wait tests the condition again and lets it out
                  // there
  }
}

}  // namespace

/// Queue and timers. One timer of Qt stands for all of them: it is started anew, under a new id,
/// before each delivery, because Qt does not fire a timer again while its own event is still being
/// handled further down the stack.
class QtEventLoop::Core : public QObject, public std::enable_shared_from_this<Core> {
 public:
  explicit Core(EventLoop& owner) : Owner(&owner) {
    auto* dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this, dispatcher] {
      if (WaitIsOver())
        dispatcher->wakeUp();  // events of Qt's own have ended the wait: no sleep now
    });
  }

  /// The loop is gone: calls that still run deliver nothing more and return.
  void Abandon() {
    Owner = nullptr;
    Arm();
  }

  TimerId StartTimer(int intervalMs, std::function<void()> onTimeout) {
    const milliseconds interval(std::max(intervalMs, 1));
    const TimerId id = TakeOrder();
    Timers.push_back({SteadyClock::now() + interval, id, interval, id,
                      std::make_shared<const std::function<void()>>(std::move(onTimeout))});
    Arm();
    return id;
  }

  void StopTimer(TimerId timer) {
    std::erase_if(Timers, [timer](const Timer& running) { return running.Id == timer; });
    Arm();
  }

  void Post(std::function<void()> event) {
    {
      const std::lock_guard<std::mutex> lock(QueueLock);
      Queue.push_back({SteadyClock::now(), NextOrder++, std::move(event)});
    }
    if (QThread::currentThread() == thread()) {
      Arm();
    } else {
      QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
  }

  void Pump() {
    const auto self = shared_from_this();
    const WaitScope scope(*this, nullptr);
    Serve();
    if (Owner) QCoreApplication::processEvents(QEventLoop::AllEvents);
  }

  void PumpUntil(const std::function<bool()>& done) {
    const auto self = shared_from_this();
    const WaitScope scope(*this, &done);
    while (Owner && !done()) {
      Arm();
      QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
  }

 protected:
  /// Another thread has posted something.
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    Arm();
    return true;
  }

  void timerEvent(QTimerEvent* event) override {
    if (event->timerId() != QtTimer) return;
    const auto self = shared_from_this();
    Disarm();
    Serve();
  }

 private:
  using Callback = std::shared_ptr<const std::function<void()>>;
  struct Timer {
    TimePoint Due;
    std::uint64_t Order;
    milliseconds Interval;
    TimerId Id;
    Callback OnTimeout;  // outlives a stop inside itself
  };
  struct Queued {
    TimePoint Due;
    std::uint64_t Order;
    std::function<void()> Event;
  };
  struct Wait {
    const std::function<bool()>* Done;  // null: a pump, which waits for nothing
    int LoopLevel;                      // Qt's loops that ran when the wait began
  };

  /// Keeps the stack of waits right, however a wait ends, and lets the next outer one go on.
  class WaitScope {
   public:
    WaitScope(Core& core, const std::function<bool()>* done) : Held(core) {
      Held.Waits.push_back({done, QThread::currentThread()->loopLevel()});
    }
    ~WaitScope() {
      Held.Waits.pop_back();
      Held.Arm();
    }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

   private:
    Core& Held;
  };

  /// Whether the innermost wait has got its condition and only has to return. A dialog that was
  /// opened on top of that wait runs a loop of Qt's own; its events go on, or an unanswered box
  /// would stop every timer.
  bool WaitIsOver() const {
    if (Waits.empty() || !Waits.back().Done) return false;
    return Waits.back().LoopLevel == QThread::currentThread()->loopLevel() &&
           Holds(*Waits.back().Done);
  }

  /// Delivers what is due now, but nothing that is queued meanwhile, so that events which feed each
  /// other leave the windows their turn.
  void Serve() {
    const std::uint64_t newcomers = TakeOrder();
    while (Owner && !WaitIsOver()) {
      const Callback event = TakeNext(newcomers);
      if (!event) break;
      Arm();
      Owner->Deliver(*event);
    }
    Arm();
  }

  Callback TakeNext(std::uint64_t newcomers) {
    const TimePoint now = SteadyClock::now();
    const auto timer = std::min_element(Timers.begin(), Timers.end(), ComesEarlier<Timer, Timer>);
    const bool timerIsDue = timer != Timers.end() && timer->Due <= now && timer->Order < newcomers;
    const std::lock_guard<std::mutex> lock(QueueLock);
    const bool eventIsDue = !Queue.empty() && Queue.front().Order < newcomers;
    if (eventIsDue && !(timerIsDue && ComesEarlier(*timer, Queue.front()))) return TakeQueued();
    if (!timerIsDue) return nullptr;
    StartNextPeriod(*timer, now);
    return timer->OnTimeout;
  }

  Callback TakeQueued() {
    auto event = std::make_shared<const std::function<void()>>(std::move(Queue.front().Event));
    Queue.pop_front();
    return event;
  }

  /// Keeps the cadence: the next due time counts from the last one, and periods that are past
  /// already are dropped.
  void StartNextPeriod(Timer& timer, TimePoint now) {
    timer.Due += timer.Interval;
    if (timer.Due <= now) timer.Due += ((now - timer.Due) / timer.Interval + 1) * timer.Interval;
    timer.Order = NextOrder++;
  }

  template <class Left, class Right>
  static bool ComesEarlier(const Left& left, const Right& right) {
    return std::pair(left.Due, left.Order) < std::pair(right.Due, right.Order);
  }

  std::uint64_t TakeOrder() {
    const std::lock_guard<std::mutex> lock(QueueLock);
    return NextOrder++;
  }

  std::optional<TimePoint> NextDue() {
    std::optional<TimePoint> due;
    for (const Timer& timer : Timers) due = due ? std::min(*due, timer.Due) : timer.Due;
    const std::lock_guard<std::mutex> lock(QueueLock);
    if (!Queue.empty()) due = due ? std::min(*due, Queue.front().Due) : Queue.front().Due;
    return due;
  }

  void Arm() {
    const std::optional<TimePoint> due = Owner ? NextDue() : std::nullopt;
    if (due == ArmedFor) return;
    Disarm();
    if (!due) return;
    const auto left = std::chrono::ceil<milliseconds>(*due - SteadyClock::now());
    QtTimer = startTimer(std::max(left, milliseconds(0)), Qt::PreciseTimer);
    ArmedFor = due;
  }

  void Disarm() {
    if (QtTimer) killTimer(QtTimer);
    QtTimer = 0;
    ArmedFor.reset();
  }

  EventLoop* Owner;
  std::vector<Timer> Timers;  // few, so a search through all of them is the fastest queue
  std::vector<Wait> Waits;    // the innermost last
  int QtTimer = 0;            // id of the running timer of Qt; 0 when none runs
  std::optional<TimePoint> ArmedFor;

  std::mutex QueueLock;  // guards what stands below it
  std::deque<Queued> Queue;
  std::uint64_t NextOrder = 1;  // serves as id of timers also
};

QtEventLoop::QtEventLoop() : Inner(std::make_shared<Core>(*this)) {}

QtEventLoop::~QtEventLoop() { Inner->Abandon(); }

EventLoop::TimerId QtEventLoop::StartTimer(int intervalMs, std::function<void()> onTimeout) {
  return Inner->StartTimer(intervalMs, std::move(onTimeout));
}

void QtEventLoop::StopTimer(TimerId timer) { Inner->StopTimer(timer); }

void QtEventLoop::Post(std::function<void()> event) { Inner->Post(std::move(event)); }

void QtEventLoop::Pump() { Inner->Pump(); }

void QtEventLoop::PumpUntil(const std::function<bool()>& done) { Inner->PumpUntil(done); }

}  // namespace marlex
