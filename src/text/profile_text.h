#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marlex {

/// The rules of profile files on the whole text of one, after the published functions
/// GetPrivateProfileString and WritePrivateProfileString. A line ends in CR LF, LF or CR. Blanks
/// are space, tab, vertical tab and form feed; those at the ends of a line, a name or a value do
/// not count. A line `[name]` begins a section, one that begins with `;` is a comment, and one
/// without `=` means nothing. Lines above the first section belong to none. A byte order mark at
/// the top is passed over, and bytes that are no UTF-8 pass through unchanged.

/// Value of the first `key` in the first `section`, both matched without regard to case, without
/// one pair of enclosing quotes, single or double, and cut at `maxCharacters` characters. Empty
/// when there is none.
std::string ProfileValue(std::string_view text, std::string_view section, std::string_view key,
                         std::size_t maxCharacters);

/// Values of the keys that are `keyPrefix` and a number, "Song:1", "Song:2" and so on, up to the
/// first that is absent or empty: what `ProfileValue` gives for one after the other, in one pass.
/// The prefix does not end in a digit.
std::vector<std::string> NumberedProfileValues(std::string_view text, std::string_view section,
                                               std::string_view keyPrefix,
                                               std::size_t maxCharacters);

/// `text` with the value set. An existing line keeps its place and its spelling up to its `=`; a
/// missing key follows the last line of its section that is not blank; a missing section follows
/// the text. A new line ends like the line before it, in an empty text like CR LF. Nothing else
/// changes. The value is taken as it is: line ends in it begin new lines.
std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

/// What a reader gets of a value that is written like this.
std::string ReadBack(std::string_view value, std::size_t maxCharacters);

/// Form of a name as a value, from which a reader gets all of the name back: inside one more pair
/// of quotes where it begins and ends with one kind of quote, or begins or ends in a blank.
std::string QuotedName(std::string_view name);

/// The bytes of a profile file as the functions above take them, and back. A byte order mark of
/// UTF-16 says how the file is written, and the text is then UTF-8.
class ProfileFileText {
 public:
  /// Nothing for bytes that are no text: with a NUL among them, or a broken UTF-16.
  static std::optional<ProfileFileText> Of(std::string bytes);

  std::string Text;

  /// The text, written as the file was.
  std::string Bytes() const;

 private:
  std::string_view Mark;  // of UTF-16; empty for any other text
};

/// A value and where it stands.
struct ProfileEntry {
  std::string Section;
  std::string Key;
  std::string Value;
};

/// A text of these entries alone, each section and key of which comes once: what `WithProfileValue`
/// makes of an empty text by setting one after the other.
std::string NewProfileText(const std::vector<ProfileEntry>& entries);

}  // namespace marlex
