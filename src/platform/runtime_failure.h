#pragma once

#include <stdexcept>
#include <string>

namespace marlex {

/// A violation of one of the system's rules: an index out of range, a text of length -1, a text
/// that should be a number. It ends the operation in which it occurs and is shown to the operator.
/// Faults of the outside world (a missing file, a dead port) are never thrown but returned as
/// values.
class RuntimeFailure : public std::runtime_error {
 public:
  explicit RuntimeFailure(const std::string& what) : std::runtime_error(what) {}
};

/// Runs `work` and returns its result. A `RuntimeFailure` is rethrown with `place`, a file or a
/// field of one, in front of its text, so that the reader knows what to correct.
template <class Work>
auto AtPlace(const std::string& place, Work work) {
  try {
    return work();
  } catch (const RuntimeFailure& failure) {
    throw RuntimeFailure(place + ": " + failure.what());
  }
}

}  // namespace marlex
