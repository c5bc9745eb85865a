#include "i18n/string_blocks.h"

namespace marlex {

const std::vector<StringEntry>& StringsOf(const std::string& language) {
  static const std::vector<StringBlock> blocks = {
#include "string_blocks.inc"
  };
  static const std::vector<StringEntry> none;
  for (const StringBlock& block : blocks) {
    if (block.Language == language) return block.Strings;
  }
  return none;
}

}  // namespace marlex
