#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <set>
#include <string>

#include "desktop/files/file_descriptor.h"

namespace marlex::test {

/// What a disk promises: a file's bytes last from its fsync on, and its name from that of its
/// directory. Of what came later a power cut keeps any part. Looks at one directory.
class PowerCut {
 public:
  explicit PowerCut(std::string directory);

  /// To be called after each system call that succeeded, with its path.
  void Done(const std::string& call, const std::string& path);

  /// Whole texts, or nothing for an absent file, that a reader of this name may find when the power
  /// fails now.
  std::set<std::optional<std::string>> Texts(const std::string& name);

 private:
  struct File {
    FileDescriptor Opened;  // keeps the file, and its number to itself, when it has no name
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
