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

/// A serial port with a scripted amplifier at the other end.
class SimulatedSerial : public SerialPort {
 public:
  SimulatedSerial(VirtualLoop& loop, Journal& journal) : Loop(loop), Log(journal) {}

  void SetCommPort(int number) override { Number = number; }
  int CommPort() const override { return Number; }
  void SetPortOpen(bool open) override;
  bool PortOpen() const override { return Open; }
  bool Connected() const override { return Alive; }
  int InBufferCount() const override { return static_cast<int>(Buffer.size()); }
  std::string Input() override;
  void Output(std::string_view bytes) override;

  struct SentByte {
    std::int64_t AtMs;  // virtual time
    int Value;          // 0 to 255
  };

  /// All bytes that have reached the amplifier.
  const std::vector<SentByte>& Sent() const { return SentBytes; }

  /// Forgets the bytes that have been sent so far.
  void ForgetSent() { SentBytes.clear(); }

  /// Receives bytes from the amplifier now; the system is notified by the next event.
  void Receive(std::initializer_list<int> bytes) { Receive(std::vector<int>(bytes)); }
  void Receive(const std::vector<int>& bytes);

  /// Receives bytes from the amplifier `delayMs` milliseconds from now.
  void ReceiveIn(std::int64_t delayMs, std::initializer_list<int> bytes);

  /// Unplugs the device: an open port goes dead, and a closed one cannot be opened.
  void Unplug();

  /// Plugs the device in again: a port that should be open finds it a second later, and sends the
  /// newest byte that was output without a device. Each such byte was journalled as "lost" at the
  /// time.
  void Plug();

  /// Forgets its state and its handlers, as the end of the process does; the device stays plugged
  /// or unplugged.
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
  int Number = 1;      // the port that the next opening takes
  int OpenNumber = 1;  // the port that should be open
  bool Plugged = true;
  bool Open = false;
  bool Alive = false;
  std::string Buffer;
  std::optional<int> Owed;  // the newest byte output without a device
  std::vector<SentByte> SentBytes;
};

}  // namespace marlex
