#include "desktop/process/program_directory.h"

#include <sys/auxv.h>

#include <system_error>

namespace marlex {

namespace {

constexpr int kMostLinks = 40;  // as many as the system follows

}  // namespace

std::filesystem::path StartedPath() {
  const auto path = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
  return path ? std::filesystem::path(path) : std::filesystem::path();
}

std::filesystem::path LinkDirectory(const std::filesystem::path& executable,
                                    const std::filesystem::path& started) {
  if (executable.filename() != kPackagedProgram) return {};
  std::error_code fault;
  std::filesystem::path directory;
  std::filesystem::path path = started;
  for (int links = 0; links < kMostLinks; ++links) {
    const std::filesystem::path target = std::filesystem::read_symlink(path, fault);
    if (fault) break;
    directory = path.has_parent_path() ? path.parent_path() : ".";
    path = directory / target;  // an absolute target replaces the directory
  }
  if (directory.empty() || !std::filesystem::equivalent(path, executable, fault)) return {};
  return std::filesystem::canonical(directory, fault);
}

}  // namespace marlex
