#pragma once

#include <functional>
#include <string>

#include "state/profile_store.h"
#include "state/settings.h"

namespace marlex {

/// The settings: their values in memory, and their file beside the program. Whoever changes a value
/// writes it too; neither follows the other by itself.
class SettingsStore : public ProfileStore {
 public:
  using ProfileStore::ProfileStore;

  Settings Values;

  std::string TolvoIni() const;  // path of the settings file

  /// Read and write a value of the settings file. A failed write is reported to `OnNotSaved`.
  std::string Read(const ProfileKey& key) const { return ReadProfileValue(key, TolvoIni()); }
  bool Write(const ProfileKey& key, const std::string& value);

  /// True only for the exact text "Yes": keys are matched ignoring case, values are not.
  bool ReadFlag(const ProfileKey& key) const { return Read(key) == "Yes"; }
  void WriteFlag(const ProfileKey& key, bool value) { Write(key, value ? "Yes" : "No"); }

  /// Reports it to the operator (`StartUp::ReportNotSaved`); wired at composition.
  /// Called when `Write` cannot write the settings file; then not again until it has been written
  /// successfully. A write that changes nothing does not count as successful.
  std::function<void()> OnNotSaved;

 private:
  bool Saved = true;  // the last write that had to change the settings file succeeded
};

}  // namespace marlex
