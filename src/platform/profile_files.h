#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "text/profile_text.h"

namespace marlex {

/// What a write did: `Unchanged` when the values stood there already, and nothing was touched.
enum class Writing { Failed, Unchanged, Done };

/// Profile files: lines `[section]` and `key=value`, with the behaviour of the published functions
/// GetPrivateProfileString and WritePrivateProfileString. Text is UTF-8, or bytes of an unknown
/// code page as they stand. A file with a byte order mark of UTF-16 is read and written as such. A
/// file is found as Directories finds it. Nothing is cached between calls.
class ProfileFiles {
 public:
  virtual ~ProfileFiles() = default;

  /// Value of the first `key` in the first `section`, both matched without regard to case, with
  /// blanks around it and one pair of enclosing quotes removed, cut at `maxCharacters` characters
  /// (never inside one). Empty when the file, the section or the key is absent or the file cannot
  /// be read.
  virtual std::string GetString(const std::string& section, const std::string& key,
                                const std::string& file, std::size_t maxCharacters) const = 0;

  /// What `GetString` gives for the keys `keyPrefix` with 1, 2 and so on behind it, up to the first
  /// that is absent or empty, from one reading of the file.
  virtual std::vector<std::string> GetNumbered(const std::string& section,
                                               const std::string& keyPrefix,
                                               const std::string& file,
                                               std::size_t maxCharacters) const = 0;

  /// Writes the values through to the file in their order, all of them or none: an existing key
  /// keeps its place and spelling, a missing file, section or key is created, and everything else
  /// stays byte for byte. The file is replaced atomically and keeps its mode. `Failed` also for a
  /// file that is there and is no text; the old file is then intact.
  virtual Writing WriteStrings(const std::vector<ProfileEntry>& entries,
                               const std::string& file) = 0;

  /// The same for one value. False when that failed.
  bool WriteString(const std::string& section, const std::string& key, const std::string& value,
                   const std::string& file) {
    return WriteStrings({{section, key, value}}, file) != Writing::Failed;
  }

  /// Puts a file of these entries alone in the place of any old one of exactly this name,
  /// atomically. False when that failed; the old file is then intact.
  virtual bool Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) = 0;
};

}  // namespace marlex
