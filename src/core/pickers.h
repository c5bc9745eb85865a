#pragma once

#include "i18n/string_table.h"
#include "state/settings_store.h"
#include "windows/windows.h"

namespace marlex {

/// The two small dialogs of the settings dialog: one picks the music or the message directory, the
/// other a chime. A choice updates the labels of the settings dialog and the settings in memory;
/// only the OK of the settings dialog writes the file.
class Pickers {
 public:
  Pickers(SettingsStore& store, Windows& windows, const StringTable& strings);

  bool BrowsingMusicDirectory = false;  // else the message directory
  bool SelectingPreChime = false;       // else the post-chime

 private:
  void BrowseDirectory(bool music, const std::string& pattern);
  void LoadDirSel();
  void ChangeDrive();      // Drive1
  void ChangeDirectory();  // Dir1
  void AcceptDirectory();  // cmdOK of the directory picker
  void SelectChime(bool preChime);
  void LoadChimeSelect();
  void AcceptChime();  // cmdOK of the chime picker

  std::string& ConcernedDirectory();

  Settings& Values;
  FrmSettings& TheFrmSettings;
  FrmDirSel& TheFrmDirSel;
  FrmChimeSelect& TheFrmChimeSelect;
  const StringTable& Strings;
};

}  // namespace marlex
