#include "text/paths.h"

namespace marlex {

std::string UpToFirstPoint(const std::string& text) { return text.substr(0, text.find('.')); }

std::string FileNameOf(const std::string& path) { return path.substr(path.rfind(kSeparator) + 1); }

std::string SoundName(const std::string& path) {
  const std::string file = FileNameOf(path);
  return file.substr(0, file.rfind('.'));
}

}  // namespace marlex
