#pragma once

#include <string>
#include <vector>

namespace marlex {

/// Texts between the separators. Deliberate: the last one is cut at 100 characters, the others are
/// not.
std::vector<std::string> SplitCuttingLast(const std::string& text, char separator);

}  // namespace marlex
