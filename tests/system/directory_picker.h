#pragma once

#include <strings.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace marlex {

/// Row of a directory of the operator's home in the directory picker, which begins there: the list
/// has the path down to the home, followed by the contents of the home.
inline int RowInPicker(const std::string& home, const std::string& name) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(home)) {
    const std::string found = entry.path().filename().string();
    if (entry.is_directory() && !found.starts_with('.')) names.push_back(found);
  }
  const auto before = std::count_if(names.begin(), names.end(), [&](const std::string& other) {
    return ::strcasecmp(other.c_str(), name.c_str()) < 0;
  });
  const auto way = std::count(home.begin(), home.end(), '/') + 1;
  return static_cast<int>(way + before);
}

}  // namespace marlex
