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

/// The one door to every file in profile format. Nothing is cached: each reader opens the file at
/// the moment it needs a value, and each writer writes through at once.
class SettingsStore {
 public:
  SettingsStore(ProfileFiles& profiles, Process& process)
      : Profiles(profiles), TheProcess(process) {}

  /// By which values that are no UTF-8 are read: they come from an older desk. What is written is
  /// UTF-8.
  CodePage ValuesIn = CodePage::WestEuropean;

  /// Value of a key, at most 1499 characters; the rest is lost, which is accepted. Empty when
  /// absent or unreadable.
  std::string ReadProfileValue(const ProfileKey& key, const std::string& file) const;

  /// Values of the key with 1, 2 and so on after it, up to the first that is absent or empty, and
  /// at most 32767 of them; each as `ReadProfileValue` gives it.
  std::vector<std::string> ReadNumberedValues(const ProfileKey& key, const std::string& file) const;

  /// Writes a value through; an empty one is written as such and deletes nothing. One that stands
  /// there in a code page stays as it is. False when that failed, which the system notices for the
  /// settings file alone.
  bool WriteProfileValue(const ProfileKey& key, const std::string& value, const std::string& file);

  /// Called when the settings file cannot be written, once until the file is written again. A write
  /// that has nothing to change proves nothing.
  std::function<void()> OnNotSaved;

  /// The same for values of one file in their order, all of them or none.
  bool WriteProfileValues(std::vector<ProfileEntry> entries, const std::string& file);

  /// Puts a file of these values alone in the place of any old one. False when that failed; the old
  /// one is then as it was.
  bool RebuildProfile(const std::vector<ProfileEntry>& entries, const std::string& file) {
    return Profiles.Rebuild(entries, file);
  }

  std::string TolvoIni() const;  // path of the settings file, beside the program
  std::string ApplicationDirectory() const { return TheProcess.ApplicationDirectory(); }

  /// The same two for the settings file.
  std::string Read(const ProfileKey& key) const { return ReadProfileValue(key, TolvoIni()); }
  bool Write(const ProfileKey& key, const std::string& value);

  /// True only for the exact text "Yes"; key look-up is blind to case, values are not.
  bool ReadFlag(const ProfileKey& key) const { return Read(key) == "Yes"; }
  void WriteFlag(const ProfileKey& key, bool value) { Write(key, value ? "Yes" : "No"); }

  Settings Values;

 private:
  Writing Put(std::vector<ProfileEntry> entries, const std::string& file);
  bool StandsInCodePage(const ProfileEntry& entry, const std::string& file) const;

  ProfileFiles& Profiles;
  Process& TheProcess;
  bool Saved = true;  // the last write that had to touch the settings file succeeded
};

}  // namespace marlex
