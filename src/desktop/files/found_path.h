#pragma once

#include <string>

namespace marlex {

/// Resolves a path regardless of case, as the systems did that older files come from. In each
/// component of the path an exact match wins, else the first entry, in sorting order, that differs
/// only in case. Returns the path unchanged when nothing matches.
std::string FoundPath(const std::string& path);

}  // namespace marlex
