#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marlex {

/// The rules of profile files, applied to the whole text of one, as in the published functions
/// GetPrivateProfileString and WritePrivateProfileString. A line ends in CR LF, LF or CR. Blanks
/// are space, tab, vertical tab and form feed; they are ignored at both ends of a line, a name or a
/// value. A line `[name]` begins a section, a line that begins with `;` is a comment, and a line
/// without `=` is ignored. Lines above the first section belong to none. A byte order mark at the
/// top is skipped, and bytes that are not UTF-8 pass through unchanged.

/// Value of the first `key` in the first `section`, both matched ignoring case. One pair of
/// enclosing quotes, single or double, is removed, and the value is cut to `maxCharacters`
/// characters. Empty when there is none.
std::string ProfileValue(std::string_view text, std::string_view section, std::string_view key,
                         std::size_t maxCharacters);

/// Values of the keys that consist of `keyPrefix` and a number, such as "Song:1", "Song:2" and so
/// on, up to the first one that is missing or empty. Gives what `ProfileValue` would give for each,
/// in a single pass. The prefix must not end in a digit.
std::vector<std::string> NumberedProfileValues(std::string_view text, std::string_view section,
                                               std::string_view keyPrefix,
                                               std::size_t maxCharacters);

/// Returns `text` with the value set. An existing line keeps its place and its spelling up to the
/// `=`; a missing key is added after the last non-blank line of its section; a missing section is
/// added at the end. A new line ends like the line before it, in an empty text with CR LF. Nothing
/// else changes. The value is written as it is: a line end in it begins a new line.
std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

/// What reading returns for a value that was written like this.
std::string ReadBack(std::string_view value, std::size_t maxCharacters);

/// The form in which a name must be written so that reading returns all of it: in an extra pair of
/// quotes if it begins and ends with the same kind of quote, or begins or ends with a blank.
std::string QuotedName(std::string_view name);

/// Converts the bytes of a profile file to the text that the functions above take, and back. A file
/// with a UTF-16 byte order mark is converted to UTF-8 and back to UTF-16.
class ProfileFileText {
 public:
  /// Empty optional for bytes that are not text: those with a NUL, or with invalid UTF-16.
  static std::optional<ProfileFileText> Of(std::string bytes);

  std::string Text;

  /// The text in the encoding of the original file.
  std::string Bytes() const;

 private:
  std::string_view Mark;  // the UTF-16 mark; empty for any other text
};

/// A value and the section and key that it belongs to.
struct ProfileEntry {
  std::string Section;
  std::string Key;
  std::string Value;
};

/// A text of just these entries. The entries of a section must be adjacent, and no key may appear
/// twice in it. The result is the same as setting one after the other by `WithProfileValue`,
/// starting from an empty text.
std::string NewProfileText(const std::vector<ProfileEntry>& entries);

}  // namespace marlex
