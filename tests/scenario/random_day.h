#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "scenario/watched_desk.h"

namespace marlex {

/// One thing that happens to the desk.
struct Happening {
  std::int64_t AtMs = 0;  // of the day
  std::string What;       // for the reader of the list
  std::function<void(WatchedDesk&)> Do;
};

/// An installation and everything that happens to it in three quarters of an hour or, more
/// sparsely, in a week, all drawn from one seed. The events are fixed beforehand and do not depend
/// on the desk, so that a day can be run again with some of them left out.
struct RandomDay {
  enum class Span { Day, Week };
  explicit RandomDay(std::uint64_t seed, Span span = Span::Day);

  static constexpr int kLivedMs = 45 * 60'000;   // of a day
  static constexpr int kLongestMs = 3 * 60'000;  // that a call or a fault lasts

  std::int64_t LengthMs;
  DeskOptions Installation;
  std::function<void(SimulatedPc&)> Prepare;  // adds files to those of the options
  std::vector<Happening> Happenings;          // in the order of their times

  /// The installation in a few lines.
  std::string Describe() const;
};

/// Everything that a random day may have broken, as the paths that a repair has to name.
const std::vector<std::string>& BreakablePaths();

// Never broken, though not in use at first: a list of one song without a window, and a schedule
// with a row every ten minutes.
inline constexpr const char* kGoodPlaylist = "/app/Good.lst";
inline constexpr const char* kGoodSchedule = "/app/good.sch";

}  // namespace marlex
