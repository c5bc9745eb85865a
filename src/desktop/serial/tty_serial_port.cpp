#include "desktop/serial/tty_serial_port.h"

#include <QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace marlex {

namespace {

constexpr std::size_t kInBufferSize = 1024;
constexpr std::size_t kOutBufferSize = 512;
constexpr int kRetryIntervalMs = 1000;

/// A file that could be the port. If `Decides` is set, it is the port if it exists, wherever it
/// leads.
struct Candidate {
  std::string Path;
  bool Decides;
};

std::vector<Candidate> Candidates(const SerialPlaces& places, int number) {
  const std::string link = "/com" + std::to_string(number);
  const std::string index = std::to_string(number - 1);
  return {{places.ProgramDirectory + link, true},
          {places.DeviceDirectory + link, true},
          {places.DeviceDirectory + "/ttyS" + index, false},
          {places.DeviceDirectory + "/ttyUSB" + index, false}};
}

bool IsAbsent(int error) { return error == ENODEV || error == ENOENT; }

/// Whether a name exists in its directory, even as a dangling link.
bool IsNamed(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
}

}  // namespace

void TtySerialPort::DeleteLater::operator()(QSocketNotifier* notifier) const {
  notifier->setEnabled(false);
  notifier->deleteLater();  // it may be the one whose event is being handled
}

TtySerialPort::TtySerialPort(EventLoop& loop, SerialPlaces places)
    : Loop(loop), Places(std::move(places)) {}

TtySerialPort::~TtySerialPort() { TtySerialPort::SetPortOpen(false); }

void TtySerialPort::SetPortOpen(bool open) {
  if (open == Wanted) return;
  Wanted = open;
  Owed.clear();
  Received.clear();
  if (!open) {
    StopRetrying();
    CloseLine();
    return;
  }
  Number = NextNumber;
  if (const int error = TryOpen(); error != 0) {
    ReportFault(error);
    Retry();
  }
}

/// Opens the device of port `Number`. Returns 0, or the error of the file that decided.
int TtySerialPort::TryOpen() {
  int error = ENODEV;
  for (const Candidate& candidate : Candidates(Places, Number)) {
    if (!IsNamed(candidate.Path)) continue;
    Line = TtyLine::Open(candidate.Path, error);
    if (Line) {
      Listen();
      return 0;
    }
    if (candidate.Decides || !IsAbsent(error)) return error;
  }
  return ENODEV;
}

void TtySerialPort::Listen() {
  Reader.reset(new QSocketNotifier(Line->Descriptor(), QSocketNotifier::Read));
  QObject::connect(Reader.get(), &QSocketNotifier::activated, [this] { Receive(); });
  Writer.reset(new QSocketNotifier(Line->Descriptor(), QSocketNotifier::Write));
  Writer->setEnabled(false);
  QObject::connect(Writer.get(), &QSocketNotifier::activated, [this] { Flush(); });
}

void TtySerialPort::Retry() {
  RetryTimer = Loop.StartTimer(kRetryIntervalMs, [this] {
    if (TryOpen() != 0) return;
    StopRetrying();
    SendOwed();
  });
}

void TtySerialPort::StopRetrying() { Loop.StopTimer(std::exchange(RetryTimer, 0)); }

void TtySerialPort::CloseLine() {
  if (Line) Line->Write(Unsent);
  Reader.reset();
  Writer.reset();
  Line.reset();
  Unsent.clear();
}

void TtySerialPort::LoseLine() {
  if (!Unsent.empty()) Owed = Unsent.back();
  CloseLine();
  Retry();
}

/// Reports as an event of the loop, not from within the opening: an unanswered box must not hold up
/// the start of the program.
void TtySerialPort::ReportFault(int error) {
  const std::string text =
      "COM" + std::to_string(Number) + ": " + std::generic_category().message(error);
  Loop.Post(Life.Guard([this, text] {
    if (OnFault) OnFault(text);
  }));
}

std::string TtySerialPort::Input() { return std::exchange(Received, {}); }

void TtySerialPort::Receive() {
  const std::optional<std::string> bytes = Line->Read();
  if (!bytes) return LoseLine();
  if (bytes->empty()) return;
  const std::size_t room = kInBufferSize - Received.size();
  Received += bytes->substr(0, room);
  Loop.Deliver([this] {
    if (OnComm) OnComm();
  });
}

void TtySerialPort::Output(std::string_view bytes) {
  if (!Wanted || bytes.empty()) return;
  if (!Line) {
    Owed = bytes.back();
    return;
  }
  Unsent.append(bytes);
  Flush();
}

void TtySerialPort::SendOwed() {
  Unsent = std::exchange(Owed, {});
  Flush();
}

/// Sends what the line takes; the rest follows when the line takes more. If there is too much, the
/// newest bytes are kept, since the last one says what the amplifier must do now.
void TtySerialPort::Flush() {
  const int count = Line->Write(Unsent);
  if (count < 0) return LoseLine();
  Unsent.erase(0, count);
  if (Unsent.size() > kOutBufferSize) Unsent.erase(0, Unsent.size() - kOutBufferSize);
  Writer->setEnabled(!Unsent.empty());
}

}  // namespace marlex
