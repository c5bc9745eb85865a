#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace marlex {

/// Directory separator of this platform.
inline constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// `directory`, one separator and `name`. A directory that already ends in a separator, such as a
/// root, does not get a second one.
inline std::string JoinPath(const std::string& directory, const std::string& name) {
  if (!directory.empty() && directory.back() == kSeparator) return directory + name;
  return directory + kSeparator + name;
}

/// The path without trailing separators; a root keeps its own.
inline std::string WithoutFinalSeparator(std::string path) {
  while (path.size() > 1 && path.back() == kSeparator) path.pop_back();
  return path;
}

/// Whether a name contains a line break, which no line of a profile file can hold.
inline bool HasLineEnd(std::string_view name) {
  return name.find_first_of("\r\n") != std::string_view::npos;
}

/// Last component of a path: what follows its last separator.
std::string FileNameOf(const std::string& path);

/// The text up to, but not including, its first dot; all of it when there is none.
std::string UpToFirstPoint(const std::string& text);

/// Name of a sound file without directory and extension.
std::string SoundName(const std::string& path);

}  // namespace marlex
