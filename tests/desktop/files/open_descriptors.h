#pragma once

#include <filesystem>
#include <iterator>

namespace marlex::test {

/// Number of file descriptors that this process has open.
inline long OpenDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

}  // namespace marlex::test
