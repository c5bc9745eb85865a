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

bool MemoryProfiles::WriteString(const std::string& section, const std::string& key,
                                 const std::string& value, const std::string& file) {
  const std::optional<std::string> text = Disk.Read(file);
  const bool unreadable = !text && !Disk.Search(file).empty();
  if (unreadable || !Disk.Write(file, WithProfileValue(text.value_or(""), section, key, value)))
    return false;
  Log.Write("write", NameOf(file) + " [" + section + "] " + key + "=" + value);
  return true;
}

}  // namespace marlex
