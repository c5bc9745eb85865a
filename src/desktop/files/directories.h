#pragma once

#include <string>
#include <vector>

#include "platform/directories.h"

namespace marlex {

/// Directories on the disk. Files are looked at, never opened, so that a pipe or a device among
/// them stops nothing. A symbolic link counts as what it leads to.
class DiskDirectories : public Directories {
 public:
  std::string Search(const std::string& path) const override;
  std::vector<std::string> List(const std::string& directory,
                                const std::string& pattern) const override;
  bool Delete(const std::string& path) override;
};

}  // namespace marlex
