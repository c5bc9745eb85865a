#include "state/settings_store.h"

#include "text/paths.h"

namespace marlex {

std::string SettingsStore::TolvoIni() const {
  return JoinPath(ApplicationDirectory(), "Tolvo.ini");
}

bool SettingsStore::Write(const ProfileKey& key, const std::string& value) {
  const Writing writing = Put({EntryOf(key, value)}, TolvoIni());
  const bool saved = writing != Writing::Failed;
  if (!saved && Saved && OnNotSaved) OnNotSaved();
  if (writing != Writing::Unchanged) Saved = saved;
  return saved;
}

}  // namespace marlex
