#pragma once

#include <exception>
#include <string>
#include <utility>

namespace marlex {

/// A violation of one of the system's rules: an index out of range, a text of length -1, a text
/// that should be a number. It ends the operation in which it occurs and is shown to the operator.
/// Faults of the outside world (a missing file, a dead port) are never thrown but returned as
/// values.
class RuntimeFailure : public std::exception {
 public:
  explicit RuntimeFailure(std::string text) : Text(std::move(text)) {}

  const char* what() const noexcept override { return Text.c_str(); }

  /// The places where it occurred, each followed by ": "; empty if none was added.
  const std::string& Place() const { return Places; }

  /// Puts a place in front of the others, and of the text.
  void AddPlace(const std::string& place) {
    Places.insert(0, place + ": ");
    Text.insert(0, place + ": ");
  }

 private:
  std::string Text;  // with the places
  std::string Places;
};

/// Runs `work` and returns its result. A `RuntimeFailure` gets `place`, a file or a field of one,
/// in front of its text, so that the reader knows what to correct.
template <class Work>
auto AtPlace(const std::string& place, Work work) {
  try {
    return work();
  } catch (RuntimeFailure& failure) {
    failure.AddPlace(place);
    throw;
  }
}

}  // namespace marlex
