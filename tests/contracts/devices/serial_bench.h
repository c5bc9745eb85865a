#pragma once

#include <functional>
#include <memory>
#include <string>

#include "contracts/both_pcs.h"
#include "platform/serial_port.h"

namespace marlex {

/// The serial port of one of the PCs, with an amplifier that can be plugged in.
class SerialBench {
 public:
  virtual ~SerialBench() = default;

  virtual SerialPort& Port() = 0;

  /// Plug the amplifier into the port of this number, and unplug it.
  virtual void Plug(int number) = 0;
  virtual void Unplug() = 0;

  /// The amplifier sends bytes.
  virtual void Send(const std::string& bytes) = 0;

  /// All bytes that the amplifier has received, across all plugs.
  virtual const std::string& Arrived() = 0;

  /// Delivers events until `done` holds; false when it does not hold in time.
  virtual bool Await(const std::function<bool()>& done) = 0;

  /// Delivers the events of so much time.
  virtual void LetPass(int ms) = 0;
};

std::unique_ptr<SerialBench> MakeSerialBench(PcKind pc);

}  // namespace marlex
