#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace marlex {

/// Something that must always hold did not.
struct BrokenRule : std::logic_error {
  using std::logic_error::logic_error;
};

/// Throws a BrokenRule with this text where the rule does not hold.
inline void Require(bool holds, std::string_view rule) {
  if (!holds) throw BrokenRule(std::string(rule));
}

}  // namespace marlex
