#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace marlex {

/// One open terminal device, set to the amplifier's line: 19200 baud, 8 data bits, no parity, 1
/// stop bit, no handshake, nothing translated. It is opened without becoming the controlling
/// terminal, for this process alone, and leaves the control lines as they are when it is closed, so
/// that no relay clicks. Bytes with a framing error and breaks are dropped by the driver: as a
/// byte, a break of the line would read as status 0.
class TtyLine {
 public:
  /// Empty when the device cannot be opened or is no terminal; `error` is the number then (errno).
  /// A serial port of the board whose hardware is absent answers ENODEV.
  static std::optional<TtyLine> Open(const std::string& path, int& error);

  TtyLine(TtyLine&& other) noexcept;
  TtyLine& operator=(TtyLine&& other) noexcept;
  ~TtyLine();

  int Descriptor() const { return Device; }

  /// Takes bytes that wait: how many, 0 when there are none now, -1 when the device is gone.
  int Read(char* buffer, std::size_t size);

  /// Hands bytes to the kernel without waiting: how many it took, -1 when the device is gone.
  int Write(std::string_view bytes);

 private:
  explicit TtyLine(int device) : Device(device) {}
  bool HasHardware() const;
  bool Configure();

  int Device = -1;
};

}  // namespace marlex
