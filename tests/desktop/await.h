#pragma once

#include <chrono>
#include <functional>

#include <gtest/gtest.h>

#include "desktop/process/qt_event_loop.h"

namespace marlex {

/// Delivers events until the condition holds, and fails the test when it does not hold in time.
inline testing::AssertionResult Await(QtEventLoop& loop, const std::function<bool()>& done) {
  using SteadyClock = std::chrono::steady_clock;
  constexpr std::chrono::seconds kLimit{30};  // for what must happen, however busy the machine is
  const auto deadline = SteadyClock::now() + kLimit;
  const auto watchdog = loop.StartTimer(20, [] {});
  bool held = false;
  loop.PumpUntil([&] { return (held = done()) || SteadyClock::now() > deadline; });
  loop.StopTimer(watchdog);
  return held ? testing::AssertionSuccess() : testing::AssertionFailure() << "waited in vain";
}

}  // namespace marlex
