#pragma once

#include <string>
#include <string_view>

namespace marlex {

/// Decodes what a terminal device delivers with PARMRK set (termios(3)): a byte received with a
/// framing or parity error is FF 00 followed by the byte, a break is FF 00 00, and a good FF is
/// doubled. Nothing else begins with FF.
class MarkedBytes {
 public:
  /// Returns the good bytes among the next ones read. A mark may be split anywhere between two
  /// reads.
  std::string Take(std::string_view read);

 private:
  enum class After { GoodByte, Escape, Mark };

  After State = After::GoodByte;
};

}  // namespace marlex
