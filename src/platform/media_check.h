#pragma once

#include <string>

namespace marlex {

/// Whether a file could be played or read now. `Unknown` until it has been inspected for the first
/// time.
enum class MediaState { Unknown, Good, Missing, Unplayable };

/// Inspects songs and messages without playing them, and looks for playlists and sequence files.
/// Calls are on the system's thread and return what is known at once: a file is inspected in the
/// background when it is asked for, and again when it is asked for two seconds later or more. While
/// a drive does not answer, the file that is being inspected counts as unplayable, and all others
/// as what was last known of them. A file is found as by `Directories`.
class MediaCheck {
 public:
  virtual ~MediaCheck() = default;

  virtual MediaState Song(const std::string& path) = 0;
  virtual MediaState Message(const std::string& path) = 0;
  virtual MediaState TextFile(const std::string& path) = 0;  // good whatever is in it
};

}  // namespace marlex
