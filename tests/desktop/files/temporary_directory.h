#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace marlex::test {

/// A file system in memory, for tests with many files; an ordinary folder where there is none.
inline std::filesystem::path InMemory() {
  const std::filesystem::path memory = "/dev/shm";
  std::error_code ignored;
  return std::filesystem::is_directory(memory, ignored) ? memory
                                                        : std::filesystem::temp_directory_path();
}

/// An empty directory for one test, deleted with its contents at the end.
class TemporaryDirectory {
 public:
  explicit TemporaryDirectory(
      const std::filesystem::path& place = std::filesystem::temp_directory_path()) {
    std::string name = (place / "marlex-XXXXXX").string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary directory: " + name);
    Root = name;
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(Root, ignored);
  }

  std::string Path(const std::string& name = "") const { return (Root / name).string(); }

  std::string Write(const std::string& name, std::string_view text) const {
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
  }

  std::string Read(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// Number of entries of the directory, hidden ones included.
  long Entries() const {
    return std::distance(std::filesystem::directory_iterator(Root),
                         std::filesystem::directory_iterator());
  }

 private:
  std::filesystem::path Root;
};

}  // namespace marlex::test
