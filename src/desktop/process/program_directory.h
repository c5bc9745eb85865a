#pragma once

#include <filesystem>

namespace marlex {

/// File name of the program in a package. It is in no installation folder; each holds a link to it.
inline constexpr const char* kPackagedProgram = "marlex-program";

/// The path by which this process was started, which may be that of a link. Empty when unknown.
std::filesystem::path StartedPath();

/// Directory of the last of the links by which the program of a package was started. Empty for
/// any other program, even when a link started it, and for one that was started without a link.
std::filesystem::path LinkDirectory(const std::filesystem::path& executable,
                                    const std::filesystem::path& started);

}  // namespace marlex
