#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <set>
#include <string>

#include "desktop/files/file_descriptor.h"

namespace marlex::test {

/// What a disk promises: the bytes of a file last once the file was synced, its name once its
/// directory was synced. Of anything later, a power cut keeps any part. Observes one directory.
class PowerCut {
 public:
  explicit PowerCut(std::string directory);

  /// Call this after each system call that succeeded, with its path.
  void Done(const std::string& call, const std::string& path);

  /// The whole texts that a reader of this name may find if the power fails now; none means
  /// an absent file.
  std::set<std::optional<std::string>> Texts(const std::string& name);

 private:
  struct File {
    FileDescriptor Opened;  // keeps the file and its inode number in use after its name is gone
    std::string Synced;
  };
  using Choices = std::set<std::optional<std::string>>;

  void Look(bool synced);
  Choices Contents(const std::string& name) const;

  const std::string Directory;
  std::map<ino_t, File> Files;
  std::map<std::string, std::set<ino_t>> Names;  // since the directory was synced; 0: no file
};

}  // namespace marlex::test
