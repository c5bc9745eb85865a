#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace marlex {

/// Separator of directories on this platform.
inline constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// `directory`, one separator and `name`; a directory that ends in its separator, as a root does,
/// gets no second one.
inline std::string JoinPath(const std::string& directory, const std::string& name) {
  if (!directory.empty() && directory.back() == kSeparator) return directory + name;
  return directory + kSeparator + name;
}

/// The path without its final separators; a root keeps its own.
inline std::string WithoutFinalSeparator(std::string path) {
  while (path.size() > 1 && path.back() == kSeparator) path.pop_back();
  return path;
}

/// Whether a name has a line end in it, which no line of a profile file can hold.
inline bool HasLineEnd(std::string_view name) {
  return name.find_first_of("\r\n") != std::string_view::npos;
}

/// Last name of a path: what comes after its last separator.
std::string FileNameOf(const std::string& path);

/// The text up to, but not including, its first point; all of it when it has none.
std::string UpToFirstPoint(const std::string& text);

/// Name of the sound file at a path, without directory and extension.
std::string SoundName(const std::string& path);

}  // namespace marlex
