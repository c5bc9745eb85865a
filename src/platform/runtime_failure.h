#pragma once

#include <stdexcept>
#include <string>

namespace marlex {

/// A broken rule of the system's own: an index out of range, a text of length -1, a number that is
/// none. It ends the operation that met it and is shown to the operator; faults of the world (a
/// missing file, a dead port) are never thrown but answered as values.
class RuntimeFailure : public std::runtime_error {
 public:
  explicit RuntimeFailure(const std::string& what) : std::runtime_error(what) {}
};

/// Result of the work. A RuntimeFailure in it is passed on with the place, a file or a field of
/// one, in front of its text, so that whoever reads it knows what to put right.
template <class Work>
auto AtPlace(const std::string& place, Work work) {
  try {
    return work();
  } catch (const RuntimeFailure& failure) {
    throw RuntimeFailure(place + ": " + failure.what());
  }
}

}  // namespace marlex
