#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marlex {

/// Separator of directories on this platform.
inline constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// `directory`, one separator and `name`; a directory that ends in its separator, as a root does,
/// gets no second one.
inline std::string JoinPath(const std::string& directory, const std::string& name) {
  if (!directory.empty() && directory.back() == kSeparator) return directory + name;
  return directory + kSeparator + name;
}

/// Look-ups in the file system. A path that cannot be read counts as absent. Hidden files, whose
/// name begins with a dot, do not count in a directory: they are litter that other systems and
/// half-finished writings leave on a disk.
class Directories {
 public:
  virtual ~Directories() = default;

  /// Directory search: for a path that ends in a separator the name of the first regular file in
  /// that directory, for any other path the name, without directory, of the file or directory that
  /// it names. Empty when there is none, and for the empty path.
  virtual std::string Search(const std::string& path) const = 0;

  /// Names of the regular files in `directory` that match `pattern` (`*` and `?`, without regard to
  /// case), sorted as NameComesBefore orders them.
  virtual std::vector<std::string> List(const std::string& directory,
                                        const std::string& pattern) const = 0;

  /// Deletes one file. False when it was not there or could not be deleted.
  virtual bool Delete(const std::string& path) = 0;
};

}  // namespace marlex
