#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "byte_reader.h"
#include "desktop/amplifier/linked_terminal.h"

namespace marlex::stage {

/// One byte on the line, with the steady time at which it arrived, in seconds.
struct LineByte {
  double Time = 0;
  int Value = 0;
};

/// The far end of the serial line: a pseudo-terminal with a name that the program opens.
class Amplifier {
 public:
  /// Creates the line and links it as `link` ("<installation>/com1").
  explicit Amplifier(const std::string& link);
  ~Amplifier();

  /// Unplugs the line: its device is gone, and the link points nowhere.
  void PullOut();

  /// Plugs it in again, as another device under the same link.
  void PlugIn();

  /// All bytes that the program has sent so far.
  std::vector<LineByte> Received() const;

  /// Sends a status byte to the program.
  void Send(int status);

 private:
  LinkedTerminal Terminal;
  int Slave = -1;  // kept open, so that the line stays up when the program closes its end
  mutable std::mutex Lock;
  std::vector<LineByte> Bytes;
  std::unique_ptr<ByteReader> Reader;
};

}  // namespace marlex::stage
