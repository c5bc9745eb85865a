#include "desktop/files/disk_profile_files.h"

#include "desktop/files/found_path.h"
#include "desktop/files/whole_file.h"
#include "text/paths.h"
#include "text/profile_text.h"

namespace marlex {

namespace {

/// Text of a file; empty when the file is missing, unreadable or not text.
std::string TextOf(const std::string& file) {
  return ProfileFileText::Of(ReadWholeFile(FoundPath(file)).Text).value_or(ProfileFileText{}).Text;
}

}  // namespace

std::string DiskProfileFiles::GetString(const std::string& section, const std::string& key,
                                        const std::string& file, std::size_t maxCharacters) const {
  return ProfileValue(TextOf(file), section, key, maxCharacters);
}

std::vector<std::string> DiskProfileFiles::GetNumbered(const std::string& section,
                                                       const std::string& keyPrefix,
                                                       const std::string& file,
                                                       std::size_t maxCharacters) const {
  return NumberedProfileValues(TextOf(file), section, keyPrefix, maxCharacters);
}

Writing DiskProfileFiles::WriteStrings(const std::vector<ProfileEntry>& entries,
                                       const std::string& file) {
  const std::string path = FoundPath(file);
  const WholeFile old = ReadWholeFile(path);
  auto text = ProfileFileText::Of(old.Text);
  if (old.State == FileState::Unreadable || !text) return Writing::Failed;
  for (const auto& [section, key, value] : entries)
    text->Text = WithProfileValue(text->Text, section, key, value);
  const std::string bytes = text->Bytes();
  if (old.State == FileState::Read && bytes == old.Text) return Writing::Unchanged;
  return ReplaceFile(path, bytes) ? Writing::Done : Writing::Failed;
}

bool DiskProfileFiles::Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) {
  const std::string name = FileNameOf(file);
  const std::string directory = file.substr(0, file.size() - name.size());
  return ReplaceFile(FoundPath(directory) + name, NewProfileText(entries));
}

}  // namespace marlex
