#include "simulation/memory_disk.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "text/text_case.h"

namespace marlex {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Whether `name` matches a pattern with `*` and `?`, ignoring the case of ASCII letters.
bool Matches(std::string_view name, std::string_view pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern.front() == '*') {
    return Matches(name, pattern.substr(1)) || (!name.empty() && Matches(name.substr(1), pattern));
  }
  if (name.empty()) return false;
  const bool same = pattern.front() == '?' || Lower(pattern.front()) == Lower(name.front());
  return same && Matches(name.substr(1), pattern.substr(1));
}

std::string ParentOf(const std::string& path) {
  const std::size_t separator = path.rfind(kSeparator);
  return separator == std::string::npos ? "" : path.substr(0, separator);
}

}  // namespace

std::string MemoryDisk::Search(const std::string& path) const {
  if (path.empty()) return "";
  if (path.back() == kSeparator) {
    const std::vector<std::string> names = FilesOf(path);
    const auto first = std::min_element(names.begin(), names.end(), NameComesBefore);
    return first == names.end() ? "" : *first;
  }
  return Find(path) || HasDirectory(path) ? InUtf8(FileNameOf(Found(path)), NamesIn) : "";
}

std::vector<std::string> MemoryDisk::List(const std::string& directory,
                                          const std::string& pattern) const {
  if (Covers(Unreadable, directory)) return {};
  std::vector<std::string> names = FilesOf(directory);
  std::erase_if(names, [&](const std::string& name) { return !Matches(name, pattern); });
  std::sort(names.begin(), names.end(), NameComesBefore);
  return names;
}

std::vector<std::string> MemoryDisk::Subdirectories(const std::string& directory) const {
  std::vector<std::string> names;
  if (Covers(Unreadable, directory)) return names;
  const std::string prefix = JoinPath(FoundDirectory(directory), "");
  for (auto path = DirectoriesMade.lower_bound(prefix);
       path != DirectoriesMade.end() && path->starts_with(prefix); ++path) {
    const std::string name = path->substr(prefix.size());
    const bool below = name.find(kSeparator) != std::string::npos;
    if (!below && IsOffered(name) && HasDirectory(*path)) names.push_back(InUtf8(name, NamesIn));
  }
  std::sort(names.begin(), names.end(), NameComesBefore);
  return names;
}

void MemoryDisk::AddDirectory(const std::string& path) {
  for (std::string made = WithoutFinalSeparator(path); !made.empty(); made = ParentOf(made)) {
    DirectoriesMade.insert(made);
  }
}

void MemoryDisk::AddDrive(const std::string& root) {
  AddDirectory(root);
  DriveList.push_back(root);
  std::sort(DriveList.begin() + 1, DriveList.end());  // the home directory stays first
}

void MemoryDisk::AddFile(const std::string& path, const std::string& text) { Put(path, {text}); }

void MemoryDisk::AddWav(const std::string& path, int lengthMs) {
  Put(path, {"", MediaKind::Wav, lengthMs});
}

void MemoryDisk::AddMp3(const std::string& path, int lengthMs) {
  Put(path, {"", MediaKind::Mp3, lengthMs});
}

void MemoryDisk::Heal(const std::string& path) {
  Unwritable.erase(WithoutFinalSeparator(path));
  Unreadable.erase(WithoutFinalSeparator(path));
}

std::optional<std::string> MemoryDisk::Read(const std::string& path) const {
  const File* file = Find(path);
  if (!file || Covers(Unreadable, path)) return std::nullopt;
  return file->Text;
}

bool MemoryDisk::Write(const std::string& path, const std::string& text) {
  if (Covers(Unwritable, path) || Covers(Vanished, path)) return false;
  if (HasDirectory(path) || !HasDirectory(ParentOf(path))) return false;
  Put(path, {text});
  return true;
}

std::optional<int> MemoryDisk::MediaLengthMs(const std::string& path, MediaKind kind) const {
  const File* file = Find(path);
  if (!file || file->Media != kind || Covers(Unreadable, path)) return std::nullopt;
  return file->LengthMs;
}

/// Whether the path or a directory above it is in `faults`.
bool MemoryDisk::Covers(const std::set<std::string>& faults, const std::string& path) {
  if (faults.empty()) return false;
  for (std::string part = WithoutFinalSeparator(path); !part.empty(); part = ParentOf(part)) {
    if (faults.contains(part)) return true;
  }
  return faults.contains(std::string(1, kSeparator));
}

void MemoryDisk::Put(const std::string& path, File file) {
  AddDirectory(ParentOf(path));
  Files[path] = std::move(file);
}

const MemoryDisk::File* MemoryDisk::Find(const std::string& path) const {
  const auto found = Files.find(Found(path));
  return found == Files.end() || Covers(Vanished, found->first) ? nullptr : &found->second;
}

/// Path of an existing file of this name, or else of one whose name differs only in case. If there
/// is none, the same for a directory; failing that, the path itself.
std::string MemoryDisk::Found(const std::string& path) const {
  // The common case, for speed: most files have exactly the name asked for, and a simulated week
  // asks for millions of them.
  if (Files.contains(path) && !Covers(Vanished, path)) return path;
  for (const auto& [name, file] : Files) {
    if (NamesTheSame(name, path) && !Covers(Vanished, name)) return name;
  }
  return FoundDirectory(path);
}

/// The same for a directory. The result has no final separator.
std::string MemoryDisk::FoundDirectory(const std::string& path) const {
  const std::string plain = WithoutFinalSeparator(path);
  if (DirectoriesMade.contains(plain)) return plain;
  for (const std::string& name : DirectoriesMade) {
    if (NamesTheSame(name, plain)) return name;
  }
  return plain;
}

bool MemoryDisk::HasDirectory(const std::string& path) const {
  const std::string found = FoundDirectory(path);
  const bool root = found.empty() || found == std::string(1, kSeparator);
  return (root || DirectoriesMade.contains(found)) && !Covers(Vanished, found);
}

/// Names of the files directly in one directory, in the order of their bytes.
std::vector<std::string> MemoryDisk::FilesOf(const std::string& directory) const {
  std::vector<std::string> names;
  const std::string prefix = JoinPath(FoundDirectory(directory), "");
  for (auto file = Files.lower_bound(prefix);
       file != Files.end() && file->first.starts_with(prefix); ++file) {
    const std::string name = file->first.substr(prefix.size());
    const bool below = name.find(kSeparator) != std::string::npos;
    if (!below && IsOffered(name) && !Covers(Vanished, file->first))
      names.push_back(InUtf8(name, NamesIn));
  }
  return names;
}

}  // namespace marlex
