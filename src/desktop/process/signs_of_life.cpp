#include "desktop/process/signs_of_life.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace marlex {

namespace {

/// The value of a variable, which the environment then no longer has.
std::string TakeVariable(const char* name) {
  const char* const value = std::getenv(name);
  std::string taken = value ? value : "";
  unsetenv(name);
  return taken;
}

/// 0 for anything else than a number above it.
long NumberOf(const std::string& text) {
  long number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::max(number, 0L);
}

/// Milliseconds between two signs of life; 0 when this process is not watched.
int WatchdogInterval() {
  constexpr long kUsPerMs = 1000;
  constexpr long kSignsInAPeriod = 2;
  const long periodUs = NumberOf(TakeVariable("WATCHDOG_USEC"));
  const std::string watched = TakeVariable("WATCHDOG_PID");
  const bool isAnother = !watched.empty() && NumberOf(watched) != getpid();
  if (periodUs == 0 || isAnother) return 0;
  constexpr long kLongest = 3'600'000;
  return static_cast<int>(std::clamp(periodUs / kUsPerMs / kSignsInAPeriod, 1L, kLongest));
}

}  // namespace

SignsOfLife::SignsOfLife(EventLoop& loop) : Loop(loop), Address(TakeVariable("NOTIFY_SOCKET")) {
  const int interval = WatchdogInterval();
  if (Address.empty()) return;
  Socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  Timer = Loop.StartTimer(1, [this, interval] {
    Loop.StopTimer(*Timer);
    Timer.reset();
    Report("READY=1");
    if (interval > 0) Timer = Loop.StartTimer(interval, [this] { Report("WATCHDOG=1"); });
  });
}

SignsOfLife::~SignsOfLife() {
  if (Timer) Loop.StopTimer(*Timer);
  if (Socket >= 0) close(Socket);
}

/// A report that does not get through is lost: the next one follows in time.
void SignsOfLife::Report(const char* state) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (Address.size() >= sizeof address.sun_path) return;
  std::copy(Address.begin(), Address.end(), address.sun_path);
  if (Address.front() == '@') address.sun_path[0] = '\0';  // an abstract one
  const auto length = offsetof(sockaddr_un, sun_path) + Address.size();
  sendto(Socket, state, std::strlen(state), MSG_NOSIGNAL, reinterpret_cast<sockaddr*>(&address),
         static_cast<socklen_t>(length));
}

}  // namespace marlex
