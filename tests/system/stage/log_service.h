#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "byte_reader.h"
#include "sound/child_process.h"

namespace marlex::stage {

/// A line of the log, without the program's name, and the steady time at which it arrived, in
/// seconds.
struct LogLine {
  double Time = 0;
  std::string Text;
};

/// The log service of the machine on which the program under test runs.
class LogService {
 public:
  explicit LogService(const std::string& folder);

  Environment Variables() const { return {{"MARLEX_LOG_SOCKET", Address}}; }

  std::vector<LogLine> Lines() const;

  /// Whether the log has this line.
  bool Has(const std::string& text) const;

 private:
  const std::string Address;
  mutable std::mutex Lock;
  std::vector<LogLine> Received;
  std::unique_ptr<ByteReader> Reader;
};

}  // namespace marlex::stage
