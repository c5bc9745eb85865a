#pragma once

#include <string>

#include "desk/desk.h"

namespace marlex {

/// A desk whose journal has wall-clock times: "12:01:00.500 song pause". The clock may pass
/// midnight but must not be set.
class Story : public Desk {
 public:
  explicit Story(const DeskOptions& options);

  /// Discards everything recorded so far and starts at this moment.
  void Begin();

  /// All lines since the beginning. A line that is not an effect of the system, such as a byte from
  /// the amplifier, is added with `Note`.
  std::string Transcript() const;
  void Note(const std::string& line) { Pc.Journal.Write("-", line); }

 private:
  std::int64_t BeganAtMs = 0;  // of the wall clock's day
};

}  // namespace marlex
