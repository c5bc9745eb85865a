#include "state/profile_store.h"

#include <algorithm>
#include <utility>

#include "text/code_pages.h"
#include "text/text_case.h"

namespace marlex {
namespace {

constexpr std::size_t kLongestValue = 1499;  // fits a buffer of 1500 with its closing NUL
constexpr std::size_t kMostValues = 32767;   // positions in a list are 16-bit numbers

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Cuts the value again after decoding, since bytes of a code page may have counted as fewer
/// characters than they are.
std::string AsText(std::string value, CodePage page) {
  if (IsUtf8(value)) return value;
  return std::string(FirstCharacters(InUtf8(value, page), kLongestValue));
}

/// Playlists and sequences are saved wherever the operator wants, all others in one place.
std::string KindOf(const std::string& file) {
  for (const char* pattern : {"*.lst", "*.sch"}) {
    if (MatchesPattern(file, pattern)) return pattern;
  }
  return file;
}

}  // namespace

std::string ProfileStore::ReadProfileValue(const ProfileKey& key, const std::string& file) const {
  return AsText(
      Profiles.GetString(std::string(key.Section), std::string(key.Key), file, kLongestValue),
      ValuesIn);
}

std::vector<std::string> ProfileStore::ReadNumberedValues(const ProfileKey& key,
                                                          const std::string& file) const {
  std::vector<std::string> values =
      Profiles.GetNumbered(std::string(key.Section), std::string(key.Key), file, kLongestValue);
  if (values.size() > kMostValues) values.resize(kMostValues);
  for (std::string& value : values) value = AsText(std::move(value), ValuesIn);
  return values;
}

bool ProfileStore::WriteProfileValue(const ProfileKey& key, const std::string& value,
                                     const std::string& file) {
  return Put({EntryOf(key, value)}, file) != Writing::Failed;
}

bool ProfileStore::WriteProfileValues(std::vector<ProfileEntry> entries, const std::string& file) {
  return Put(std::move(entries), file) != Writing::Failed;
}

Writing ProfileStore::Put(std::vector<ProfileEntry> entries, const std::string& file) {
  std::erase_if(entries, [&](const ProfileEntry& entry) { return IsInCodePage(entry, file); });
  if (entries.empty()) return Writing::Unchanged;
  const Writing writing = Profiles.WriteStrings(entries, file);
  Remember(file, writing);
  return writing;
}

bool ProfileStore::RebuildProfile(const std::vector<ProfileEntry>& entries,
                                  const std::string& file) {
  const bool isWritten = Profiles.Rebuild(entries, file);
  Remember(file, isWritten ? Writing::Done : Writing::Failed);
  return isWritten;
}

std::vector<std::string> ProfileStore::NotWritten() const {
  std::vector<std::string> files;
  for (const auto& [kind, file] : Refused) files.push_back(file);
  return files;
}

/// Values that were there already prove nothing about the file.
void ProfileStore::Remember(const std::string& file, Writing writing) {
  if (writing == Writing::Failed) Refused[KindOf(file)] = file;
  if (writing == Writing::Done) Refused.erase(KindOf(file));
}

/// Whether the bytes in the file already read the same as the new value.
bool ProfileStore::IsInCodePage(const ProfileEntry& entry, const std::string& file) const {
  if (std::all_of(entry.Value.begin(), entry.Value.end(), IsAscii)) return false;
  const std::string value = Profiles.GetString(entry.Section, entry.Key, file, kLongestValue);
  return !IsUtf8(value) && AsText(value, ValuesIn) == ReadBack(entry.Value, kLongestValue);
}

}  // namespace marlex
