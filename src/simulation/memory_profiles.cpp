#include "simulation/memory_profiles.h"

#include <optional>

#include "platform/profile_text.h"

namespace marlex {

std::string MemoryProfiles::GetString(const std::string& section, const std::string& key,
                                      const std::string& file, std::size_t maxCharacters) const {
  const std::optional<std::string> text = Disk.Read(file);
  return text ? ProfileValue(*text, section, key, maxCharacters) : "";
}

std::vector<std::string> MemoryProfiles::GetNumbered(const std::string& section,
                                                     const std::string& keyPrefix,
                                                     const std::string& file,
                                                     std::size_t maxCharacters) const {
  return NumberedProfileValues(Disk.Read(file).value_or(""), section, keyPrefix, maxCharacters);
}

bool MemoryProfiles::WriteStrings(const std::vector<ProfileEntry>& entries,
                                  const std::string& file) {
  const std::optional<std::string> old = Disk.Read(file);
  const bool unreadable = !old && !Disk.Search(file).empty();
  std::string text = old.value_or("");
  for (const auto& [section, key, value] : entries)
    text = WithProfileValue(text, section, key, value);
  if (unreadable || !Disk.Write(file, text)) return false;
  Note(entries, file);
  return true;
}

bool MemoryProfiles::Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) {
  if (!Disk.Write(file, NewProfileText(entries))) return false;
  Log.Write("rebuild", NameOf(file));
  Note(entries, file);
  return true;
}

void MemoryProfiles::Note(const std::vector<ProfileEntry>& entries, const std::string& file) {
  for (const auto& [section, key, value] : entries)
    Log.Write("write", NameOf(file) + " [" + section + "] " + key + "=" + value);
}

}  // namespace marlex
