#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "desktop/serial/marked_bytes.h"

namespace marlex {

/// One open terminal device, set to the amplifier's line: 19200 baud, 8 data bits, no parity, 1
/// stop bit, no handshake, nothing translated. It is opened without becoming the controlling
/// terminal, for this process alone, and leaves the control lines as they are when it is closed, so
/// that no relay clicks.
///
/// A break of the line and a byte with a framing error are no bytes: read as such they would look
/// like status 0 or any other. The device is asked to mark them (INPCK and PARMRK), for drivers
/// that are to drop them themselves (IGNPAR) do so in part only, and what is marked is left out.
class TtyLine {
 public:
  /// Empty when the device cannot be opened or is no terminal; `error` is the number then (errno).
  /// A serial port of the board whose hardware is absent answers ENODEV.
  static std::optional<TtyLine> Open(const std::string& path, int& error);

  TtyLine(TtyLine&& other) noexcept;
  TtyLine& operator=(TtyLine&& other) noexcept;
  ~TtyLine();

  int Descriptor() const { return Device; }

  /// Takes bytes that wait, those with an error left out; empty optional when the device is gone.
  std::optional<std::string> Read();

  /// Hands bytes to the kernel without waiting: how many it took, -1 when the device is gone.
  int Write(std::string_view bytes);

 private:
  explicit TtyLine(int device) : Device(device) {}
  bool HasHardware() const;
  bool Configure();

  int Device = -1;
  MarkedBytes Marks;
};

}  // namespace marlex
