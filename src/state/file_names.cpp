#include "state/file_names.h"

#include "platform/directories.h"

namespace marlex {

std::string UpToFirstPoint(const std::string& text) { return text.substr(0, text.find('.')); }

std::string SoundName(const std::string& path) {
  const std::string file = path.substr(path.rfind(kSeparator) + 1);
  return file.substr(0, file.rfind('.'));
}

}  // namespace marlex
