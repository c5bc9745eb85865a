#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/serial_port.h"
#include "simulation/journal.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// A serial port with a scripted amplifier at its far end.
class SimulatedSerial : public SerialPort {
 public:
  SimulatedSerial(VirtualLoop& loop, Journal& journal) : Loop(loop), Log(journal) {}

  void SetCommPort(int number) override { Number = number; }
  int CommPort() const override { return Number; }
  void SetPortOpen(bool open) override;
  bool PortOpen() const override { return Open; }
  int InBufferCount() const override { return static_cast<int>(Buffer.size()); }
  std::string Input() override;
  void Output(std::string_view bytes) override;

  struct SentByte {
    std::int64_t AtMs;  // virtual time
    int Value;          // 0 to 255
  };

  /// Every byte that has reached the amplifier.
  const std::vector<SentByte>& Sent() const { return SentBytes; }

  /// Bytes from the amplifier arrive now; the system hears of them with the next event.
  void Receive(std::initializer_list<int> bytes) { Receive(std::vector<int>(bytes)); }
  void Receive(const std::vector<int>& bytes);

  /// Bytes from the amplifier arrive `delayMs` from now.
  void ReceiveIn(std::int64_t delayMs, std::initializer_list<int> bytes);

  /// Pulls the device out: an open port goes dead, a closed one cannot be opened.
  void Unplug();

  /// Puts it back: a port that is meant to be open finds it a second later, and sends the newest
  /// byte that found no device. Each such byte was journalled as "lost" when it was output.
  void Plug();

  /// Whether bytes pass.
  bool Connected() const { return Alive; }

  /// Forgets its state and its handlers, as the end of the process does; the plug stays as it is.
  void Reset();

  /// Number of the port that exists on this PC.
  int Device = 1;

  /// The amplifier's reaction to a byte that has reached it.
  std::function<void(int)> OnSent;

 private:
  void Connect();
  void Send(int value);

  VirtualLoop& Loop;
  Journal& Log;
  int Number = 1;
  bool Plugged = true;
  bool Open = false;
  bool Alive = false;
  std::string Buffer;
  std::optional<int> Owed;  // the newest byte that found no device
  std::vector<SentByte> SentBytes;
};

}  // namespace marlex
