#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace marlex::test {

/// Looks on, while it lives, at the system calls on files that the code of this program makes in
/// this thread, and lets one of them go wrong. Writes are cut short, as a disk that is nearly full
/// cuts them. One at a time.
class WatchedCalls {
 public:
  struct Plan {
    std::size_t At = 0;   // the call, counted from 1, that goes wrong; 0: none does
    int Error = 0;        // with which it fails, once
    bool Kill = false;    // instead the process is killed in front of it
    int RenameError = 0;  // with which each renaming over a visible name fails; 0: none does
  };

  explicit WatchedCalls(const Plan& plan);
  WatchedCalls(const WatchedCalls&) = delete;
  WatchedCalls& operator=(const WatchedCalls&) = delete;
  ~WatchedCalls();

  /// The calls so far: each its name and, after a blank, the name of its file; "/" is a directory.
  std::vector<std::string> Made;

  /// Called in front of each call, and behind each that succeeded, with its name and its path.
  std::function<void()> OnCall;
  std::function<void(const std::string& call, const std::string& path)> OnDone;

  /// The error with which this call is to fail, after which it counts as made; 0 for none.
  int ErrorOf(const char* call, const std::string& path);
  int ErrorOf(const char* call, int descriptor);
  void Succeeded(const char* call, const std::string& path);
  void Succeeded(const char* call, int descriptor);
  int ErrorOfRename(const std::string& to) const;

 private:
  const Plan ThePlan;
};

}  // namespace marlex::test
