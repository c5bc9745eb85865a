#include "controls/file_lists.h"

#include <algorithm>
#include <utility>

namespace marlex {
namespace {

constexpr std::size_t kIndent = 4;  // blanks per level of the tree

bool IsRoot(const std::string& path) { return path == std::string(1, kSeparator); }

/// Parent of a directory; for the root, the root itself.
std::string Above(const std::string& path) {
  const std::size_t separator = path.rfind(kSeparator);
  return separator == 0 ? path.substr(0, 1) : path.substr(0, separator);
}

/// The directories from the root down to `directory`.
std::vector<std::string> WayTo(const std::string& directory) {
  std::vector<std::string> way{directory};
  while (!IsRoot(way.back())) way.push_back(Above(way.back()));
  std::reverse(way.begin(), way.end());
  return way;
}

bool LiesOn(const std::string& directory, const std::string& drive) {
  return JoinPath(directory, "").starts_with(JoinPath(drive, ""));
}

}  // namespace

void DriveListBox::Refresh() {
  std::vector<std::string> drives = Files.Drives();
  const int first = drives.empty() ? kNoSelection : 0;
  Replace(std::move(drives), first);
}

void DriveListBox::ShowDriveOf(const std::string& directory) {
  int found = ListIndex();
  std::size_t longest = 0;
  std::vector<std::string> drives;
  for (int index = 0; index < ListCount(); ++index) {
    drives.push_back(List(index));
    if (!LiesOn(directory, List(index)) || List(index).size() <= longest) continue;
    longest = List(index).size();
    found = index;
  }
  Replace(std::move(drives), found);
}

DirListBox::DirListBox(Form& form, const std::string& name, const Directories& files)
    : ListBox(form, name), Files(files) {
  OnDblClick = [this] { OpenSelected(); };
}

void DirListBox::ResetToDesign() {
  ListBox::ResetToDesign();
  Open.clear();
}

void DirListBox::SetPath(const std::string& directory) {
  const std::string path = WithoutFinalSeparator(directory);
  if (path == Open || !path.starts_with(kSeparator) || !Files.HasDirectory(path)) return;
  BeginAt(path);
  if (OnChange) OnChange();
}

void DirListBox::OpenAbove() {
  if (!Open.empty()) SetPath(Above(Open));
}

void DirListBox::BeginAt(const std::string& directory) {
  Open = directory;
  std::vector<std::string> entries = WayTo(Open);
  const int open = static_cast<int>(entries.size()) - 1;
  for (const std::string& name : Files.Subdirectories(Open)) {
    entries.push_back(JoinPath(Open, name));
  }
  Replace(std::move(entries), open);
}

std::string DirListBox::ShownText(int index) const {
  const std::string& path = List(index);
  if (IsRoot(path)) return path;
  const auto depth = static_cast<std::size_t>(std::count(path.begin(), path.end(), kSeparator));
  return std::string(depth * kIndent, ' ') + FileNameOf(path);
}

void FileListBox::ResetToDesign() {
  ListBox::ResetToDesign();
  Directory.clear();
  Pattern = "*";
}

void FileListBox::SetPath(const std::string& directory) {
  Directory = directory;
  Refresh();
}

void FileListBox::SetPattern(const std::string& pattern) {
  Pattern = pattern;
  Refresh();
}

void FileListBox::Refresh() {
  if (Directory.empty()) return Replace({}, kNoSelection);
  Replace(Files.List(Directory, Pattern), kNoSelection);
}

}  // namespace marlex
