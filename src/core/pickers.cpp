#include "core/pickers.h"

#include "i18n/translate_controls.h"
#include "state/media_names.h"
#include "text/paths.h"

namespace marlex {

Pickers::Pickers(SettingsStore& store, Windows& windows, const StringTable& strings)
    : Values(store.Values),
      TheFrmSettings(windows.frmSettings),
      TheFrmDirSel(windows.frmDirSel),
      TheFrmChimeSelect(windows.frmChimeSelect),
      Strings(strings) {
  TheFrmSettings.cmdBgBrowse.OnClick = [this] { BrowseDirectory(true, kSongPattern); };
  TheFrmSettings.cmdMsgBrowse.OnClick = [this] { BrowseDirectory(false, kMessagePattern); };
  TheFrmSettings.cmdPreSelect.OnClick = [this] { SelectChime(true); };
  TheFrmSettings.cmdPostSelect.OnClick = [this] { SelectChime(false); };
  TheFrmDirSel.OnLoad = [this] { LoadDirSel(); };
  TheFrmDirSel.OnClose = [this] { AcceptDirectory(); };  // there is no cancel
  TheFrmDirSel.Drive1.OnClick = [this] { ChangeDrive(); };
  TheFrmDirSel.Dir1.OnChange = [this] { ChangeDirectory(); };
  TheFrmDirSel.Dir1.OnClick = [this] { ChangeDirectory(); };
  TheFrmDirSel.cmdOK.OnClick = [this] { AcceptDirectory(); };
  TheFrmChimeSelect.OnLoad = [this] { LoadChimeSelect(); };
  TheFrmChimeSelect.lstChimeList.OnClick = [this] { TheFrmChimeSelect.cmdOK.Enabled = true; };
  TheFrmChimeSelect.cmdOK.OnClick = [this] { AcceptChime(); };
  TheFrmChimeSelect.cmdCancel.OnClick = [this] { TheFrmChimeSelect.Unload(); };
}

void Pickers::BrowseDirectory(bool music, const std::string& pattern) {
  BrowsingMusicDirectory = music;
  TheFrmDirSel.lstFiles.SetPattern(pattern);
  TheFrmDirSel.Show();
}

/// If the directory no longer exists, drive and tree stay at their starting place, and the settings
/// are unchanged.
void Pickers::LoadDirSel() {
  TheFrmDirSel.cmdOK.Caption = Strings.LoadString(kStrOk);
  TheFrmDirSel.Drive1.Refresh();
  TheFrmDirSel.Dir1.BeginAt(TheFrmDirSel.Drive1.Drive());
  TheFrmDirSel.lstFiles.SetPath(TheFrmDirSel.Dir1.Path());
  const std::string directory = ConcernedDirectory();
  if (!directory.empty()) TheFrmDirSel.Dir1.SetPath(directory);
  TheFrmDirSel.Drive1.ShowDriveOf(TheFrmDirSel.Dir1.Path());
}

void Pickers::ChangeDrive() { TheFrmDirSel.Dir1.SetPath(TheFrmDirSel.Drive1.Drive()); }

/// Changes the setting at once, before any OK. The path gets a final separator unless it has one,
/// as a root does.
void Pickers::ChangeDirectory() {
  const std::string directory = TheFrmDirSel.Dir1.Text();
  Label& label =
      BrowsingMusicDirectory ? TheFrmSettings.lblBGDir_Name : TheFrmSettings.lblMsgDir_Name;
  label.Caption = JoinPath(directory, "");
  ConcernedDirectory() = label.Caption;
  TheFrmDirSel.lstFiles.SetPath(directory);
}

/// Deliberate: the test applies to either directory, so a music directory without songs disables
/// the chimes too.
void Pickers::AcceptDirectory() {
  const bool hasFiles = TheFrmDirSel.lstFiles.ListCount() > 0;
  TheFrmSettings.chkPreChime.Enabled = hasFiles;
  TheFrmSettings.chkPostChime.Enabled = hasFiles;
  TheFrmDirSel.Unload();
}

void Pickers::SelectChime(bool preChime) {
  SelectingPreChime = preChime;
  TheFrmChimeSelect.Show();
}

void Pickers::LoadChimeSelect() {
  TranslateControls(TheFrmChimeSelect, Strings);
  TheFrmChimeSelect.lstChimeList.SetPattern(kMessagePattern);
  TheFrmChimeSelect.lstChimeList.SetPath(Values.MessageDirectory);
  TheFrmChimeSelect.cmdOK.Enabled = false;
  TheFrmChimeSelect.Caption = Strings.LoadString(kStrChimeSelection);
  TheFrmChimeSelect.cmdOK.Caption = Strings.LoadString(kStrOk);
}

/// Deliberate: a name is cut at its first dot, so a chime with another dot before its extension is
/// not found.
void Pickers::AcceptChime() {
  const std::string chime = UpToFirstPoint(TheFrmChimeSelect.lstChimeList.Text());
  if (SelectingPreChime) {
    Values.PreChime = chime;
    TheFrmSettings.lblPreChime.Caption = chime;
  } else {
    Values.PostChime = chime;
    TheFrmSettings.lblPostChime.Caption = chime;
  }
  TheFrmChimeSelect.Unload();
}

std::string& Pickers::ConcernedDirectory() {
  return BrowsingMusicDirectory ? Values.MusicDirectory : Values.MessageDirectory;
}

}  // namespace marlex
