#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/process.h"
#include "platform/profile_files.h"
#include "state/profile_keys.h"
#include "text/code_pages.h"

namespace marlex {

/// The only access to files in profile format: playlists, sequences, function keys and, by
/// `SettingsStore`, the settings. Nothing is cached: each read opens the file when the value is
/// needed, and each write goes to the file at once.
class ProfileStore {
 public:
  ProfileStore(ProfileFiles& profiles, Process& process)
      : Profiles(profiles), TheProcess(process) {}

  /// Code page for reading values that are not UTF-8, as written by an older PC. What is written is
  /// UTF-8.
  CodePage ValuesIn = CodePage::WestEuropean;

  /// Value of a key, cut to 1499 characters. Deliberate: the rest is lost. Empty when the key is
  /// missing or unreadable.
  std::string ReadProfileValue(const ProfileKey& key, const std::string& file) const;

  /// Values, as from `ReadProfileValue`, of the keys that consist of this one and 1, 2 and so on,
  /// up to the first one that is missing or empty; at most 32767.
  std::vector<std::string> ReadNumberedValues(const ProfileKey& key, const std::string& file) const;

  /// Writes a value to the file at once; an empty one is written as such and deletes nothing. An
  /// equal value that is already there in a code page is left as it is. False on failure: no
  /// box reports it unless the caller does.
  bool WriteProfileValue(const ProfileKey& key, const std::string& value, const std::string& file);

  /// Like `WriteProfileValue` for several values of one file, in order, all of them or none.
  bool WriteProfileValues(std::vector<ProfileEntry> entries, const std::string& file);

  /// Replaces or creates a file that contains only these values. False on failure; the old file is
  /// then unchanged.
  bool RebuildProfile(const std::vector<ProfileEntry>& entries, const std::string& file);

  /// The files that could not be written, at most one playlist and one sequence of them. Each is
  /// forgotten once it has been written, a playlist or sequence also once another one has, since
  /// the operator has then chosen another place.
  std::vector<std::string> NotWritten() const;

  std::string ApplicationDirectory() const { return TheProcess.ApplicationDirectory(); }

 protected:
  Writing Put(std::vector<ProfileEntry> entries, const std::string& file);

 private:
  bool IsInCodePage(const ProfileEntry& entry, const std::string& file) const;

  void Remember(const std::string& file, Writing writing);

  ProfileFiles& Profiles;
  Process& TheProcess;
  std::map<std::string, std::string> Refused;  // files that could not be written, by kind
};

}  // namespace marlex
