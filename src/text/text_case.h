#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace marlex {

/// First character of a non-empty UTF-8 text. A byte that does not begin a well-formed character
/// counts as a character by itself, equal only to itself, so that text of unknown encoding is never
/// refused or lost.
struct Character {
  char32_t Code = 0;
  std::size_t Bytes = 1;  // length in the text
};
Character FirstCharacter(std::string_view text);
bool IsLoneByte(const Character& character);

/// The first character, folded so that case does not matter.
Character FirstFolded(std::string_view text);

/// Whether the whole text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// Appends the character with this code, which must be one that UTF-8 allows.
void AppendUtf8(std::string& text, char32_t code);

/// Whether two UTF-8 texts are equal except for the case of Latin, Greek and Cyrillic letters.
/// Independent of any locale.
bool SameButForCase(std::string_view one, std::string_view other);

/// Sorting order of names as a reader expects it: ignoring case first, then by their bytes.
bool NameComesBefore(std::string_view one, std::string_view other);

/// Whether the whole of `name` matches `pattern`, ignoring case: `*` matches any text, `?` any one
/// character.
bool MatchesPattern(std::string_view name, std::string_view pattern);

/// Number of characters in a UTF-8 text.
std::size_t CountCharacters(std::string_view text);

/// The first `maxCharacters` characters of a UTF-8 text; never cuts a character in two.
std::string_view FirstCharacters(std::string_view text, std::size_t maxCharacters);

/// At most `maxCharacters` characters, starting with the `first`-th, counted from 1; empty past the
/// end.
std::string_view CharactersFrom(std::string_view text, std::size_t first,
                                std::size_t maxCharacters);

}  // namespace marlex
