#include "i18n/string_table.h"

#include <algorithm>

#include "i18n/languages.h"
#include "i18n/string_blocks.h"
#include "platform/runtime_failure.h"

namespace marlex {
namespace {

/// The language whose block contains `number`: the one with the nearest base at or below it.
const Language& LanguageAt(int number) {
  const Language* nearest = &kLanguageTable.front();
  for (const Language& language : kLanguageTable) {
    if (language.LanguageBase <= number && language.LanguageBase > nearest->LanguageBase)
      nearest = &language;
  }
  return *nearest;
}

/// Text by its number among all languages: the base of a language plus an id.
std::optional<std::string> TextAt(int number) {
  const Language& language = LanguageAt(number);
  const int id = number - language.LanguageBase;
  const auto texts = StringsOf(language.Name);
  const auto entry = std::ranges::lower_bound(texts, id, {}, &StringEntry::Id);
  if (entry == texts.end() || entry->Id != id) return std::nullopt;
  return std::string(entry->Text);
}

std::string TextOrFailure(int number, int id) {
  if (auto text = TextAt(number)) return *text;
  throw RuntimeFailure("Text " + std::to_string(id) + " is not in the string table");
}

}  // namespace

std::optional<std::string> StringTable::Find(int id) const { return TextAt(LanguageBase + id); }

std::string StringTable::LoadString(int id) const { return TextOrFailure(LanguageBase + id, id); }

std::string StringTable::LoadEnglish(int id) { return TextOrFailure(id, id); }

}  // namespace marlex
