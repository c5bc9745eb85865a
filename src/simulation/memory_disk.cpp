#include "simulation/memory_disk.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "text/text_case.h"

namespace marlex {

namespace {

/// The directory that holds this entry; a root holds itself.
std::string ParentOf(const std::string& path) {
  const std::size_t separator = path.rfind(kSeparator);
  return separator == std::string::npos ? "" : path.substr(0, std::max<std::size_t>(separator, 1));
}

}  // namespace

std::string MemoryDisk::Search(const std::string& path) const {
  if (path.empty()) return "";
  if (path.back() == kSeparator) {
    const std::vector<std::string> names = FilesOf(path);
    const auto first = std::min_element(names.begin(), names.end(), NameComesBefore);
    return first == names.end() ? "" : *first;
  }
  const std::string found = Found(path);
  return Exists(found) ? InUtf8(FileNameOf(found), NamesIn) : "";
}

std::vector<std::string> MemoryDisk::List(const std::string& directory,
                                          const std::string& pattern) const {
  std::vector<std::string> names = FilesOf(directory);
  std::erase_if(names, [&](const std::string& name) { return !MatchesPattern(name, pattern); });
  std::sort(names.begin(), names.end(), NameComesBefore);
  return names;
}

std::vector<std::string> MemoryDisk::Drives() const {
  std::vector<std::string> roots;
  for (const std::string& place : Mounted) {
    if (!HasLineEnd(place) && place != kHome) roots.push_back(InUtf8(place, NamesIn));
  }
  std::sort(roots.begin(), roots.end());
  roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
  roots.insert(roots.begin(), kHome);
  return roots;
}

bool MemoryDisk::HasDirectory(const std::string& path) const { return IsDirectory(Found(path)); }

std::vector<std::string> MemoryDisk::Subdirectories(const std::string& directory) const {
  std::vector<std::string> names;
  const std::string found = WithoutFinalSeparator(Found(directory));
  for (const std::string& name : EntriesOf(found)) {
    if (IsOffered(name) && IsDirectory(JoinPath(found, name)))
      names.push_back(InUtf8(name, NamesIn));
  }
  std::sort(names.begin(), names.end(), NameComesBefore);
  return names;
}

void MemoryDisk::AddDirectory(const std::string& path) {
  std::string made = WithoutFinalSeparator(path);
  while (DirectoriesMade.insert(made).second) made = ParentOf(made);
  ++ChangeCount;
}

void MemoryDisk::AddDrive(const std::string& root) {
  AddDirectory(root);
  Mounted.push_back(WithoutFinalSeparator(root));
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
  ++ChangeCount;
}

std::optional<std::string> MemoryDisk::Read(const std::string& path) const {
  const File* file = Find(path);
  return file ? std::optional(file->Text) : std::nullopt;
}

bool MemoryDisk::Write(const std::string& path, const std::string& text) {
  if (Covers(Unwritable, path) || Covers(Vanished, path)) return false;
  if (IsDirectory(path) || !IsDirectory(ParentOf(path))) return false;
  Put(path, {text});
  return true;
}

std::optional<int> MemoryDisk::MediaLengthMs(const std::string& path, MediaKind kind) const {
  const File* file = Find(path);
  return file && file->Media == kind ? std::optional(file->LengthMs) : std::nullopt;
}

/// Whether the path or a directory above it is in `faults`.
bool MemoryDisk::Covers(const std::set<std::string>& faults, const std::string& path) {
  if (faults.empty()) return false;
  std::string part = WithoutFinalSeparator(path);
  while (!faults.contains(part)) {
    if (part.size() <= 1) return false;
    part = ParentOf(part);
  }
  return true;
}

void MemoryDisk::Put(const std::string& path, File file) {
  AddDirectory(ParentOf(path));
  Files[path] = std::move(file);
  ++ChangeCount;
}

/// The file that is found under this path; null when it is missing or cannot be read.
const MemoryDisk::File* MemoryDisk::Find(const std::string& path) const {
  const auto found = Files.find(Found(path));
  const bool gone = found == Files.end() || Covers(Vanished, found->first);
  return gone || Covers(Unreadable, found->first) ? nullptr : &found->second;
}

bool MemoryDisk::Exists(const std::string& path) const {
  return (Files.contains(path) && !Covers(Vanished, path)) || IsDirectory(path);
}

bool MemoryDisk::IsDirectory(const std::string& path) const {
  const std::string plain = WithoutFinalSeparator(path);
  return DirectoriesMade.contains(plain) && !Covers(Vanished, plain);
}

std::string MemoryDisk::Found(const std::string& path) const {
  // The common case, for speed: most files have exactly the name asked for, and a simulated week
  // asks for millions of them.
  if (Exists(path)) return path;
  const std::string plain = WithoutFinalSeparator(path);
  if (plain.size() <= 1 || plain.find(kSeparator) == std::string::npos || Exists(plain))
    return path;
  const std::string directory = Found(ParentOf(plain));
  return JoinPath(directory, FoundName(directory, FileNameOf(plain))) + path.substr(plain.size());
}

/// The first entry, in sorting order, whose name equals `name` except for case; `name` itself if
/// there is none.
std::string MemoryDisk::FoundName(const std::string& directory, const std::string& name) const {
  std::string found;
  for (const std::string& candidate : EntriesOf(directory)) {
    const bool first = found.empty() || NameComesBefore(candidate, found);
    if (first && NamesTheSame(candidate, name)) found = candidate;
  }
  return found.empty() ? name : found;
}

/// Names of all entries of the directory with exactly this path, files first; empty when it cannot
/// be read.
std::vector<std::string> MemoryDisk::EntriesOf(const std::string& directory) const {
  std::vector<std::string> names;
  if (!IsDirectory(directory) || Covers(Unreadable, directory)) return names;
  const std::string prefix = JoinPath(directory, "");
  const auto add = [&](const std::string& path) {
    const std::string name = path.substr(prefix.size());
    const bool inside = !name.empty() && name.find(kSeparator) == std::string::npos;
    if (inside && !Covers(Vanished, path)) names.push_back(name);
  };
  for (auto file = Files.lower_bound(prefix);
       file != Files.end() && file->first.starts_with(prefix); ++file)
    add(file->first);
  for (auto made = DirectoriesMade.lower_bound(prefix);
       made != DirectoriesMade.end() && made->starts_with(prefix); ++made)
    add(*made);
  return names;
}

/// Names of the files in a directory that are offered, in UTF-8.
std::vector<std::string> MemoryDisk::FilesOf(const std::string& directory) const {
  std::vector<std::string> names;
  const std::string found = WithoutFinalSeparator(Found(directory));
  for (const std::string& name : EntriesOf(found)) {
    if (IsOffered(name) && Files.contains(JoinPath(found, name)))
      names.push_back(InUtf8(name, NamesIn));
  }
  return names;
}

}  // namespace marlex
