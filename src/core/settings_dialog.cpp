#include "core/settings_dialog.h"

#include "i18n/translate_controls.h"

namespace marlex {
namespace {

constexpr int kChecked = 1;

/// Sets a slider and raises its event, even if it is at the level already.
void Show(Slider& slider, int level) {
  const bool moves = slider.Value != level;
  slider.Value = level;
  if (!moves) slider.OnChange();
}

}  // namespace

SettingsDialog::SettingsDialog(Flags& flags, SettingsStore& store, Process& process,
                               Windows& windows, FrmPlayers& frmPlayers, SoundLines& lines,
                               const StringTable& strings, Notices& notices, ScheduleTable& table,
                               MainWindow& mainWindow)
    : TheFlags(flags),
      Store(store),
      Values(store.Values),
      TheProcess(process),
      TheFrmSettings(windows.frmSettings),
      TheFrmMain(windows.frmMain),
      TheFrmPlayers(frmPlayers),
      Lines(lines),
      Strings(strings),
      TheNotices(notices),
      Table(table),
      TheMainWindow(mainWindow) {
  Wire();
  WireSliders();
}

void SettingsDialog::Wire() {
  TheFrmMain.mnuSettings.OnClick = [this] { TheFrmSettings.Show(); };
  TheFrmSettings.OnLoad = [this] { Load(); };
  TheFrmSettings.OnClose = [this] { cmdCancel_Click(); };
  TheFrmSettings.optTolvo[0].OnClick = [this] { ChooseAmplifier(0); };
  TheFrmSettings.optTolvo[1].OnClick = [this] { ChooseAmplifier(1); };
  TheFrmSettings.chkPreChime.OnClick = [this] {
    CheckChime(TheFrmSettings.chkPreChime, TheFrmSettings.cmdPreSelect, TheFrmSettings.lblPreChime);
  };
  TheFrmSettings.chkPostChime.OnClick = [this] {
    CheckChime(TheFrmSettings.chkPostChime, TheFrmSettings.cmdPostSelect,
               TheFrmSettings.lblPostChime);
  };
  TheFrmSettings.cmdOK.OnClick = [this] { cmdOK_Click(); };
  TheFrmSettings.cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void SettingsDialog::WireSliders() {
  TheFrmSettings.slMasterVolume.OnChange = [this] { ChangeMasterVolume(); };
  TheFrmSettings.slMusicVolume.OnChange = [this] { ChangeMusicVolume(); };
  TheFrmSettings.slMicroVolume.OnChange = [this] { ChangeMicroVolume(); };
  TheFrmSettings.slMessageVolume.OnChange = [this] { ChangeMessageVolume(); };
}

void SettingsDialog::Load() {
  TranslateControls(TheFrmSettings, Strings);
  ShowMicrophone();
  TheFrmSettings.Caption = Strings.LoadString(kStrSettings);
  TheFrmSettings.cmdOK.Caption = Strings.LoadString(kStrOk);
  NameSelectButtons();
  TheFrmSettings.Explain[0].BackColor = TheFrmSettings.frVolume.BackColor;
  TheFrmSettings.Explain[1].BackColor = TheFrmSettings.frVolume.BackColor;
  ReadDirectories();
  ReadChimes();
  ReadAmplifier();
  ReadVolumes();
  ReadFadeTime();
}

/// Deliberate: French has no text for these buttons, which keep the English one of their design.
void SettingsDialog::NameSelectButtons() {
  const auto text = Strings.Find(kStrSelect);
  if (!text) return;
  TheFrmSettings.cmdPreSelect.Caption = *text;
  TheFrmSettings.cmdPostSelect.Caption = *text;
}

void SettingsDialog::ShowMicrophone() {
  const bool microphone = Lines.HasMicrophone();
  TheFrmSettings.frChimes.Visible = microphone;
  TheFrmSettings.frSound.Visible = !microphone;
  TheFrmSettings.frMicroVolume.Enabled = microphone;
}

/// Reads the file, not the values in memory: a picker may have changed those without an OK.
void SettingsDialog::ReadDirectories() {
  TheFrmSettings.lblBGDir_Name.Caption = Store.Read(keys::kMusicDirectory);
  TheFrmSettings.lblMsgDir_Name.Caption = Store.Read(keys::kMessageDirectory);
}

void SettingsDialog::ReadChimes() {
  const auto show = [](const std::string& chime, CheckBox& check, CommandButton& select,
                       Label& label) {
    label.Caption = chime;
    if (!chime.empty()) check.Value = kChecked;
    select.Enabled = !chime.empty();
    label.Visible = !chime.empty();
  };
  Values.PreChime = Store.Read(keys::kPreChime);
  show(Values.PreChime, TheFrmSettings.chkPreChime, TheFrmSettings.cmdPreSelect,
       TheFrmSettings.lblPreChime);
  Values.PostChime = Store.Read(keys::kPostChime);
  show(Values.PostChime, TheFrmSettings.chkPostChime, TheFrmSettings.cmdPostSelect,
       TheFrmSettings.lblPostChime);
  // Without a message directory there is no chime to pick.
  const bool hasDirectory = !TheFrmSettings.lblMsgDir_Name.Caption.Get().empty();
  TheFrmSettings.chkPreChime.Enabled = hasDirectory;
  TheFrmSettings.chkPostChime.Enabled = hasDirectory;
}

void SettingsDialog::ReadAmplifier() {
  const bool router = Store.ReadFlag(keys::kRouter);
  ShowRouterFrames(router, router ? FrmSettings::kRouterButtonTop : FrmSettings::kPlainButtonTop);
  TheFrmSettings.optTolvo[router ? 0 : 1].SetValue(true);
  // Deliberate: a missing key, as on a first run, shows port 2, although port 1 is used until the
  // next start.
  TheFrmSettings.optCom[Store.Read(keys::kComPort) == "1" ? 0 : 1].SetValue(true);
  ReadZoneNames();
  TheFrmSettings.optPriority[Store.Read(keys::kPriority) == "High" ? 1 : 0].SetValue(true);
}

/// Where the file has an empty name or none, the field keeps its design text.
void SettingsDialog::ReadZoneNames() {
  for (int zone = 0; zone < kZones; ++zone) {
    const std::string name = Store.Read({keys::kZoneNames, keys::ZoneName(zone)});
    if (!name.empty()) TheFrmSettings.txtZoneName[zone].Text = name;
  }
}

/// Each slider takes effect and is saved, as if the operator had moved it.
void SettingsDialog::ReadVolumes() {
  Lines.CopyMasterRange(TheFrmSettings.slMasterVolume);
  Lines.CopyWaveRange(TheFrmSettings.slMusicVolume);
  Lines.CopyWaveRange(TheFrmSettings.slMessageVolume);
  Lines.CopyMicrophoneRange(TheFrmSettings.slMicroVolume);
  Show(TheFrmSettings.slMasterVolume, Values.MasterVolume);
  Show(TheFrmSettings.slMusicVolume, Values.MusicVolume);
  Show(TheFrmSettings.slMicroVolume, Values.MicroVolume);
  Show(TheFrmSettings.slMessageVolume, Values.MessageVolume);
  // A message may be playing when the dialog opens; the wave line then carries no music.
  TheFrmSettings.slMusicVolume.Enabled = !TheFlags.MessagePlaying;
}

/// Deliberate: tests for "Fast", whereas the start of the program tests for "Slow". So if the key
/// is missing, merely opening the dialog makes fades slow.
void SettingsDialog::ReadFadeTime() {
  const bool fast = Store.Read(keys::kFadeTime) == "Fast";
  Values.FadeTime = fast ? kFastFadeTimeMs : kSlowFadeTimeMs;
  (fast ? TheFrmSettings.optFast : TheFrmSettings.optSlow).SetValue(true);
}

void SettingsDialog::ShowRouterFrames(bool shown, int buttonTop) {
  TheFrmSettings.frNames.Visible = shown;
  TheFrmSettings.frPort.Visible = shown;
  TheFrmSettings.frPriority.Visible = shown;
  TheFrmSettings.cmdCancel.Top = buttonTop;
  TheFrmSettings.cmdOK.Top = buttonTop;
}

void SettingsDialog::ChooseAmplifier(int index) {
  const bool router = index == 0;
  ShowRouterFrames(router, router ? FrmSettings::kRouterButtonTop : FrmSettings::kPlainButtonTop);
  TheFrmSettings.Height = router ? FrmSettings::kRouterHeight : FrmSettings::kPlainHeight;
}

void SettingsDialog::CheckChime(const CheckBox& check, CommandButton& select, Label& label) {
  const bool checked = check.Value == kChecked;
  select.Enabled = checked;
  label.Visible = checked;
  if (!checked) label.Caption = "";
}

void SettingsDialog::ChangeMasterVolume() {
  Lines.SetMaster(TheFrmSettings.slMasterVolume.Value);
  ChangeVolume(TheFrmSettings.slMasterVolume, Values.MasterVolume, keys::kMasterVolume);
}

void SettingsDialog::ChangeMusicVolume() {
  Lines.SetWave(TheFrmSettings.slMusicVolume.Value);
  ChangeVolume(TheFrmSettings.slMusicVolume, Values.MusicVolume, keys::kMusicVolume);
}

/// Without a microphone only the setting changes: line 0 would be the master, which has its own
/// slider.
void SettingsDialog::ChangeMicroVolume() {
  Lines.SetMicrophone(TheFrmSettings.slMicroVolume.Value);
  ChangeVolume(TheFrmSettings.slMicroVolume, Values.MicroVolume, keys::kMicroVolume);
}

/// Music and messages share the wave line: it is set only while a message plays on it.
void SettingsDialog::ChangeMessageVolume() {
  if (TheFlags.MessagePlaying) {
    Lines.SetWave(TheFrmSettings.slMessageVolume.Value);
  }
  ChangeVolume(TheFrmSettings.slMessageVolume, Values.MessageVolume, keys::kMessageVolume);
}

void SettingsDialog::ChangeVolume(const Slider& slider, int& value, const ProfileKey& key) {
  value = slider.Value;
  Store.Write(key, std::to_string(value));
}

void SettingsDialog::cmdOK_Click() {
  if (Refuse(TheFrmSettings.lblBGDir_Name, kStrNoMusicDirectoryEntered)) return;
  if (Refuse(TheFrmSettings.lblMsgDir_Name, kStrNoMessageDirectoryEntered)) return;
  WriteDirectories();
  WriteZoneNames();
  WriteAmplifier();
  WritePriority();
  WriteFadeTime();
  // The open port is kept: another number takes effect at the next start of the program.
  Store.Write(keys::kComPort, TheFrmSettings.optCom[0].Value() ? "1" : "2");
  WriteChimes();
  ChangeMasterVolume();
  ChangeMessageVolume();
  ChangeMicroVolume();
  ChangeMusicVolume();
  if (TheFrmMain.Visible) RefreshMainWindow();
  TheFrmSettings.Unload();
  TheFrmMain.Show();
}

/// True, with an error box, when no directory is entered; the dialog then stays open.
bool SettingsDialog::Refuse(const Label& directory, int messageId) {
  if (!directory.Caption.Get().empty()) return false;
  TheNotices.Error(messageId);
  return true;
}

void SettingsDialog::WriteDirectories() {
  Values.MusicDirectory = TheFrmSettings.lblBGDir_Name.Caption;
  Values.MessageDirectory = TheFrmSettings.lblMsgDir_Name.Caption;
  Store.Write(keys::kMusicDirectory, Values.MusicDirectory);
  Store.Write(keys::kMessageDirectory, Values.MessageDirectory);
}

void SettingsDialog::WriteZoneNames() {
  for (int zone = 0; zone < kZones; ++zone) {
    const std::string& name = TheFrmSettings.txtZoneName[zone].Text;
    Store.Write({keys::kZoneNames, keys::ZoneName(zone)}, QuotedName(name));
    Values.ZoneNames[static_cast<std::size_t>(zone)] = name;
  }
}

void SettingsDialog::WriteAmplifier() {
  const bool router = TheFrmSettings.optTolvo[0].Value();
  router ? UseRouter() : UseNoRouter();
  Store.WriteFlag(keys::kRouter, router);
}

void SettingsDialog::UseRouter() {
  TheFrmPlayers.TolvoPort.SetPortOpen(true);
  Values.RouterPresent = true;
  if (!TheFrmMain.Visible) return;
  TheFrmMain.frCall.Visible = false;
  TheFrmMain.frRouting.Visible = true;
  TheFrmMain.grdSchedule.SetColWidth(kRoutingColumn, ScheduleColumns::kRoutingWidth);
  TheMainWindow.RedoLayout();
}

void SettingsDialog::UseNoRouter() {
  TheFrmPlayers.TolvoPort.SetPortOpen(false);
  Values.RouterPresent = false;
  ForgetAmplifier();
  if (TheFrmMain.Visible) TheMainWindow.RedoLayout();
}

void SettingsDialog::WritePriority() {
  Values.PriorityLevelText = TheFrmSettings.optPriority[0].Value() ? "Low" : "High";
  Store.Write(keys::kPriority, Values.PriorityLevelText);
  Values.OwnPriorityLevel = PriorityLevelOf(Values.PriorityLevelText);
}

void SettingsDialog::WriteFadeTime() {
  const bool slow = TheFrmSettings.optSlow.Value();
  Values.FadeTime = slow ? kSlowFadeTimeMs : kFastFadeTimeMs;
  Store.Write(keys::kFadeTime, slow ? "Slow" : "Fast");
}

/// Writes what the labels show: if a box is checked but nothing is picked, an empty chime.
void SettingsDialog::WriteChimes() {
  if (TheFrmSettings.chkPreChime.Value != kChecked) Values.PreChime.clear();
  if (TheFrmSettings.chkPostChime.Value != kChecked) Values.PostChime.clear();
  Store.Write(keys::kPreChime, QuotedName(TheFrmSettings.lblPreChime.Caption.Get()));
  Store.Write(keys::kPostChime, QuotedName(TheFrmSettings.lblPostChime.Caption.Get()));
}

void SettingsDialog::RefreshMainWindow() {
  Table.RebuildScheduleTable();
  TheMainWindow.ShowZoneNames();
}

void SettingsDialog::cmdCancel_Click() {
  TheFrmSettings.Unload();
  if (!TheFrmMain.Visible) TheProcess.End();
}

}  // namespace marlex
