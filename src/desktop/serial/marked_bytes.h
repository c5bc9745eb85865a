#pragma once

#include <string>
#include <string_view>

namespace marlex {

/// Reads what a terminal device delivers under PARMRK. A byte that came with a framing or parity
/// error is FF 00 and the byte, a break of the line is FF 00 00, and a good FF is doubled; nothing
/// else begins with FF.
class MarkedBytes {
 public:
  /// The good bytes among those that were read next. A mark may be cut anywhere between two reads.
  std::string Take(std::string_view read);

 private:
  enum class After { GoodByte, Escape, Mark };

  After State = After::GoodByte;
};

}  // namespace marlex
