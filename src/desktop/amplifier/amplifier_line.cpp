#include "desktop/amplifier/amplifier_line.h"

#include <poll.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>

namespace marlex {

namespace {

constexpr int kLookEveryMs = 50;

}  // namespace

void AmplifierLine::DeleteLater::operator()(QSocketNotifier* notifier) const {
  notifier->setEnabled(false);
  notifier->deleteLater();  // it may be the one whose event is being handled
}

AmplifierLine::AmplifierLine(EventLoop& loop, const std::string& link)
    : Loop(loop), Terminal(link) {}

AmplifierLine::~AmplifierLine() { Loop.StopTimer(Timer); }

std::string AmplifierLine::Open() {
  std::string fault = Terminal.PlugIn();
  if (fault.empty()) Timer = Loop.StartTimer(kLookEveryMs, [this] { Look(); });
  return fault;
}

bool AmplifierLine::Send(char byte) {
  return HasDesk() && write(Terminal.Descriptor(), &byte, 1) == 1;
}

/// A line that nobody has open would signal events without end, so it is looked at now and then.
void AmplifierLine::Look() {
  if (HasDesk()) return;
  pollfd far{Terminal.Descriptor(), POLLIN, 0};
  if (poll(&far, 1, 0) < 0) return;
  const bool hasCome = (far.revents & POLLHUP) == 0;
  const bool hasComeAndGone = !hasCome && (far.revents & POLLIN) != 0;
  if (!hasCome && !hasComeAndGone) return;
  Reader.reset(new QSocketNotifier(Terminal.Descriptor(), QSocketNotifier::Read));
  QObject::connect(Reader.get(), &QSocketNotifier::activated, [this] { Receive(); });
  if (OnDesk) OnDesk();
}

/// The bytes that a desk has left are read before its hanging up is.
void AmplifierLine::Receive() {
  std::array<char, 256> bytes;
  const ssize_t count = read(Terminal.Descriptor(), bytes.data(), bytes.size());
  if (count > 0) {
    if (OnBytes) OnBytes({bytes.data(), static_cast<std::size_t>(count)});
    return;
  }
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  LoseDesk();
}

/// Keeps the old device if something else has taken the link in the meantime.
void AmplifierLine::LoseDesk() {
  Reader.reset();
  Terminal.PlugIn();
  if (OnDesk) OnDesk();
}

}  // namespace marlex
