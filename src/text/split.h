#pragma once

#include <string>
#include <vector>

namespace marlex {

/// The texts between the separators. Deliberate: the last of several is cut to 100 characters; the
/// others, and a single text, are not.
std::vector<std::string> SplitCuttingLast(const std::string& text, char separator);

}  // namespace marlex
