#include "desktop/files/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>

#include "desktop/files/file_descriptor.h"

namespace marlex {

namespace {

constexpr off_t kLargestFile = off_t{64} << 20;
constexpr int kMostLinks = 40;  // as many as the system itself follows
constexpr std::size_t kNameBytes =
    200;  // leaves room for the additions below in a name's 255 bytes
constexpr mode_t kPermissions = 07777;
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kNewFile = 0666;  // less the mask of the process

/// Result of a system call, made again as often as a signal interrupts it.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

FileDescriptor Opened(const std::filesystem::path& path, int flags, mode_t mode = 0) {
  return FileDescriptor(
      Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

/// Reads up to the end of the file. False on a fault of the medium.
bool ReadAll(int file, std::string& text) {
  char piece[1 << 16];
  for (;;) {
    const ssize_t count = Uninterrupted([&] { return ::read(file, piece, sizeof piece); });
    if (count <= 0) return count == 0;
    text.append(piece, static_cast<std::size_t>(count));
    if (text.size() > static_cast<std::size_t>(kLargestFile)) return false;
  }
}

bool WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = Uninterrupted([&] { return ::write(file, text.data(), text.size()); });
    if (count <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool Sync(const FileDescriptor& file) {
  return Uninterrupted([&] { return ::fsync(file.Get()); }) == 0;
}

bool Renamed(const std::filesystem::path& from, const std::filesystem::path& to) {
  return Uninterrupted([&] { return std::rename(from.c_str(), to.c_str()); }) == 0;
}

/// The file that a path leads to, also when the link dangles. Empty when links run in a circle.
std::optional<std::filesystem::path> BehindLinks(std::filesystem::path path) {
  for (int links = 0; links < kMostLinks; ++links) {
    std::error_code fault;
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(path, fault))) return path;
    const std::filesystem::path target = std::filesystem::read_symlink(path, fault);
    if (fault) return std::nullopt;
    path = path.parent_path() / target;  // an absolute target replaces the directory
  }
  return std::nullopt;
}

std::filesystem::path DirectoryOf(const std::filesystem::path& file) {
  return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

std::filesystem::path HiddenBeside(const std::filesystem::path& file, const char* addition) {
  return DirectoryOf(file) / ("." + file.filename().string().substr(0, kNameBytes) + addition);
}

/// A new text on its way to the disk.
std::filesystem::path DraftBeside(const std::filesystem::path& file) {
  return HiddenBeside(file, ".new");
}

/// A new text, whole and on the disk, while the file itself is written. It counts in its place.
std::filesystem::path CopyBeside(const std::filesystem::path& file) {
  return HiddenBeside(file, ".whole");
}

/// Fails on file systems that know no owners or modes, and without the right to give a file away.
/// The settings are then worth more than their owner. The owner comes first, since changing it
/// clears bits of the mode.
void TakeOver(int file, const struct stat& old) {
  if (::fchown(file, old.st_uid, old.st_gid) != 0 &&
      ::fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0) {
    errno = 0;
  }
  if (::fchmod(file, old.st_mode & kPermissions) != 0) errno = 0;
}

/// Writes the text to a new file, down to the medium.
bool WriteNew(const std::filesystem::path& path, std::string_view text,
              const std::optional<struct stat>& old) {
  const mode_t mode = old ? mode_t{S_IRUSR | S_IWUSR} : kNewFile;
  FileDescriptor file = Opened(path, O_WRONLY | O_CREAT | O_EXCL, mode);
  if (!file.IsOpen() || !WriteAll(file.Get(), text)) return false;
  if (old) TakeOver(file.Get(), *old);
  return Sync(file) && file.Close();
}

/// Makes a new name last through a power cut. Not every file system can; the file is whole without
/// it.
void SyncDirectory(const std::filesystem::path& directory) {
  const FileDescriptor opened = Opened(directory, O_RDONLY | O_DIRECTORY);
  if (opened.IsOpen()) Sync(opened);
}

/// Writes the text over that of a file, down to the medium.
bool Overwrite(const std::filesystem::path& path, std::string_view text) {
  FileDescriptor file = Opened(path, O_WRONLY);
  if (!file.IsOpen() || !WriteAll(file.Get(), text)) return false;
  const auto length = static_cast<off_t>(text.size());
  return Uninterrupted([&] { return ::ftruncate(file.Get(), length); }) == 0 && Sync(file) &&
         file.Close();
}

bool MayBeReplaced(const std::filesystem::path& file, const struct stat& status) {
  return S_ISREG(status.st_mode) && (status.st_mode & kAnyWrite) != 0 &&
         Uninterrupted([&] { return ::access(file.c_str(), W_OK); }) == 0;
}

/// Whether a renaming failed since the name belongs to somebody else: a file that is mounted by
/// itself, or one of another owner in a directory that all share.
bool NameIsTaken(int error) {
  return error == EBUSY || error == EXDEV || error == EPERM || error == EACCES;
}

WholeFile ReadFile(const std::filesystem::path& path) {
  // A pipe without a writer would make an ordinary open wait.
  const FileDescriptor file = Opened(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (!file.IsOpen())
    return {errno == ENOENT || errno == ENOTDIR ? FileState::Absent : FileState::Unreadable, {}};
  struct stat status {};
  if (Uninterrupted([&] { return ::fstat(file.Get(), &status); }) != 0 ||
      !S_ISREG(status.st_mode) || status.st_size > kLargestFile)
    return {FileState::Unreadable, {}};
  WholeFile whole{FileState::Read, {}};
  whole.Text.reserve(static_cast<std::size_t>(status.st_size));
  if (!ReadAll(file.Get(), whole.Text)) return {FileState::Unreadable, {}};
  return whole;
}

/// Writes the text of a draft over that of the file, a copy of it at hand all the time. Where that
/// fails, the old text is put back; where the disk refuses even that, the copy stays and counts.
bool WriteInPlace(const std::filesystem::path& file, const std::filesystem::path& draft,
                  std::string_view text) {
  const WholeFile old = ReadWholeFile(file);
  const std::filesystem::path copy = CopyBeside(file);
  if (old.State != FileState::Read || !Renamed(draft, copy)) return false;
  SyncDirectory(DirectoryOf(file));
  const bool written = Overwrite(file, text);
  if (written || Overwrite(file, old.Text)) ::unlink(copy.c_str());
  return written;
}

}  // namespace

WholeFile ReadWholeFile(const std::string& path) {
  WholeFile whole = ReadFile(path);
  if (whole.State != FileState::Read) return whole;
  const auto file = BehindLinks(path);
  if (!file) return whole;
  WholeFile copy = ReadFile(CopyBeside(*file));
  return copy.State == FileState::Absent ? whole : copy;
}

bool ReplaceFile(const std::string& path, std::string_view text) {
  const auto file = BehindLinks(path);
  if (!file || !file->has_filename()) return false;
  struct stat status {};
  std::optional<struct stat> old;
  if (Uninterrupted([&] { return ::stat(file->c_str(), &status); }) == 0) {
    if (!MayBeReplaced(*file, status)) return false;
    old = status;
  } else if (errno != ENOENT) {
    return false;
  }
  const std::filesystem::path draft = DraftBeside(*file);
  ::unlink(draft.c_str());
  bool written = WriteNew(draft, text, old);
  if (written && Renamed(draft, *file)) {
    ::unlink(CopyBeside(*file).c_str());
    SyncDirectory(DirectoryOf(*file));
    return true;
  }
  written = written && NameIsTaken(errno) && WriteInPlace(*file, draft, text);
  ::unlink(draft.c_str());
  return written;
}

}  // namespace marlex
