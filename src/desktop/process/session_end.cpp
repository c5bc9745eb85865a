#include "desktop/process/session_end.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <utility>

namespace marlex {

namespace {

constexpr std::array kEndSignals = {SIGTERM, SIGINT, SIGHUP};

/// Descriptor that the signal handler writes to; it may touch nothing else.
std::atomic<int> SignalEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

/// Signal handler. A failed write does no harm: if the pipe is full, its reader is already being
/// woken.
void NoteSignal(int) {
  const int error = errno;
  const char byte = 0;
  [[maybe_unused]] const ssize_t count = write(SignalEnd, &byte, 1);
  errno = error;
}

}  // namespace

/// Catches the signals during its lifetime, and turns each into a byte on a pipe.
class SessionEnd::Signals {
 public:
  Signals() {
    if (pipe2(Ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    SignalEnd = Ends[1];
    for (std::size_t i = 0; i < kEndSignals.size(); ++i) Catch(kEndSignals[i], Former[i]);
  }

  ~Signals() {
    if (Ends[0] < 0) return;
    for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
      sigaction(kEndSignals[i], &Former[i], nullptr);
    }
    for (const int end : Ends) close(end);
  }

  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;

  /// Descriptor to read from; -1 when there is no pipe, and the signals have their default effect.
  int Descriptor() const { return Ends[0]; }

  void Clear() {
    std::array<char, 64> bytes;
    while (read(Ends[0], bytes.data(), bytes.size()) > 0) {
    }
  }

 private:
  static void Catch(int signal, struct sigaction& former) {
    sigaction(signal, nullptr, &former);
    if (former.sa_handler == SIG_IGN) return;
    struct sigaction noting {};
    noting.sa_handler = NoteSignal;
    noting.sa_flags = SA_RESTART;
    sigaction(signal, &noting, nullptr);
  }

  int Ends[2] = {-1, -1};
  std::array<struct sigaction, kEndSignals.size()> Former{};
};

SessionEnd* SessionEnd::Current = nullptr;

SessionEnd::SessionEnd(EventLoop& loop, std::function<void()> onEnd)
    : Loop(loop), OnEnd(std::move(onEnd)), Caught(std::make_unique<Signals>()) {
  if (Caught->Descriptor() >= 0) {
    Listener = std::make_unique<QSocketNotifier>(Caught->Descriptor(), QSocketNotifier::Read);
    connect(Listener.get(), &QSocketNotifier::activated, this, [this] {
      Caught->Clear();
      End();
    });
  }
  QCoreApplication::instance()->installEventFilter(this);
  Current = this;
  static const int registered = std::atexit(EndAtExit);
  static_cast<void>(registered);
}

SessionEnd::~SessionEnd() { Current = nullptr; }

bool SessionEnd::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::Quit || object != QCoreApplication::instance()) return false;
  End();
  return true;
}

void SessionEnd::EndAtExit() {
  if (Current) Current->End();
}

/// Delivers at once, not as a posted event: when the display is gone, no loop runs any more.
void SessionEnd::End() { Loop.Deliver(OnEnd); }

}  // namespace marlex
