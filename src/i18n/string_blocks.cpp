#include "i18n/string_blocks.h"

#include <algorithm>

#include "i18n/languages.h"

namespace marlex {
namespace {

#include "string_blocks.inc"

static_assert(std::ranges::all_of(kLanguageTable,
                                  [](const Language& language) {
                                    return std::ranges::count(kStringBlocks, language.Name,
                                                              &StringBlock::Language) == 1;
                                  }),
              "each language of the table has its file of texts");
static_assert(std::size(kStringBlocks) == kLanguageTable.size(),
              "each file of texts has its language in the table");

}  // namespace

std::span<const StringEntry> StringsOf(std::string_view language) {
  const auto block = std::ranges::find(kStringBlocks, language, &StringBlock::Language);
  return block == std::end(kStringBlocks) ? std::span<const StringEntry>() : block->Strings;
}

}  // namespace marlex
