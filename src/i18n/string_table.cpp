#include "i18n/string_table.h"

#include <map>

#include "i18n/languages.h"
#include "i18n/string_blocks.h"
#include "platform/runtime_failure.h"

namespace marlex {
namespace {

/// All texts of all languages, each at the base of its language plus its id.
const std::map<int, std::string>& Texts() {
  static const std::map<int, std::string> texts = [] {
    std::map<int, std::string> all;
    for (const Language& language : kLanguageTable) {
      for (const StringEntry& entry : StringsOf(language.Name))
        all.emplace(language.LanguageBase + entry.Id, entry.Text);
    }
    return all;
  }();
  return texts;
}

}  // namespace

std::optional<std::string> StringTable::Find(int id) const {
  const auto found = Texts().find(LanguageBase + id);
  if (found == Texts().end()) return std::nullopt;
  return found->second;
}

std::string StringTable::LoadString(int id) const {
  if (const auto text = Find(id)) return *text;
  throw RuntimeFailure("Text " + std::to_string(id) + " is not in the string table");
}

std::string StringTable::LoadEnglish(int id) { return Texts().at(id); }

}  // namespace marlex
