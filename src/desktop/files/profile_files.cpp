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

bool DiskProfileFiles::WriteString(const std::string& section, const std::string& key,
                                   const std::string& value, const std::string& file) {
  const WholeFile old = ReadWholeFile(file);
  if (old.State == FileState::Unreadable) return false;
  const std::string text = WithProfileValue(old.Text, section, key, value);
  if (old.State == FileState::Read && text == old.Text) return true;
  return ReplaceFile(file, text);
}

}  // namespace marlex
