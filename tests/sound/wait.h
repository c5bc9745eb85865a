#pragma once

#include <functional>

namespace marlex::stage {

/// Seconds on the steady clock of the machine, which all processes share.
double Now();

/// Tests the condition every few milliseconds until it holds or the limit has passed. Returns
/// whether it held.
bool WaitUntil(const std::function<bool()>& condition, double limitSeconds);

}  // namespace marlex::stage
