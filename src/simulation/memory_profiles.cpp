#include "simulation/memory_profiles.h"

#include <utility>

namespace marlex {

std::string MemoryProfiles::GetString(const std::string& section, const std::string& key,
                                      const std::string& file, std::size_t maxCharacters) const {
  return ProfileValue(TextOf(file).value_or(ProfileFileText{}).Text, section, key, maxCharacters);
}

std::vector<std::string> MemoryProfiles::GetNumbered(const std::string& section,
                                                     const std::string& keyPrefix,
                                                     const std::string& file,
                                                     std::size_t maxCharacters) const {
  return NumberedProfileValues(TextOf(file).value_or(ProfileFileText{}).Text, section, keyPrefix,
                               maxCharacters);
}

Writing MemoryProfiles::WriteStrings(const std::vector<ProfileEntry>& entries,
                                     const std::string& file) {
  auto text = TextOf(file);
  if (!text && !Disk.Search(file).empty()) return Writing::Failed;
  if (!text) text.emplace();
  for (const auto& [section, key, value] : entries)
    text->Text = WithProfileValue(text->Text, section, key, value);
  const std::string bytes = text->Bytes();
  const bool unchanged = Disk.Read(file) == bytes;
  if (!unchanged && !Disk.Write(Disk.Found(file), bytes)) return Writing::Failed;
  Note(entries, file);
  return unchanged ? Writing::Unchanged : Writing::Done;
}

/// Text of a file; empty optional when the file is missing, unreadable or not text.
std::optional<ProfileFileText> MemoryProfiles::TextOf(const std::string& file) const {
  auto bytes = Disk.Read(file);
  return bytes ? ProfileFileText::Of(*std::move(bytes)) : std::nullopt;
}

bool MemoryProfiles::Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) {
  const std::string directory = file.substr(0, file.size() - FileNameOf(file).size());
  if (!Disk.Write(Disk.Found(directory) + FileNameOf(file), NewProfileText(entries))) return false;
  Log.Write("rebuild", FileNameOf(file));
  Note(entries, file);
  return true;
}

void MemoryProfiles::Note(const std::vector<ProfileEntry>& entries, const std::string& file) {
  for (const auto& [section, key, value] : entries)
    Log.Write("write", FileNameOf(file) + " [" + section + "] " + key + "=" + value);
}

}  // namespace marlex
