#pragma once

#include <string>
#include <vector>

namespace marlex {

/// What a file must be. A text file is good whatever is in it.
enum class MediumKind { Song, Message, TextFile };

/// A file that is watched.
struct WatchedFile {
  std::string Path;
  MediumKind Kind;

  bool operator==(const WatchedFile&) const = default;
};

/// Whether a file could be played or read now. `Unknown` until it has been inspected for the first
/// time.
enum class MediaState { Unknown, Good, Missing, Unplayable };

/// Inspects songs and messages without playing them, and looks for playlists and sequence files.
/// Calls are on the system's thread and return what is known at once: a file is inspected in the
/// background when its state is asked for, and again when it is asked for two seconds later or
/// more. While a drive does not answer, the file that is being inspected counts as unplayable, and
/// all others as what was last known of them. A file is found as by `Directories`.
class MediaCheck {
 public:
  virtual ~MediaCheck() = default;

  /// Replaces the files that are watched, none at first. Keeps what it knows of those that stay.
  virtual void Watch(std::vector<WatchedFile> files) = 0;

  /// The states of the files that are watched, in their order. Valid until the next call.
  virtual const std::vector<MediaState>& States() = 0;
};

}  // namespace marlex
