#pragma once

#include <cstddef>
#include <string>

namespace marlex {

/// At most `count` characters from the beginning of a UTF-8 text; none is cut in two.
std::string FirstCharacters(const std::string& text, std::size_t count);

/// The text up to, but not including, its first point; all of it when it has none.
std::string UpToFirstPoint(const std::string& text);

}  // namespace marlex
