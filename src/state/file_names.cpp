#include "state/file_names.h"

namespace marlex {

std::string UpToFirstPoint(const std::string& text) { return text.substr(0, text.find('.')); }

}  // namespace marlex
