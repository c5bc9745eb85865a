#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace marlex {

/// Byte pipe to the amplifier: 19200 baud, 8 data bits, no parity, 1 stop bit, no handshake. Calls
/// and callbacks are on the system's thread; nothing blocks. A port that cannot be opened reports
/// once through `OnFault`; while there is no device it is looked for once a second and opened again
/// without a word.
///
/// Each byte that goes out says what the amplifier is to do from now on, so of those that found no
/// device the newest goes out when there is one again, and the others never do. What was output
/// before the port was closed is forgotten with the closing.
///
/// Bytes that the line has spoilt (a framing error) and breaks of the line are no input: nothing is
/// reported and nothing waits.
class SerialPort {
 public:
  virtual ~SerialPort() = default;

  /// Number of the port that the next opening takes, from 1. The design value is 1.
  virtual void SetCommPort(int number) = 0;
  virtual int CommPort() const = 0;

  /// Whether the port is meant to be open. Opening an open port and closing a closed one do
  /// nothing.
  virtual void SetPortOpen(bool open) = 0;
  virtual bool PortOpen() const = 0;

  /// Bytes that wait in the input buffer, at most 1024; what comes beyond that is lost.
  virtual int InBufferCount() const = 0;

  /// Takes the whole input buffer; each char is one byte off the wire, 0 to 255.
  virtual std::string Input() = 0;

  /// Sends bytes; each char is one byte on the wire, 0 to 255. Where there is a device, they have
  /// left the program when the call returns. A closed port swallows them.
  virtual void Output(std::string_view bytes) = 0;

  /// At least one byte waits in the input buffer.
  std::function<void()> OnComm;

  /// The port could not be opened; the text is for the operator.
  std::function<void(const std::string&)> OnFault;
};

}  // namespace marlex
