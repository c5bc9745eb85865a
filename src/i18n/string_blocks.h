#pragma once

#include <span>
#include <string_view>

namespace marlex {

struct StringEntry {
  int Id;
  std::string_view Text;  // UTF-8; blanks at its ends are part of it
};

/// The texts of one language, sorted by id: constant data, compiled from the lines of
/// strings/<Language>.txt by compile_strings.cmake.
struct StringBlock {
  std::string_view Language;  // its English name
  std::span<const StringEntry> Strings;
};

/// The texts of the language with this English name; empty if there are none.
std::span<const StringEntry> StringsOf(std::string_view language);

}  // namespace marlex
