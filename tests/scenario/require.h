#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace marlex {

/// A rule that must always hold was broken.
struct BrokenRule : std::logic_error {
  using std::logic_error::logic_error;
};

/// Throws a BrokenRule with this text unless the rule holds.
inline void Require(bool holds, std::string_view rule) {
  if (!holds) throw BrokenRule(std::string(rule));
}

}  // namespace marlex
