#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/directories.h"

namespace marlex {

enum class MediaKind { None, Wav, Mp3 };

/// One file tree in memory, shared by everything on the simulated PC that reads or writes files.
/// Adding a file creates the directories above it. Paths are absolute and have no components `.`
/// or `..`.
class MemoryDisk : public Directories {
 public:
  MemoryDisk() { AddDirectory(kHome); }

  std::string Search(const std::string& path) const override;
  std::vector<std::string> List(const std::string& directory,
                                const std::string& pattern) const override;
  std::vector<std::string> Drives() const override;
  bool HasDirectory(const std::string& path) const override;
  std::vector<std::string> Subdirectories(const std::string& directory) const override;

  /// The operator's home directory.
  static constexpr const char* kHome = "/home/operator";

  /// Mounts a file system at a directory, which is created if necessary.
  void AddDrive(const std::string& root);

  void AddDirectory(const std::string& path);
  void AddFile(const std::string& path, const std::string& text = "");
  void AddWav(const std::string& path, int lengthMs);
  void AddMp3(const std::string& path, int lengthMs);

  /// Adds a file that exists, whatever its name, but that no player can play.
  void AddBroken(const std::string& path) { AddFile(path); }

  void Remove(const std::string& path) {
    Files.erase(path);
    ++ChangeCount;
  }

  /// Makes a file, or a directory with everything in it, disappear without losing it, like a drive
  /// that is unplugged; `Return` brings it back.
  void Vanish(const std::string& path) {
    Vanished.insert(WithoutFinalSeparator(path));
    ++ChangeCount;
  }
  void Return(const std::string& path) {
    Vanished.erase(WithoutFinalSeparator(path));
    ++ChangeCount;
  }

  /// Make writes or reads fail for this file, or for everything below this directory, as on a full,
  /// protected or faulty disk. What is in a directory that cannot be read is not listed, but is
  /// found under its exact name. `Heal` undoes both.
  void FailWrites(const std::string& path) {
    Unwritable.insert(WithoutFinalSeparator(path));
    ++ChangeCount;
  }
  void FailReads(const std::string& path) {
    Unreadable.insert(WithoutFinalSeparator(path));
    ++ChangeCount;
  }
  void Heal(const std::string& path);

  /// How often the disk has changed, faults included.
  std::uint64_t Changes() const { return ChangeCount; }

  /// Path under which the file or directory of this name is found, as `Directories` says; the path
  /// itself where there is none.
  std::string Found(const std::string& path) const;

  /// Whole text of a file; empty optional when it is missing or cannot be read.
  std::optional<std::string> Read(const std::string& path) const;

  /// Creates or replaces a text file. False when its directory is missing or the write fails; an
  /// existing file is then unchanged.
  bool Write(const std::string& path, const std::string& text);

  /// Length of a file of this kind in milliseconds; empty when the file is missing, is of another
  /// kind or cannot be read.
  std::optional<int> MediaLengthMs(const std::string& path, MediaKind kind) const;

 private:
  struct File {
    std::string Text;
    MediaKind Media = MediaKind::None;
    int LengthMs = 0;
  };

  static bool Covers(const std::set<std::string>& faults, const std::string& path);
  void Put(const std::string& path, File file);
  const File* Find(const std::string& path) const;
  bool Exists(const std::string& path) const;
  bool IsDirectory(const std::string& path) const;
  std::string FoundName(const std::string& directory, const std::string& name) const;
  std::vector<std::string> EntriesOf(const std::string& directory) const;
  std::vector<std::string> FilesOf(const std::string& directory) const;

  std::map<std::string, File> Files;
  std::set<std::string> DirectoriesMade{std::string(1, kSeparator)};
  std::vector<std::string> Mounted{std::string(1, kSeparator)};  // in the order of mounting
  std::set<std::string> Vanished;
  std::set<std::string> Unwritable;
  std::set<std::string> Unreadable;
  std::uint64_t ChangeCount = 0;
};

}  // namespace marlex
