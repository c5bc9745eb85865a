#pragma once

#include <string>
#include <vector>

namespace marlex {

/// The ways in which the extension of a sound file may be written in upper and lower case, the
/// given one first; any other file has its own name alone. The system knows a sound by its name and
/// puts ".mp3" or ".wav" behind it, and on many a disk it is "MARCH.MP3".
std::vector<std::string> SoundFileSpellings(const std::string& path);

}  // namespace marlex
