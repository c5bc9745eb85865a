#include "desktop/files/profile_files.h"

#include "desktop/files/whole_file.h"
#include "platform/profile_text.h"

namespace marlex {

std::string DiskProfileFiles::GetString(const std::string& section, const std::string& key,
                                        const std::string& file, std::size_t maxCharacters) const {
  return ProfileValue(ReadWholeFile(file).Text, section, key, maxCharacters);
}

std::vector<std::string> DiskProfileFiles::GetNumbered(const std::string& section,
                                                       const std::string& keyPrefix,
                                                       const std::string& file,
                                                       std::size_t maxCharacters) const {
  return NumberedProfileValues(ReadWholeFile(file).Text, section, keyPrefix, maxCharacters);
}

bool DiskProfileFiles::WriteStrings(const std::vector<ProfileEntry>& entries,
                                    const std::string& file) {
  const WholeFile old = ReadWholeFile(file);
  if (old.State == FileState::Unreadable) return false;
  std::string text = old.Text;
  for (const auto& [section, key, value] : entries)
    text = WithProfileValue(text, section, key, value);
  if (old.State == FileState::Read && text == old.Text) return true;
  return ReplaceFile(file, text);
}

bool DiskProfileFiles::Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) {
  return ReplaceFile(file, NewProfileText(entries));
}

}  // namespace marlex
