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

/// Reads up to the end of the file. False on a fault of the medium.
bool ReadAll(int file, std::string& text) {
  char piece[1 << 16];
  for (;;) {
    const ssize_t count = ::read(file, piece, sizeof piece);
    if (count == 0) return true;
    if (count > 0) text.append(piece, static_cast<std::size_t>(count));
    if (count < 0 && errno != EINTR) return false;
    if (text.size() > static_cast<std::size_t>(kLargestFile)) return false;
  }
}

bool WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file, text.data(), text.size());
    if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
    if (count == 0 || (count < 0 && errno != EINTR)) return false;
  }
  return true;
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

std::filesystem::path TemporaryBeside(const std::filesystem::path& file) {
  return DirectoryOf(file) / ("." + file.filename().string().substr(0, kNameBytes) + ".new");
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
  FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
  if (!file.IsOpen() || !WriteAll(file.Get(), text)) return false;
  if (old) TakeOver(file.Get(), *old);
  return ::fsync(file.Get()) == 0 && file.Close();
}

/// Makes a new name last through a power cut. Not every file system can; the file is whole without
/// it.
void SyncDirectory(const std::filesystem::path& directory) {
  const FileDescriptor opened(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.IsOpen()) ::fsync(opened.Get());
}

bool MayBeReplaced(const std::filesystem::path& file, const struct stat& status) {
  return S_ISREG(status.st_mode) && (status.st_mode & kAnyWrite) != 0 &&
         ::access(file.c_str(), W_OK) == 0;
}

}  // namespace

WholeFile ReadWholeFile(const std::string& path) {
  // A pipe without a writer would make an ordinary open wait.
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file.IsOpen())
    return {errno == ENOENT || errno == ENOTDIR ? FileState::Absent : FileState::Unreadable, {}};
  struct stat status {};
  if (::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
    return {FileState::Unreadable, {}};
  if (status.st_size > kLargestFile) return {FileState::Unreadable, {}};
  WholeFile whole{FileState::Read, {}};
  whole.Text.reserve(static_cast<std::size_t>(status.st_size));
  if (!ReadAll(file.Get(), whole.Text)) return {FileState::Unreadable, {}};
  return whole;
}

bool ReplaceFile(const std::string& path, std::string_view text) {
  const auto file = BehindLinks(path);
  if (!file || !file->has_filename()) return false;
  struct stat status {};
  std::optional<struct stat> old;
  if (::stat(file->c_str(), &status) == 0) {
    if (!MayBeReplaced(*file, status)) return false;
    old = status;
  } else if (errno != ENOENT) {
    return false;
  }
  const std::filesystem::path temporary = TemporaryBeside(*file);
  ::unlink(temporary.c_str());
  if (WriteNew(temporary, text, old) && std::rename(temporary.c_str(), file->c_str()) == 0) {
    SyncDirectory(DirectoryOf(*file));
    return true;
  }
  ::unlink(temporary.c_str());
  return false;
}

}  // namespace marlex
