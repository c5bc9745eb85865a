#pragma once

#include <string>

#include "desk/desk.h"

namespace marlex {

/// A desk whose journal is told by the wall clock: "12:01:00.500 song pause". The clock may go over
/// midnight but must not be set.
class Story : public Desk {
 public:
  explicit Story(const DeskOptions& options);

  /// Forgets what has happened and tells from this moment on.
  void Begin();

  /// All lines since the beginning; a line that is no effect of the system, such as a byte from the
  /// amplifier, is put in with `Note`.
  std::string Told() const;
  void Note(const std::string& line) { Pc.Journal.Write("-", line); }

 private:
  std::int64_t BeganAtMs = 0;  // of the wall clock's day
};

}  // namespace marlex
