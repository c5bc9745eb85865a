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
constexpr int kMostLinks = 40;  // as many as the system follows
// Leaves room for the additions below in the 255 bytes of a file name.
constexpr std::size_t kNameBytes = 200;
constexpr mode_t kPermissions = 07777;
constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kNewFile = 0666;  // before the process's umask

/// First byte of a file that is being overwritten in place. No text begins with it, and a single
/// byte is written either completely or not at all.
constexpr std::string_view kUnfinished("\0", 1);

/// Result of a system call, which is repeated while signals interrupt it.
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

/// Reads to the end of the file. False on a read error, or when the file grows above the limit.
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

bool WriteAt(int file, off_t place, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count =
        Uninterrupted([&] { return ::pwrite(file, text.data(), text.size(), place); });
    if (count <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
    place += count;
  }
  return true;
}

bool CutAt(int file, std::size_t length) {
  return Uninterrupted([&] { return ::ftruncate(file, static_cast<off_t>(length)); }) == 0;
}

bool Sync(const FileDescriptor& file) {
  return Uninterrupted([&] { return ::fsync(file.Get()); }) == 0;
}

bool Renamed(const std::filesystem::path& from, const std::filesystem::path& to) {
  return Uninterrupted([&] { return std::rename(from.c_str(), to.c_str()); }) == 0;
}

bool Removed(const std::filesystem::path& file) {
  return Uninterrupted([&] { return ::unlink(file.c_str()); }) == 0;
}

/// The file that a path leads to, even if it does not exist. Empty when the links form a loop or
/// cannot be read.
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

/// Hidden file to which a new text is written first.
std::filesystem::path DraftBeside(const std::filesystem::path& file) {
  return HiddenBeside(file, ".new");
}

/// Hidden file with the new text, complete on the disk, while the file itself is being overwritten.
/// It counts only as long as that file is unfinished: a finished one has been repaired since and is
/// newer.
std::filesystem::path CopyBeside(const std::filesystem::path& file) {
  return HiddenBeside(file, ".whole");
}

/// Copies owner and mode. This fails on file systems that have neither, and without the right to
/// give files away; deliberate: the settings are then worth more than their owner. The owner is set
/// first, since changing it clears bits of the mode.
void TakeOver(int file, const struct stat& old) {
  if (::fchown(file, old.st_uid, old.st_gid) != 0 &&
      ::fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0) {
    errno = 0;
  }
  if (::fchmod(file, old.st_mode & kPermissions) != 0) errno = 0;
}

/// Writes the text to a new file and flushes it to the medium.
bool WriteNew(const std::filesystem::path& path, std::string_view text,
              const std::optional<struct stat>& old) {
  const mode_t mode = old ? mode_t{S_IRUSR | S_IWUSR} : kNewFile;
  FileDescriptor file = Opened(path, O_WRONLY | O_CREAT | O_EXCL, mode);
  if (!file.IsOpen() || !WriteAll(file.Get(), text)) return false;
  if (old) TakeOver(file.Get(), *old);
  return Sync(file) && file.Close();
}

/// Makes renames and removals in the file's directory survive a power cut. False where the file
/// system cannot.
bool SyncNames(const std::filesystem::path& file) {
  const FileDescriptor directory = Opened(DirectoryOf(file), O_RDONLY | O_DIRECTORY);
  return directory.IsOpen() && Sync(directory);
}

/// Removes the hidden copy. The file must be complete on the disk by now, and so must its name.
void RemoveCopy(const std::filesystem::path& file) {
  if (Removed(CopyBeside(file))) SyncNames(file);
}

/// Overwrites a file and flushes it to the medium. Its first byte marks it as unfinished until all
/// the others are new.
bool Overwrite(const std::filesystem::path& path, std::string_view text) {
  FileDescriptor file = Opened(path, O_WRONLY);
  const std::string_view first = text.substr(0, kUnfinished.size());
  return file.IsOpen() && WriteAt(file.Get(), 0, kUnfinished) && Sync(file) &&
         WriteAt(file.Get(), 1, text.substr(first.size())) && CutAt(file.Get(), text.size()) &&
         Sync(file) && WriteAt(file.Get(), 0, first) && Sync(file) && file.Close();
}

bool MayBeReplaced(const std::filesystem::path& file, const struct stat& status) {
  return S_ISREG(status.st_mode) && (status.st_mode & kAnyWrite) != 0 &&
         Uninterrupted([&] { return ::access(file.c_str(), W_OK); }) == 0;
}

/// Whether a rename failed because the name cannot be replaced: the file is itself a mount point,
/// or belongs to another owner in a shared directory.
bool NameIsTaken(int error) {
  return error == EBUSY || error == EXDEV || error == EPERM || error == EACCES;
}

WholeFile ReadFile(const std::filesystem::path& path) {
  // Without `O_NONBLOCK`, opening a pipe that has no writer would wait.
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

bool IsUnfinished(const WholeFile& file) { return file.Text.starts_with(kUnfinished); }

/// Completes a file whose overwriting was interrupted, so that it no longer needs its old copy.
bool Finished(const std::filesystem::path& file, std::string_view text) {
  return !IsUnfinished(ReadFile(file)) || Overwrite(file, text);
}

/// Overwrites the file with the text of the draft, which is kept as a copy until that is done. On
/// failure, puts the old text back; if even that fails, the copy stays, and counts while the file
/// is unfinished.
bool WriteInPlace(const std::filesystem::path& file, const std::filesystem::path& draft,
                  std::string_view text) {
  const WholeFile old = ReadWholeFile(file);
  if (old.State != FileState::Read || !Finished(file, old.Text)) return false;
  if (!Renamed(draft, CopyBeside(file))) return false;
  const bool copyLasts = SyncNames(file);
  const bool written = copyLasts && Overwrite(file, text);
  if (written || !copyLasts || Overwrite(file, old.Text)) RemoveCopy(file);
  return written;
}

}  // namespace

WholeFile ReadWholeFile(const std::string& path) {
  WholeFile whole = ReadFile(path);
  if (!IsUnfinished(whole)) return whole;
  const auto file = BehindLinks(path);
  if (!file) return whole;
  WholeFile copy = ReadFile(CopyBeside(*file));
  return copy.State == FileState::Read ? copy : whole;
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
  Removed(draft);
  bool written = WriteNew(draft, text, old);
  if (written && Renamed(draft, *file)) {
    // Even if the rename does not survive a power cut, the file is complete; but an old copy may
    // then still be needed.
    if (SyncNames(*file)) RemoveCopy(*file);
    return true;
  }
  written = written && NameIsTaken(errno) && WriteInPlace(*file, draft, text);
  Removed(draft);
  return written;
}

}  // namespace marlex
