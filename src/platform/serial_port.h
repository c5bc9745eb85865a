#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace marlex {

/// Byte pipe to the amplifier: 19200 baud, 8 data bits, no parity, 1 stop bit, no handshake. Calls
/// and callbacks are on the system's thread; nothing blocks. A port that cannot be opened is
/// reported once through `OnFault`; a missing device is then looked for once a second and opened
/// silently.
///
/// Each outgoing byte says what the amplifier must do from now on. So, of the bytes output while
/// there is no device, only the newest is sent when there is one again. Closing the port discards
/// it.
///
/// Bytes received with a framing error and breaks on the line are not input: they are dropped
/// without a report.
class SerialPort {
 public:
  virtual ~SerialPort() = default;

  /// Number of the port that the next opening takes, from 1; initially 1. A port that is open stays
  /// what it is, also when its device comes back.
  virtual void SetCommPort(int number) = 0;
  virtual int CommPort() const = 0;

  /// Whether the port should be open. Opening an open port and closing a closed one have no effect.
  /// Closing empties the input buffer; what was output before is still sent.
  virtual void SetPortOpen(bool open) = 0;
  virtual bool PortOpen() const = 0;

  /// Whether the port is open and its device there, as far as that can be seen without sending.
  virtual bool Connected() const = 0;

  /// Bytes waiting in the input buffer, at most 1024; what exceeds that is lost.
  virtual int InBufferCount() const = 0;

  /// Takes the whole input buffer; each char is one byte from the wire, 0 to 255.
  virtual std::string Input() = 0;

  /// Sends bytes; each char is one byte on the wire, 0 to 255. Those that the device takes at once
  /// have left the program when the call returns. Does not wait: the others are sent as it takes
  /// more, and of a long backlog the oldest bytes are dropped. A closed port discards them.
  virtual void Output(std::string_view bytes) = 0;

  /// Called when at least one byte waits in the input buffer.
  std::function<void()> OnComm;

  /// Called when the port could not be opened; the text is for the operator.
  std::function<void(const std::string&)> OnFault;
};

}  // namespace marlex
