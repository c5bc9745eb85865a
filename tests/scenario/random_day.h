#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "scenario/watched_desk.h"

namespace marlex {

/// One thing that befalls the desk.
struct Happening {
  std::int64_t AtMs = 0;  // of the day
  std::string What;       // for whoever reads the list
  std::function<void(WatchedDesk&)> Do;
};

/// An installation and what happens to it in three quarters of an hour, or, sparsely, in a week,
/// all drawn from one seed. What happens is fixed beforehand and does not look at the desk, so that
/// a day may be told again with some of it left out.
struct RandomDay {
  enum class Span { Day, Week };
  explicit RandomDay(std::uint64_t seed, Span span = Span::Day);

  static constexpr int kLivedMs = 45 * 60'000;   // of a day
  static constexpr int kLongestMs = 3 * 60'000;  // that a call or a fault lasts

  std::int64_t LengthMs;
  DeskOptions Installation;
  std::function<void(SimulatedPc&)> Prepare;  // files beside those of the options
  std::vector<Happening> Happenings;          // in the order of their times

  /// The installation in a few lines.
  std::string Describe() const;
};

/// Whatever a random day may have broken, as the paths that a healing has to name.
const std::vector<std::string>& BreakablePaths();

// Always sound, though not at first in use: a list of one song without a window, and a schedule of
// a row every ten minutes.
inline constexpr const char* kGoodPlaylist = "/app/Good.lst";
inline constexpr const char* kGoodSchedule = "/app/good.sch";

}  // namespace marlex
