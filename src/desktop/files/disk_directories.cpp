#include "desktop/files/disk_directories.h"

#include <mntent.h>

#include <QDir>
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

#include "desktop/files/found_path.h"
#include "text/text_case.h"

namespace marlex {

namespace fs = std::filesystem;

namespace {

/// Directories of the system, where nobody keeps music. Removable drives are mounted under one of
/// them.
constexpr std::array kSystemPlaces = {"/boot", "/dev", "/etc", "/proc", "/run",
                                      "/snap", "/sys", "/tmp", "/usr",  "/var"};
constexpr const char* kRemovableDrives = "/run/media/";

bool IsDrive(const std::string& place) {
  if (place.starts_with(kRemovableDrives)) return true;
  return std::none_of(kSystemPlaces.begin(), kSystemPlaces.end(), [&](const char* system) {
    return JoinPath(place, "").starts_with(JoinPath(system, ""));
  });
}

/// Mount points in the table, in its order.
std::vector<std::string> MountedPlaces(const std::string& mountTable) {
  std::vector<std::string> places;
  const std::unique_ptr<FILE, int (*)(FILE*)> table(::setmntent(mountTable.c_str(), "re"),
                                                    ::endmntent);
  if (!table) return places;
  while (const mntent* mounted = ::getmntent(table.get())) places.emplace_back(mounted->mnt_dir);
  return places;
}

std::string_view NameOf(const fs::directory_entry& entry) {
  const std::string_view path = entry.path().native();
  return path.substr(path.rfind(kSeparator) + 1);
}

/// Calls `visit` for each entry of a directory that may be offered, with its name.
template <class Visit>
void ForEachEntry(const std::string& path, Visit visit) {
  const std::string directory = FoundPath(path);
  std::error_code fault;
  // An error midway, as when a drive is unplugged, ends the loop: increment() then yields the end.
  for (fs::directory_iterator entry(directory, fault), end; !fault && entry != end;
       entry.increment(fault)) {
    const std::string_view name = NameOf(*entry);
    if (IsOffered(name)) visit(*entry, name);
  }
}

bool IsRegular(const fs::directory_entry& entry) {
  std::error_code fault;
  return entry.is_regular_file(fault);
}

/// Name of the first regular file in a directory, in sorting order. Does not build a list of all: a
/// folder can hold thousands of files and is searched over and over.
std::string FirstFile(const std::string& directory, CodePage namesIn) {
  std::string first;
  ForEachEntry(directory, [&](const fs::directory_entry& entry, std::string_view onDisk) {
    const std::string name = InUtf8(onDisk, namesIn);
    const bool earlier = first.empty() || NameComesBefore(name, first);
    if (earlier && IsRegular(entry)) first = name;
  });
  return first;
}

std::vector<std::string> Sorted(std::vector<std::string> names) {
  std::sort(names.begin(), names.end(), NameComesBefore);
  return names;
}

}  // namespace

std::string DiskDirectories::Search(const std::string& path) const {
  if (path.empty()) return "";
  if (path.back() == kSeparator) return FirstFile(path, NamesIn);
  const std::string found = FoundPath(path);
  std::error_code fault;
  const fs::file_status status = fs::status(found, fault);
  if (!fs::is_regular_file(status) && !fs::is_directory(status)) return "";
  return InUtf8(found.substr(found.rfind(kSeparator) + 1), NamesIn);
}

std::vector<std::string> DiskDirectories::List(const std::string& directory,
                                               const std::string& pattern) const {
  std::vector<std::string> names;
  ForEachEntry(directory, [&](const fs::directory_entry& entry, std::string_view onDisk) {
    const std::string name = InUtf8(onDisk, NamesIn);
    if (MatchesPattern(name, pattern) && IsRegular(entry)) names.push_back(name);
  });
  return Sorted(std::move(names));
}

std::vector<std::string> DiskDirectories::Drives() const {
  std::vector<std::string> roots = MountedPlaces(MountTable);
  roots.emplace_back("/");
  std::erase_if(roots,
                [](const std::string& place) { return HasLineEnd(place) || !IsDrive(place); });
  for (std::string& root : roots) root = InUtf8(root, NamesIn);
  std::sort(roots.begin(), roots.end());
  roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
  const std::string home = WithoutFinalSeparator(QDir::homePath().toStdString());
  std::erase(roots, home);
  roots.insert(roots.begin(), home);
  return roots;
}

bool DiskDirectories::HasDirectory(const std::string& path) const {
  std::error_code fault;
  return fs::is_directory(FoundPath(path), fault);
}

std::vector<std::string> DiskDirectories::Subdirectories(const std::string& directory) const {
  std::vector<std::string> names;
  ForEachEntry(directory, [&](const fs::directory_entry& entry, std::string_view name) {
    std::error_code fault;
    if (entry.is_directory(fault)) names.push_back(InUtf8(name, NamesIn));
  });
  return Sorted(std::move(names));
}

}  // namespace marlex
