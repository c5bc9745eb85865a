#include "app/amplifier/installation_folder.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace marlex {

namespace fs = std::filesystem;

namespace {

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

std::string UsualFolder() {
  const std::string data = Variable("XDG_DATA_HOME");
  if (!data.empty()) return data + "/marlex";
  const std::string home = Variable("HOME");
  return home.empty() ? "" : home + "/.local/share/marlex";
}

std::string OpenFolder(const std::string& folder, std::string& fault) {
  std::error_code error;
  if (folder.empty()) return fault = "the name of the folder is empty", "";
  if (fs::exists(folder, error) && !fs::is_directory(folder, error))
    return fault = folder + " is a file, not a folder", "";
  fs::create_directories(folder, error);
  if (error) return fault = "the folder " + folder + " cannot be created", "";
  const fs::path path = fs::canonical(folder, error);
  if (error) return fault = "the folder " + folder + " cannot be opened", "";
  if (access(path.c_str(), W_OK | X_OK) != 0)
    return fault = "the folder " + folder + " cannot be written", "";
  return path.string();
}

}  // namespace marlex
