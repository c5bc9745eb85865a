#pragma once

#include <string>

namespace marlex {

/// The text up to, but not including, its first point; all of it when it has none.
std::string UpToFirstPoint(const std::string& text);

}  // namespace marlex
