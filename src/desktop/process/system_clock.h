#pragma once

#include <ctime>

#include "platform/wall_clock.h"

namespace marlex {

/// The system's clock in the system's time zone. A change of the time zone takes effect with the
/// next call.
class SystemClock : public WallClock {
 public:
  LocalTime Now() const override;
  std::int64_t AheadMs() const override;
};

/// Local time in the current time zone, `moment` seconds after 1 January 1970 UTC. A leap second
/// counts as the second before it.
LocalTime LocalTimeAt(std::time_t moment);

}  // namespace marlex
