#include "desktop/files/found_path.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/directories.h"
#include "text/code_pages.h"
#include "text/text_case.h"

namespace marlex {

namespace fs = std::filesystem;

namespace {

/// The first entry, in sorting order, whose name equals `name` except for case; `name` itself if
/// there is none.
std::string FoundName(const std::string& directory, const std::string& name) {
  std::string found;
  std::error_code fault;
  for (fs::directory_iterator entry(directory, fault), end; !fault && entry != end;
       entry.increment(fault)) {
    const std::string candidate = entry->path().filename().string();
    const bool first = found.empty() || NameComesBefore(candidate, found);
    if (first && NamesTheSame(candidate, name)) found = candidate;
  }
  return found.empty() ? name : found;
}

bool IsMissing(const std::string& path) {
  std::error_code fault;
  return fs::status(path, fault).type() == fs::file_type::not_found;
}

}  // namespace

std::string FoundPath(const std::string& path) {
  const std::string plain = WithoutFinalSeparator(path);
  const std::size_t separator = plain.rfind(kSeparator);
  if (separator == std::string::npos || separator + 1 == plain.size() || !IsMissing(plain))
    return path;
  const std::string directory = FoundPath(plain.substr(0, separator == 0 ? 1 : separator));
  return JoinPath(directory, FoundName(directory, plain.substr(separator + 1))) +
         path.substr(plain.size());
}

}  // namespace marlex
