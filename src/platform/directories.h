#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/code_pages.h"
#include "text/paths.h"

namespace marlex {

/// Whether an entry of a directory is offered. Hidden entries, whose names begin with a dot, are
/// not: they are litter of other systems and of interrupted writes. Nor are names that contain a
/// line break.
inline bool IsOffered(std::string_view name) { return !name.starts_with('.') && !HasLineEnd(name); }

/// Look-ups in the file system. A path that cannot be read counts as missing. In every component of
/// a path, where no entry has the exact name, the first one in sorting order that is the same
/// according to `NamesTheSame` is found instead.
class Directories {
 public:
  virtual ~Directories() = default;

  /// Code page for reading names that are not UTF-8. All names returned from here are UTF-8.
  CodePage NamesIn = CodePage::WestEuropean;

  /// Searches for one entry: for a path that ends in a separator, returns the name of the first
  /// regular file in that directory, sorted as by `NameComesBefore`; for any other path, its last
  /// component as spelled on the disk. Empty when there is nothing, and for the empty path.
  virtual std::string Search(const std::string& path) const = 0;

  /// Names of the regular files in `directory` that match `pattern` (`*` and `?`, ignoring case),
  /// sorted as by `NameComesBefore`.
  virtual std::vector<std::string> List(const std::string& directory,
                                        const std::string& pattern) const = 0;

  /// Starting points for browsing: first the operator's home directory, then the mount points of
  /// file systems, sorted and including the root. All are without a final separator, except the
  /// root, and without line breaks. Does not access the drives, so that a dead one cannot block.
  virtual std::vector<std::string> Drives() const = 0;

  /// Whether `path`, with or without a final separator, leads to a directory.
  virtual bool HasDirectory(const std::string& path) const = 0;

  /// Names of the directories in `directory`, sorted as by `NameComesBefore`; empty when it cannot
  /// be read.
  virtual std::vector<std::string> Subdirectories(const std::string& directory) const = 0;
};

}  // namespace marlex
