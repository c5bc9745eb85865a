#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/directories.h"

namespace marlex {

/// Directories on the disk. Files are examined, never opened, so that a pipe or a device among them
/// cannot block. A symbolic link counts as what it leads to.
class DiskDirectories : public Directories {
 public:
  /// `mountTable` is a file in the format of fstab(5): device, mount point, type and options of
  /// each mounted file system, with a blank inside a field written as \040.
  explicit DiskDirectories(std::string mountTable = "/proc/self/mounts")
      : MountTable(std::move(mountTable)) {}

  std::string Search(const std::string& path) const override;
  std::vector<std::string> List(const std::string& directory,
                                const std::string& pattern) const override;
  std::vector<std::string> Drives() const override;
  bool HasDirectory(const std::string& path) const override;
  std::vector<std::string> Subdirectories(const std::string& directory) const override;

 private:
  std::string MountTable;
};

}  // namespace marlex
