#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/code_pages.h"
#include "text/paths.h"

namespace marlex {

/// Whether an entry of a directory counts. Hidden ones, whose name begins with a dot, do not: they
/// are litter that other systems and half-finished writings leave on a disk. Nor do names with a
/// line end.
inline bool IsOffered(std::string_view name) { return !name.starts_with('.') && !HasLineEnd(name); }

/// Look-ups in the file system. A path that cannot be read counts as absent. Where no entry has the
/// exact name, one that `NamesTheSame` is found in its place, in every part of a path.
class Directories {
 public:
  virtual ~Directories() = default;

  /// By which names that are no UTF-8 are read; the names that come from here are all UTF-8.
  CodePage NamesIn = CodePage::WestEuropean;

  /// Directory search: for a path that ends in a separator the name of the first regular file in
  /// that directory, for any other path the last name in it, as the disk spells it. Empty when
  /// nothing is there, and for the empty path.
  virtual std::string Search(const std::string& path) const = 0;

  /// Names of the regular files in `directory` that match `pattern` (`*` and `?`, without regard to
  /// case), sorted as NameComesBefore orders them.
  virtual std::vector<std::string> List(const std::string& directory,
                                        const std::string& pattern) const = 0;

  /// Where a search for a directory can begin: the operator's home directory, which comes first,
  /// and the roots of the mounted file systems, sorted, the root of all of them included. Each
  /// without a final separator, the root apart, and none with a line end. No drive is touched for
  /// it, so that a dead one stops nothing.
  virtual std::vector<std::string> Drives() const = 0;

  /// Whether `path`, with or without a final separator, is a directory that can be found.
  virtual bool HasDirectory(const std::string& path) const = 0;

  /// Names of the directories in `directory`, sorted as NameComesBefore orders them; empty when it
  /// cannot be read.
  virtual std::vector<std::string> Subdirectories(const std::string& directory) const = 0;
};

}  // namespace marlex
