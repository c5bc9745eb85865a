#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace marlex {

/// First character of a non-empty UTF-8 text. A byte that begins no well-formed character counts as
/// a character of its own, which equals only itself, so that text of unknown encoding is never
/// refused or lost.
struct Character {
  char32_t Code = 0;
  std::size_t Bytes = 1;  // length in the text
};
Character FirstCharacter(std::string_view text);
bool IsLoneByte(const Character& character);

/// The same, made blind to case.
Character FirstFolded(std::string_view text);

/// Whether all of the text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// Appends the character of this code, which is one that UTF-8 may hold.
void AppendUtf8(std::string& text, char32_t code);

/// Whether two UTF-8 texts are the same but for the case of Latin, Greek and Cyrillic letters.
/// Knows no locale.
bool SameButForCase(std::string_view one, std::string_view other);

/// Order of a list of names as a reader expects it: without regard to case, and by their bytes
/// where that decides nothing.
bool NameComesBefore(std::string_view one, std::string_view other);

/// Whether `name` matches `pattern` as a whole, without regard to case: `*` stands for any text,
/// `?` for one character.
bool MatchesPattern(std::string_view name, std::string_view pattern);

/// Number of characters of a UTF-8 text.
std::size_t CountCharacters(std::string_view text);

/// The first `maxCharacters` characters of a UTF-8 text; no character is cut in two.
std::string_view FirstCharacters(std::string_view text, std::size_t maxCharacters);

/// At most `maxCharacters` characters from the `first`-th on, counted from 1; empty behind the end.
std::string_view CharactersFrom(std::string_view text, std::size_t first,
                                std::size_t maxCharacters);

}  // namespace marlex
