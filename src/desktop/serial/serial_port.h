#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/serial/tty_line.h"
#include "platform/event_loop.h"
#include "platform/lifeline.h"
#include "platform/serial_port.h"

class QSocketNotifier;

namespace marlex {

/// Directories in which a port number is looked for.
struct SerialPlaces {
  std::string ProgramDirectory;
  std::string DeviceDirectory = "/dev";
};

/// The serial line on a terminal device. Port number n is the first of these that exists:
///
///  1. `com<n>` beside the program: a link to the device of this desk, set by whoever installs it.
///     It decides even while it points nowhere, since it names an adapter that is unplugged.
///  2. `/dev/com<n>`, a link likewise.
///  3. `/dev/ttyS<n-1>`, a port of the board, where there is hardware behind it.
///  4. `/dev/ttyUSB<n-1>`, an adapter.
///
/// A device that answers an error or hangs up is closed at once, for a dead one would report
/// without end. The look-up then begins again each second, so an adapter is found under its new
/// name, and hears the newest byte that found it away.
class TtySerialPort : public SerialPort {
 public:
  TtySerialPort(EventLoop& loop, SerialPlaces places);
  ~TtySerialPort() override;
  TtySerialPort(const TtySerialPort&) = delete;
  TtySerialPort& operator=(const TtySerialPort&) = delete;

  void SetCommPort(int number) override { NextNumber = number; }
  int CommPort() const override { return NextNumber; }
  void SetPortOpen(bool open) override;
  bool PortOpen() const override { return Wanted; }
  int InBufferCount() const override { return static_cast<int>(Received.size()); }
  std::string Input() override;
  void Output(std::string_view bytes) override;

 private:
  struct DeleteLater {
    void operator()(QSocketNotifier* notifier) const;
  };
  using Notifier = std::unique_ptr<QSocketNotifier, DeleteLater>;

  int TryOpen();
  void Listen();
  void Retry();
  void StopRetrying();
  void CloseLine();
  void LoseLine();
  void SendOwed();
  void ReportFault(int error);
  void Receive();
  void Flush();

  EventLoop& Loop;
  const SerialPlaces Places;
  int NextNumber = 1;  // the port that the next opening takes
  int Number = 1;      // the port that is meant to be open
  bool Wanted = false;

  std::optional<TtyLine> Line;  // empty while there is no device
  Notifier Reader;
  Notifier Writer;       // enabled only while `Unsent` holds bytes
  std::string Received;  // at most 1024 bytes
  std::string Unsent;    // what the kernel did not take yet, at most 512 bytes
  std::string Owed;      // the newest byte that found no device; empty when none did
  EventLoop::TimerId RetryTimer = 0;
  const Lifeline Life;
};

}  // namespace marlex
