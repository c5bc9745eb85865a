#pragma once

#include <string>

namespace marlex {

/// The machine's log, in which somebody can look up later what happened.
class SystemLog {
 public:
  virtual ~SystemLog() = default;

  /// Adds a line of UTF-8. Never blocks: a line that the log cannot take at once is dropped.
  virtual void Write(const std::string& line) = 0;
};

}  // namespace marlex
