#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "desktop/files/directory_calls.h"
#include "desktop/files/disk_directories.h"
#include "desktop/files/open_descriptors.h"
#include "desktop/files/temporary_directory.h"

namespace marlex::test {
namespace {

using Names = std::vector<std::string>;
using Look = std::function<Names(const DiskDirectories&)>;

constexpr int kErrors[] = {EIO, EACCES, ENOENT, ENOMEM};

/// Whatever call fails, the look finds nothing but what is there, and the next one finds all.
/// Returns the number of calls.
std::size_t ExpectNothingElse(const Look& look) {
  const DiskDirectories directories;
  const auto names = [&](std::size_t at, int error, Names* calls) {
    DirectoryCalls counted(at, error);
    const Names found = look(directories);
    if (calls) *calls = counted.Made;
    return found;
  };
  Names calls;
  const Names all = names(0, 0, &calls);
  EXPECT_FALSE(all.empty());
  EXPECT_FALSE(calls.empty());
  const long descriptors = OpenDescriptors();
  for (std::size_t at = 1; at <= calls.size(); ++at) {
    for (const int error : kErrors) {
      SCOPED_TRACE(std::to_string(at) + " " + calls[at - 1] + " " + std::to_string(error));
      for (const std::string& name : names(at, error, nullptr))
        EXPECT_NE(std::find(all.begin(), all.end(), name), all.end()) << name;
      EXPECT_EQ(OpenDescriptors(), descriptors);
    }
  }
  EXPECT_EQ(names(0, 0, nullptr), all);
  return calls.size();
}

TEST(FailedLook, FindsNothingButWhatIsThere) {
  const TemporaryDirectory root(InMemory());
  for (const char* file : {"Gong.wav", "welcome.wav", "Closing.WAV", "readme.txt"})
    root.Write(file, "");
  for (const char* folder : {"Music", "Messages"})
    std::filesystem::create_directory(root.Path(folder));
  const std::string path = root.Path();
  const auto one = [](const std::string& name) { return name.empty() ? Names() : Names{name}; };
  std::size_t calls = 0;
  calls += ExpectNothingElse([&](const auto& disk) { return disk.List(path, "*.wav"); });
  calls += ExpectNothingElse([&](const auto& disk) { return disk.Subdirectories(path); });
  calls +=
      ExpectNothingElse([&](const auto& disk) { return one(disk.Search(path + "/gong.WAV")); });
  calls += ExpectNothingElse([&](const auto& disk) {
    return disk.HasDirectory(path + "/music") ? Names{"Music"} : Names();
  });
  std::cout << calls << " calls, " << calls * std::size(kErrors) << " runs\n";
}

}  // namespace
}  // namespace marlex::test
