#pragma once

#include <string>

namespace marlex {

/// Resolves a path without regard to case, as the systems did on which older files were made. In
/// each part of the path an exact name wins, else the first entry that differs in case alone.
/// Returns the path unchanged when nothing matches.
std::string FoundPath(const std::string& path);

}  // namespace marlex
