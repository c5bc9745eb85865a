#pragma once

#include <string>

namespace marlex::test {

/// While it lives, and until `Arrive`, this program cannot finish opening a file whose path begins
/// with this one, on any of its threads. Only one may exist at a time.
class SlowDrive {
 public:
  explicit SlowDrive(const std::string& path);
  SlowDrive(const SlowDrive&) = delete;
  SlowDrive& operator=(const SlowDrive&) = delete;
  ~SlowDrive() { Arrive(); }

  void Arrive();
};

/// Waits as long as the slow drive, if there is one, takes to open this file.
void AwaitDrive(const std::string& path);

}  // namespace marlex::test
