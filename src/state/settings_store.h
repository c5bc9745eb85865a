#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/process.h"
#include "platform/profile_files.h"
#include "state/profile_keys.h"
#include "state/settings.h"
#include "text/code_pages.h"

namespace marlex {

/// The only access to files in profile format. Nothing is cached: each read opens the file when the
/// value is needed, and each write goes to the file at once.
class SettingsStore {
 public:
  SettingsStore(ProfileFiles& profiles, Process& process)
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
  /// equal value that is already there in a code page is left as it is. False on failure, which is
  /// not reported to `OnNotSaved`.
  bool WriteProfileValue(const ProfileKey& key, const std::string& value, const std::string& file);

  /// Reports it to the operator (`StartUp::TellNotSaved`); wired at composition.
  /// Called when `Write` cannot write the settings file; then not again until it has been written
  /// successfully. A write that changes nothing does not count as successful.
  std::function<void()> OnNotSaved;

  /// Like `WriteProfileValue` for several values of one file, in order, all of them or none.
  bool WriteProfileValues(std::vector<ProfileEntry> entries, const std::string& file);

  /// Replaces or creates a file that contains only these values. False on failure; the old file is
  /// then unchanged.
  bool RebuildProfile(const std::vector<ProfileEntry>& entries, const std::string& file) {
    return Profiles.Rebuild(entries, file);
  }

  std::string TolvoIni() const;  // path of the settings file, beside the program
  std::string ApplicationDirectory() const { return TheProcess.ApplicationDirectory(); }

  /// Read and write a value of the settings file. A failed write is reported to `OnNotSaved`.
  std::string Read(const ProfileKey& key) const { return ReadProfileValue(key, TolvoIni()); }
  bool Write(const ProfileKey& key, const std::string& value);

  /// True only for the exact text "Yes": keys are matched ignoring case, values are not.
  bool ReadFlag(const ProfileKey& key) const { return Read(key) == "Yes"; }
  void WriteFlag(const ProfileKey& key, bool value) { Write(key, value ? "Yes" : "No"); }

  Settings Values;

 private:
  Writing Put(std::vector<ProfileEntry> entries, const std::string& file);
  bool StandsInCodePage(const ProfileEntry& entry, const std::string& file) const;

  ProfileFiles& Profiles;
  Process& TheProcess;
  bool Saved = true;  // the last write that had to change the settings file succeeded
};

}  // namespace marlex
