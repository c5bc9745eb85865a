#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace marlex::test {

/// While it lives, watches the file system calls that the code of this program makes in this
/// thread, except at the amplifier's end of a serial line, and makes one of them fail. Writes are
/// cut short, as on a disk that is nearly full. Only one may exist at a time.
class WatchedCalls {
 public:
  struct Plan {
    std::size_t At = 0;   // the call that fails, counted from 1; 0: none
    int Error = 0;        // with which it fails, once
    bool Kill = false;    // kill the process just before that call instead
    int RenameError = 0;  // with which every rename over a visible name fails; 0: none fails
  };

  explicit WatchedCalls(const Plan& plan);
  WatchedCalls(const WatchedCalls&) = delete;
  WatchedCalls& operator=(const WatchedCalls&) = delete;
  ~WatchedCalls();

  /// The calls so far: the name of each, a blank, and the name of its file; "/" is a directory.
  std::vector<std::string> Made;

  /// Called before each call, and after each that succeeded, with its name and its path.
  std::function<void()> OnCall;
  std::function<void(const std::string& call, const std::string& path)> OnDone;

  /// The error with which this call is to fail; 0 for none. A call that is to fail counts as made.
  int ErrorOf(const char* call, const std::string& path);
  int ErrorOf(const char* call, int descriptor);
  void Succeeded(const char* call, const std::string& path);
  void Succeeded(const char* call, int descriptor);
  int ErrorOfRename(const std::string& to) const;

 private:
  const Plan ThePlan;
};

}  // namespace marlex::test
