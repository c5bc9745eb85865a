#include "desktop/files/directories.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/text_case.h"

namespace marlex {

namespace fs = std::filesystem;

std::string DiskDirectories::Search(const std::string& path) const {
  if (path.empty()) return "";
  if (path.back() == kSeparator) {
    const std::vector<std::string> names = List(path, "*");
    return names.empty() ? "" : names.front();
  }
  std::error_code fault;
  const fs::file_status status = fs::status(path, fault);
  const bool found = fs::is_regular_file(status) || fs::is_directory(status);
  return found ? path.substr(path.rfind(kSeparator) + 1) : "";
}

std::vector<std::string> DiskDirectories::List(const std::string& directory,
                                               const std::string& pattern) const {
  std::vector<std::string> names;
  std::error_code fault;
  // A fault in the middle, as of a drive that drops out, ends the list: increment() then gives the
  // end.
  for (fs::directory_iterator entry(directory, fault), end; !fault && entry != end;
       entry.increment(fault)) {
    const std::string name = entry->path().filename().string();
    std::error_code entryFault;
    const bool listed = !name.starts_with('.') && MatchesPattern(name, pattern);
    if (listed && entry->is_regular_file(entryFault)) names.push_back(name);
  }
  std::sort(names.begin(), names.end(), NameComesBefore);
  return names;
}

bool DiskDirectories::Delete(const std::string& path) { return ::unlink(path.c_str()) == 0; }

}  // namespace marlex
