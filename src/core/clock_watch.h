#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/wall_clock.h"

namespace marlex {

/// Notices when somebody sets the wall clock: rows between the time before and the time after are
/// then lost or announced again. Summer time and another time zone are not noticed.
class ClockWatch {
 public:
  explicit ClockWatch(WallClock& clock) : Clock(clock) {}

  /// Call once a second.
  void Look();

  /// The time before and after the last jump, for some minutes; empty afterwards, and as soon as
  /// the clock is set back to where it was.
  const std::string& Jump() const { return JumpText; }

 private:
  void Note(std::int64_t aheadMs);

  WallClock& Clock;
  std::optional<std::int64_t> LastAheadMs;  // none before the first look
  LocalTime LastTime;
  std::string JumpText;
  std::int64_t FormerAheadMs = 0;  // before the first of the jumps since the clock was right
  int LooksLeft = 0;               // for which it is shown
};

}  // namespace marlex
