#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/profile_files.h"

namespace marlex {

/// Profile files on the disk. Each call reads the file again, so that changes made by hand take
/// effect at once. A write that would change nothing is skipped. A file that exists but cannot be
/// read is never written.
class DiskProfileFiles : public ProfileFiles {
 public:
  std::string GetString(const std::string& section, const std::string& key, const std::string& file,
                        std::size_t maxCharacters) const override;
  std::vector<std::string> GetNumbered(const std::string& section, const std::string& keyPrefix,
                                       const std::string& file,
                                       std::size_t maxCharacters) const override;
  Writing WriteStrings(const std::vector<ProfileEntry>& entries, const std::string& file) override;
  bool Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) override;
};

}  // namespace marlex
