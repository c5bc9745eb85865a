#include "i18n/string_table.h"

#include "platform/runtime_failure.h"

namespace marlex {

StringTable::StringTable() { AddBlock(0, EnglishStrings()); }

void StringTable::AddBlock(int base, const std::vector<StringEntry>& strings) {
  for (const StringEntry& entry : strings) Texts.emplace(base + entry.Id, entry.Text);
}

std::optional<std::string> StringTable::Find(int id) const {
  for (const int number : {LanguageBase + id, id}) {
    const auto found = Texts.find(number);
    if (found != Texts.end()) return found->second;
  }
  return std::nullopt;
}

std::string StringTable::LoadString(int id) const {
  if (const auto text = Find(id)) return *text;
  throw RuntimeFailure("Text " + std::to_string(id) + " is not in the string table");
}

}  // namespace marlex
