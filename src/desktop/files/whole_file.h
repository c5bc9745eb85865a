#pragma once

#include <string>
#include <string_view>

namespace marlex {

/// Outcome of reading a file. A file that is there but cannot be read is told apart from an absent
/// one, so that nobody takes it for empty and writes over it.
enum class FileState { Read, Absent, Unreadable };

struct WholeFile {
  FileState State = FileState::Absent;
  std::string Text;  // empty unless the state is Read
};

/// Reads a regular file as a whole, through symbolic links. Anything else (a directory, a pipe, a
/// device, a file above 64 MiB) is unreadable; nothing of it is opened in a way that waits.
WholeFile ReadWholeFile(const std::string& path);

/// Replaces or creates a file so that at any moment, a power cut included, `ReadWholeFile` finds
/// either the old or the new text whole. The text goes to a hidden file beside it, which then takes
/// its name. Where the name cannot be taken, since the file is mounted by itself or belongs to
/// somebody else in a shared directory, the file is written in place, and the hidden one counts
/// while the file itself begins with a NUL, which the text never does. Deliberate: where no hidden
/// file can be made either, as in a directory that may only be read, nothing is written, since a
/// power cut could take old and new. A symbolic link stays and the file it leads to is replaced;
/// mode and, where permitted, owner are kept. A file without any permission to write counts as
/// protected, even for root. False when it could not be done; the old file is then as it was. What
/// a process that was killed half-way left behind is cleared away by the next replacement. One
/// process at a time may do this to a file.
bool ReplaceFile(const std::string& path, std::string_view text);

}  // namespace marlex
