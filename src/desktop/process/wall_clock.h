#pragma once

#include <ctime>

#include "platform/wall_clock.h"

namespace marlex {

/// The system's clock in the system's time zone. A zone that is changed while the program runs
/// counts from the next call on.
class SystemClock : public WallClock {
 public:
  LocalTime Now() const override;
};

/// Local time of a moment, in seconds since 1 January 1970 UTC, in the time zone of now.
LocalTime LocalTimeAt(std::time_t moment);

}  // namespace marlex
