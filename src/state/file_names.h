#pragma once

#include <string>

namespace marlex {

/// The text up to, but not including, its first point; all of it when it has none.
std::string UpToFirstPoint(const std::string& text);

/// Name of the sound file at a path, without directory and extension.
std::string SoundName(const std::string& path);

}  // namespace marlex
