#pragma once

#include <string>

#include "state/settings.h"

namespace marlex {

// Songs and messages are shown by their names, without directory and extension.

inline constexpr const char* kSongExtension = ".mp3";
inline constexpr const char* kMessageExtension = ".wav";
inline constexpr const char* kSongPattern = "*.mp3";
inline constexpr const char* kMessagePattern = "*.wav";

inline std::string SongPath(const Settings& settings, const std::string& name) {
  return settings.MusicDirectory + name + kSongExtension;
}

/// The same for a message or a chime.
inline std::string MessagePath(const Settings& settings, const std::string& name) {
  return settings.MessageDirectory + name + kMessageExtension;
}

}  // namespace marlex
