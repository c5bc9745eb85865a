#pragma once

#include <string>
#include <vector>

namespace marlex {

struct StringEntry {
  int Id;
  std::string Text;  // UTF-8; blanks at its ends are part of it
};

/// The English block: every id with its text, ascending.
const std::vector<StringEntry>& EnglishStrings();

}  // namespace marlex
