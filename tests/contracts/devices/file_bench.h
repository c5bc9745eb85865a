#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "contracts/both_pcs.h"
#include "platform/directories.h"
#include "platform/profile_files.h"

namespace marlex::test {

/// An empty directory on one of the PCs, and the ports through which it is seen. Names count from
/// that directory and are bytes.
class FileBench {
 public:
  virtual ~FileBench() = default;

  virtual Directories& Files() = 0;
  virtual ProfileFiles& Profiles() = 0;

  virtual std::string Path(const std::string& name = "") const = 0;
  virtual void Write(const std::string& name, std::string_view text) = 0;
  virtual std::string Read(const std::string& name) = 0;  // empty for a missing file
  virtual void MakeDirectory(const std::string& name) = 0;
  virtual void Remove(const std::string& file) = 0;

  /// Number of entries of a directory, with what a real disk hides.
  virtual int Entries(const std::string& directory = "") = 0;

  /// Whether `check` returns true while this file, or what is in this directory, cannot be read or
  /// written. It may run in a process of its own, so it must not use EXPECT.
  virtual bool WhileUnreadable(const std::string& name, const std::function<bool()>& check) = 0;
  virtual bool WhileUnwritable(const std::string& name, const std::function<bool()>& check) = 0;

  /// Mounts file systems at these directories, which need not exist.
  virtual void Mount(const std::vector<std::string>& places) = 0;
  virtual std::string Home() const = 0;
};

std::unique_ptr<FileBench> MakeFileBench(PcKind pc);

}  // namespace marlex::test
