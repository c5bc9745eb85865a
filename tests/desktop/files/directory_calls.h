#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace marlex::test {

/// While it lives, counts the calls by which this thread examines directories, those that the
/// standard library makes among them, and makes one of them fail. Only one may exist at a time.
class DirectoryCalls {
 public:
  /// `at` is the call that fails, counted from 1; 0 for none.
  explicit DirectoryCalls(std::size_t at = 0, int error = 0);
  DirectoryCalls(const DirectoryCalls&) = delete;
  DirectoryCalls& operator=(const DirectoryCalls&) = delete;
  ~DirectoryCalls();

  std::vector<std::string> Made;  // so far

  /// Counts a call, and says whether it fails; `errno` then says how.
  bool Fails(const char* call);

 private:
  const std::size_t At;
  const int Error;
};

}  // namespace marlex::test
