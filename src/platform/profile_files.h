#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "text/profile_text.h"

namespace marlex {

/// Result of a write: `Unchanged` when the values were there already and nothing was touched.
enum class Writing { Failed, Unchanged, Done };

/// Profile files, with lines `[section]` and `key=value`, which behave like the published functions
/// GetPrivateProfileString and WritePrivateProfileString. Text is UTF-8, or bytes of an unknown
/// code page, which are passed through. A file with a UTF-16 byte order mark is read and written as
/// UTF-16. A file is found as by `Directories`. Nothing is cached between calls.
class ProfileFiles {
 public:
  virtual ~ProfileFiles() = default;

  /// Value of the first `key` in the first `section`, both matched ignoring case. Surrounding
  /// blanks and one pair of enclosing quotes are removed, and the value is cut to `maxCharacters`
  /// characters (never inside one). Empty when the file, the section or the key is missing, or the
  /// file cannot be read.
  virtual std::string GetString(const std::string& section, const std::string& key,
                                const std::string& file, std::size_t maxCharacters) const = 0;

  /// Values, as from `GetString`, of the keys that consist of `keyPrefix` and 1, 2 and so on, up to
  /// the first one that is missing or empty. Reads the file once.
  virtual std::vector<std::string> GetNumbered(const std::string& section,
                                               const std::string& keyPrefix,
                                               const std::string& file,
                                               std::size_t maxCharacters) const = 0;

  /// Writes the values to the file, in order, all of them or none. An existing key keeps its place
  /// and spelling; a missing file, section or key is created; everything else stays as it is, byte
  /// for byte. A reader finds the old file or the new one, whole, and the mode stays. The result is
  /// also `Failed` for an existing file that is not text. After `Failed` a reader finds the old
  /// file, unless the disk refused even to take that back.
  virtual Writing WriteStrings(const std::vector<ProfileEntry>& entries,
                               const std::string& file) = 0;

  /// The same for one value; false on failure.
  bool WriteString(const std::string& section, const std::string& key, const std::string& value,
                   const std::string& file) {
    return WriteStrings({{section, key, value}}, file) != Writing::Failed;
  }

  /// Replaces or creates the file of exactly this name, in a directory found as by `Directories`,
  /// atomically, with one that contains only these entries. False on failure; the old file is then
  /// unchanged.
  virtual bool Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) = 0;
};

}  // namespace marlex
