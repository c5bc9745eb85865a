#pragma once

#include <cstddef>
#include <string>

#include "platform/profile_files.h"
#include "simulation/journal.h"
#include "simulation/memory_disk.h"

namespace marlex {

/// Profile files on the memory disk, which also makes them fail. Every write that succeeds is one
/// line of the journal.
class MemoryProfiles : public ProfileFiles {
 public:
  MemoryProfiles(MemoryDisk& disk, Journal& journal) : Disk(disk), Log(journal) {}

  std::string GetString(const std::string& section, const std::string& key, const std::string& file,
                        std::size_t maxCharacters) const override;
  std::vector<std::string> GetNumbered(const std::string& section, const std::string& keyPrefix,
                                       const std::string& file,
                                       std::size_t maxCharacters) const override;
  bool WriteString(const std::string& section, const std::string& key, const std::string& value,
                   const std::string& file) override;

 private:
  MemoryDisk& Disk;
  Journal& Log;
};

}  // namespace marlex
