#pragma once

#include <string>

namespace marlex {

/// Path of what is there under this name. Where the exact one is missing it is, in every part of
/// the path, the first entry whose name is the same but for case, as on the systems where the files
/// may have been made. The path itself when there is none.
std::string FoundPath(const std::string& path);

}  // namespace marlex
