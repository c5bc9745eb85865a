#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/profile_files.h"
#include "simulation/journal.h"
#include "simulation/memory_disk.h"

namespace marlex {

/// Profile files on the memory disk; `FailWrites` and `FailReads` there make them fail. Every value
/// of a successful write becomes one line of the journal, even if it was there already and nothing
/// is written to the disk.
class MemoryProfiles : public ProfileFiles {
 public:
  MemoryProfiles(MemoryDisk& disk, Journal& journal) : Disk(disk), Log(journal) {}

  std::string GetString(const std::string& section, const std::string& key, const std::string& file,
                        std::size_t maxCharacters) const override;
  std::vector<std::string> GetNumbered(const std::string& section, const std::string& keyPrefix,
                                       const std::string& file,
                                       std::size_t maxCharacters) const override;
  Writing WriteStrings(const std::vector<ProfileEntry>& entries, const std::string& file) override;
  bool Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) override;

 private:
  std::optional<ProfileFileText> TextOf(const std::string& file) const;
  void Note(const std::vector<ProfileEntry>& entries, const std::string& file);

  MemoryDisk& Disk;
  Journal& Log;
};

}  // namespace marlex
