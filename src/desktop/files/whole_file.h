#pragma once

#include <string>
#include <string_view>

namespace marlex {

/// Outcome of reading a file. A file that exists but cannot be read is distinguished from a missing
/// one, so that nobody takes it for empty and overwrites it.
enum class FileState { Read, Absent, Unreadable };

struct WholeFile {
  FileState State = FileState::Absent;
  std::string Text;  // empty unless `State` is `Read`
};

/// Reads a whole regular file, following symbolic links. Anything else (a directory, a pipe, a
/// device) and any file above 64 MiB is unreadable. Never blocks on a pipe or a device.
WholeFile ReadWholeFile(const std::string& path);

/// Replaces or creates a file so that at any moment, even in a power cut, `ReadWholeFile` finds
/// either the old or the new text, complete. False on failure; the old text is then found,
/// unless the file was being overwritten in place and even the old text could not be put back.
///
/// The text is written to a hidden file in the same directory, which is then renamed. Where the
/// rename is refused, because the file is itself a mount point or belongs to somebody else in a
/// shared directory, the file is overwritten in place. Until that is complete it begins with a NUL,
/// which no text does, and `ReadWholeFile` reads the hidden file instead. Deliberate: where no
/// hidden file can be created either, as in a read-only directory, nothing is written, since a
/// power cut could destroy both the old and the new text.
///
/// A symbolic link is kept, and the file that it leads to is replaced. The mode and, where
/// permitted, the owner are kept. A file without any write permission is protected, even from root.
/// The next replacement removes what a killed process left half-done. Only one process at a time
/// may replace a file.
bool ReplaceFile(const std::string& path, std::string_view text);

}  // namespace marlex
