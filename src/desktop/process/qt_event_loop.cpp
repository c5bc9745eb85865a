#include "desktop/process/qt_event_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QTimerEvent>
#include <algorithm>
#include <chrono>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "platform/event_queue.h"

namespace marlex {

namespace {

using std::chrono::milliseconds;

EventQueue::Time Now() { return std::chrono::steady_clock::now().time_since_epoch(); }

bool Holds(const std::function<bool()>& condition) {
  try {
    return condition();
  } catch (...) {
    // No exception may pass through Qt; the wait tests the condition again and throws there.
    return true;
  }
}

}  // namespace

/// The queue, driven by a Qt timer that is set to the next event. The timer is restarted, under a
/// new id, before each delivery, because Qt does not fire a timer whose own event is still being
/// handled further down the stack.
class QtEventLoop::Core : public QObject, public std::enable_shared_from_this<Core> {
 public:
  explicit Core(EventLoop& owner) : Owner(&owner) {
    auto* dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this, dispatcher] {
      // Do not go to sleep if Qt's own events have ended the wait.
      if (WaitIsOver()) dispatcher->wakeUp();
    });
  }

  /// Call when the loop is gone: calls that are still running deliver nothing more and return.
  void Abandon() {
    Owner = nullptr;
    Arm();
  }

  TimerId StartTimer(int intervalMs, std::function<void()> onTimeout) {
    const milliseconds interval(std::max(intervalMs, 1));
    const TimerId id = Queue.StartTimer(Now(), interval, std::move(onTimeout));
    Arm();
    return id;
  }

  void StopTimer(TimerId timer) {
    Queue.StopTimer(timer);
    Arm();
  }

  void Post(std::function<void()> event) {
    {
      const std::lock_guard<std::mutex> lock(InboxLock);
      Inbox.push_back({Now(), std::move(event)});
    }
    if (QThread::currentThread() == thread()) {
      EmptyInbox();
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
  /// Handles the notice that another thread has posted something.
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    EmptyInbox();
    return true;
  }

  void timerEvent(QTimerEvent* event) override {
    if (event->timerId() != QtTimer) return;
    const auto self = shared_from_this();
    Disarm();
    Serve();
  }

 private:
  struct Posted {
    EventQueue::Time At;
    std::function<void()> Event;
  };
  struct Wait {
    const std::function<bool()>* Done;  // null for a pump, which waits for nothing
    int LoopLevel;                      // nesting depth of Qt's loops when the wait began
  };

  /// Keeps the stack of waits correct however a wait ends, and lets the next outer one continue.
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

  /// Whether the condition of the innermost wait is met, so that it only has to return. A dialog
  /// opened on top of that wait runs a Qt loop of its own; events continue to be delivered there,
  /// or an unanswered box would stop every timer.
  bool WaitIsOver() const {
    if (Waits.empty() || !Waits.back().Done) return false;
    return Waits.back().LoopLevel == QThread::currentThread()->loopLevel() &&
           Holds(*Waits.back().Done);
  }

  /// Delivers what is due now, but nothing that these events queue in turn, so that events that
  /// trigger each other still let the windows have their turn.
  void Serve() {
    EmptyInbox();
    const EventQueue::Time begun = Now();
    const std::uint64_t newcomers = Queue.Newcomers();
    while (Owner && !WaitIsOver()) {
      const auto next = Queue.FindNext();
      if (!next || next->Due > begun || next->Order >= newcomers) break;
      const EventQueue::Event event = Queue.Take(*next, Now());
      Arm();
      Owner->Deliver(*event);
    }
    Arm();
  }

  /// Queues what was posted, each event with the time at which it was posted.
  void EmptyInbox() {
    std::vector<Posted> posted;
    {
      const std::lock_guard<std::mutex> lock(InboxLock);
      posted.swap(Inbox);
    }
    for (Posted& one : posted) Queue.Add(one.At, std::move(one.Event));
    Arm();
  }

  void Arm() {
    const auto next = Owner ? Queue.FindNext() : std::nullopt;
    const auto due = next ? std::optional(next->Due) : std::nullopt;
    if (due == ArmedFor) return;
    Disarm();
    if (!due) return;
    const auto left = std::chrono::ceil<milliseconds>(*due - Now());
    QtTimer = startTimer(std::max(left, milliseconds(0)), Qt::PreciseTimer);
    ArmedFor = due;
  }

  void Disarm() {
    if (QtTimer) killTimer(QtTimer);
    QtTimer = 0;
    ArmedFor.reset();
  }

  EventLoop* Owner;
  EventQueue Queue;
  std::vector<Wait> Waits;  // the innermost comes last
  int QtTimer = 0;          // id of the running Qt timer; 0 for none
  std::optional<EventQueue::Time> ArmedFor;

  std::mutex InboxLock;  // guards `Inbox`
  std::vector<Posted> Inbox;
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
