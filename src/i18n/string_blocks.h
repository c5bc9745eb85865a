#pragma once

#include <string>
#include <vector>

namespace marlex {

struct StringEntry {
  int Id;
  std::string Text;  // UTF-8; blanks at its ends are part of it
};

/// The texts of one language, ascending by id. They are written in strings/<Language>.txt, a line
/// each: the id, a blank, the text in quotes.
struct StringBlock {
  std::string Language;  // its English name
  std::vector<StringEntry> Strings;
};

/// Block of a language by its English name; of a language that has none, an empty one.
const std::vector<StringEntry>& StringsOf(const std::string& language);

}  // namespace marlex
