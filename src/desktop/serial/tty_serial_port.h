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

/// Directories in which a port is looked up.
struct SerialPlaces {
  std::string ProgramDirectory;
  std::string DeviceDirectory = "/dev";
};

/// The serial line on a terminal device. Port number n is the first of these that exists:
///
///  1. `com<n>` beside the program: a link to the device on this PC, made by the installer. It
///     decides even if it is dangling, since it then names an adapter that is unplugged.
///  2. `/dev/com<n>`, a link likewise.
///  3. `/dev/ttyS<n-1>`, a port of the board, if its hardware exists.
///  4. `/dev/ttyUSB<n-1>`, an adapter.
///
/// A device that reports an error or hangs up is closed at once, since a dead one would signal
/// events without end. The look-up is then repeated every second, so that an adapter is found under
/// its new name. It is then sent the newest byte that was output while it was gone.
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
  bool Connected() const override { return Line.has_value(); }
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
  int Number = 1;      // the port that should be open
  bool Wanted = false;

  std::optional<TtyLine> Line;  // empty while there is no device
  Notifier Reader;
  Notifier Writer;       // enabled only while `Unsent` holds bytes
  std::string Received;  // at most 1024 bytes
  std::string Unsent;    // what the kernel has not taken yet, at most 512 bytes
  std::string Owed;      // the newest byte output without a device; empty if none
  EventLoop::TimerId RetryTimer = 0;
  const Lifeline Life;
};

}  // namespace marlex
