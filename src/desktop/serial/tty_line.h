#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "desktop/serial/marked_bytes.h"

namespace marlex {

/// One open terminal device, set up for the amplifier: 19200 baud, 8 data bits, no parity, 1 stop
/// bit, no handshake, no translation. It is opened exclusively and does not become the controlling
/// terminal. Closing it leaves the control lines as they are, so that no relay clicks.
///
/// A break and a byte with a framing error are not data: read as bytes, they would look like status
/// 0 or any other. The device is asked to mark them (INPCK and PARMRK), and what is marked is left
/// out; asked to drop them itself (IGNPAR), it might pass some on, as some drivers do.
class TtyLine {
 public:
  /// Empty when the device cannot be opened or is not a terminal; `error` is then the `errno`
  /// value. ENODEV stands for a serial port of the board whose hardware is missing.
  static std::optional<TtyLine> Open(const std::string& path, int& error);

  TtyLine(TtyLine&& other) noexcept;
  TtyLine& operator=(TtyLine&& other) noexcept;
  ~TtyLine();

  int Descriptor() const { return Device; }

  /// Returns the bytes that are waiting, without those received with an error; empty optional when
  /// the device is gone. Does not wait.
  std::optional<std::string> Read();

  /// Passes bytes to the kernel without waiting, and returns how many it took; -1 when the device
  /// is gone.
  int Write(std::string_view bytes);

 private:
  explicit TtyLine(int device) : Device(device) {}
  bool HasHardware() const;
  bool Configure();

  int Device = -1;
  MarkedBytes Marks;
};

}  // namespace marlex
