#include "core/settings_dialog.h"

#include "i18n/translate_controls.h"

namespace marlex {
namespace {

constexpr int kChecked = 1;

void CopyRange(const Slider& from, Slider& to) {
  to.Min = from.Min.Get();
  to.Max = from.Max.Get();
}

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
      Dialog(windows.frmSettings),
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
  TheFrmMain.mnuSettings.OnClick = [this] { Dialog.Show(); };
  Dialog.OnLoad = [this] { Load(); };
  Dialog.OnClose = [this] { cmdCancel_Click(); };
  Dialog.optTolvo[0].OnClick = [this] { ChooseAmplifier(0); };
  Dialog.optTolvo[1].OnClick = [this] { ChooseAmplifier(1); };
  Dialog.chkPreChime.OnClick = [this] {
    CheckChime(Dialog.chkPreChime, Dialog.cmdPreSelect, Dialog.lblPreChime);
  };
  Dialog.chkPostChime.OnClick = [this] {
    CheckChime(Dialog.chkPostChime, Dialog.cmdPostSelect, Dialog.lblPostChime);
  };
  Dialog.cmdOK.OnClick = [this] { cmdOK_Click(); };
  Dialog.cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void SettingsDialog::WireSliders() {
  Dialog.slMasterVolume.OnChange = [this] { ChangeMasterVolume(); };
  Dialog.slMusicVolume.OnChange = [this] { ChangeMusicVolume(); };
  Dialog.slMicroVolume.OnChange = [this] { ChangeMicroVolume(); };
  Dialog.slMessageVolume.OnChange = [this] { ChangeMessageVolume(); };
}

void SettingsDialog::Load() {
  TranslateControls(Dialog, Strings);
  ShowMicrophone();
  Dialog.Caption = Strings.LoadString(kStrSettings);
  Dialog.Explain[0].BackColor = Dialog.frVolume.BackColor;
  Dialog.Explain[1].BackColor = Dialog.frVolume.BackColor;
  ReadDirectories();
  ReadChimes();
  ReadAmplifier();
  ReadVolumes();
  ReadFadeTime();
}

void SettingsDialog::ShowMicrophone() {
  const bool microphone = Lines.HasMicrophone();
  Dialog.frChimes.Visible = microphone;
  Dialog.frSound.Visible = !microphone;
  Dialog.frMicroVolume.Enabled = microphone;
}

/// Reads the file, not the values in memory: a picker may have changed those without an OK.
void SettingsDialog::ReadDirectories() {
  Dialog.lblBGDir_Name.Caption = Store.Read(keys::kMusicDirectory);
  Dialog.lblMsgDir_Name.Caption = Store.Read(keys::kMessageDirectory);
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
  show(Values.PreChime, Dialog.chkPreChime, Dialog.cmdPreSelect, Dialog.lblPreChime);
  Values.PostChime = Store.Read(keys::kPostChime);
  show(Values.PostChime, Dialog.chkPostChime, Dialog.cmdPostSelect, Dialog.lblPostChime);
  // Without a message directory there is no chime to pick.
  const bool hasDirectory = !Dialog.lblMsgDir_Name.Caption.Get().empty();
  Dialog.chkPreChime.Enabled = hasDirectory;
  Dialog.chkPostChime.Enabled = hasDirectory;
}

void SettingsDialog::ReadAmplifier() {
  const bool router = Store.ReadFlag(keys::kRouter);
  ShowRouterFrames(router, router ? FrmSettings::kRouterButtonTop : FrmSettings::kPlainButtonTop);
  Dialog.optTolvo[router ? 0 : 1].SetValue(true);
  // Deliberate: a missing key, as on a first run, shows port 2, although port 1 is used until the
  // next start.
  Dialog.optCom[Store.Read(keys::kComPort) == "1" ? 0 : 1].SetValue(true);
  ReadZoneNames();
  Dialog.optPriority[Store.Read(keys::kPriority) == "High" ? 1 : 0].SetValue(true);
}

/// Where the file has an empty name or none, the field keeps its design text.
void SettingsDialog::ReadZoneNames() {
  for (int zone = 0; zone < kZones; ++zone) {
    const std::string name = Store.Read({keys::kZoneNames, keys::ZoneName(zone)});
    if (!name.empty()) Dialog.txtZoneName[zone].Text = name;
  }
}

/// Each slider takes effect and is saved, as if the operator had moved it.
void SettingsDialog::ReadVolumes() {
  CopyRange(Lines.MasterSlider(), Dialog.slMasterVolume);
  CopyRange(Lines.WaveSlider(), Dialog.slMusicVolume);
  CopyRange(Lines.WaveSlider(), Dialog.slMessageVolume);
  CopyRange(Lines.MicrophoneSlider(), Dialog.slMicroVolume);
  Show(Dialog.slMasterVolume, Values.MasterVolume);
  Show(Dialog.slMusicVolume, Values.MusicVolume);
  Show(Dialog.slMicroVolume, Values.MicroVolume);
  Show(Dialog.slMessageVolume, Values.MessageVolume);
  // A message may be playing when the dialog opens; the wave line then carries no music.
  Dialog.slMusicVolume.Enabled = !TheFlags.MessagePlaying;
}

/// Deliberate: tests for "Fast", whereas the start of the program tests for "Slow". So if the key
/// is missing, merely opening the dialog makes fades slow.
void SettingsDialog::ReadFadeTime() {
  const bool fast = Store.Read(keys::kFadeTime) == "Fast";
  Values.FadeTime = fast ? kFastFadeTimeMs : kSlowFadeTimeMs;
  (fast ? Dialog.optFast : Dialog.optSlow).SetValue(true);
}

void SettingsDialog::ShowRouterFrames(bool shown, int buttonTop) {
  Dialog.frNames.Visible = shown;
  Dialog.frPort.Visible = shown;
  Dialog.frPriority.Visible = shown;
  Dialog.cmdCancel.Top = buttonTop;
  Dialog.cmdOK.Top = buttonTop;
}

void SettingsDialog::ChooseAmplifier(int index) {
  const bool router = index == 0;
  ShowRouterFrames(router, router ? FrmSettings::kRouterButtonTop : FrmSettings::kPlainButtonTop);
  Dialog.Height = router ? FrmSettings::kRouterHeight : FrmSettings::kPlainHeight;
}

void SettingsDialog::CheckChime(const CheckBox& check, CommandButton& select, Label& label) {
  const bool checked = check.Value == kChecked;
  select.Enabled = checked;
  label.Visible = checked;
  if (!checked) label.Caption = "";
}

void SettingsDialog::ChangeMasterVolume() {
  Lines.SetMaster(Dialog.slMasterVolume.Value);
  ChangeVolume(Dialog.slMasterVolume, Values.MasterVolume, keys::kMasterVolume);
}

void SettingsDialog::ChangeMusicVolume() {
  Lines.SetWave(Dialog.slMusicVolume.Value);
  ChangeVolume(Dialog.slMusicVolume, Values.MusicVolume, keys::kMusicVolume);
}

/// Without a microphone only the setting changes: line 0 would be the master, which has its own
/// slider.
void SettingsDialog::ChangeMicroVolume() {
  Lines.SetMicrophone(Dialog.slMicroVolume.Value);
  ChangeVolume(Dialog.slMicroVolume, Values.MicroVolume, keys::kMicroVolume);
}

/// Music and messages share the wave line: it is set only while a message plays on it.
void SettingsDialog::ChangeMessageVolume() {
  if (TheFlags.MessagePlaying) {
    Lines.SetWave(Dialog.slMessageVolume.Value);
  }
  ChangeVolume(Dialog.slMessageVolume, Values.MessageVolume, keys::kMessageVolume);
}

void SettingsDialog::ChangeVolume(const Slider& slider, int& value, const ProfileKey& key) {
  value = slider.Value;
  Store.Write(key, std::to_string(value));
}

void SettingsDialog::cmdOK_Click() {
  if (Refuse(Dialog.lblBGDir_Name, kStrNoMusicDirectoryEntered)) return;
  if (Refuse(Dialog.lblMsgDir_Name, kStrNoMessageDirectoryEntered)) return;
  WriteDirectories();
  WriteZoneNames();
  WriteAmplifier();
  WritePriority();
  WriteFadeTime();
  // The open port is kept: another number takes effect at the next start of the program.
  Store.Write(keys::kComPort, Dialog.optCom[0].Value() ? "1" : "2");
  WriteChimes();
  ChangeMasterVolume();
  ChangeMessageVolume();
  ChangeMicroVolume();
  ChangeMusicVolume();
  if (TheFrmMain.Visible) RefreshMainWindow();
  Dialog.Unload();
  TheFrmMain.Show();
}

/// True, with an error box, when no directory is entered; the dialog then stays open.
bool SettingsDialog::Refuse(const Label& directory, int messageId) {
  if (!directory.Caption.Get().empty()) return false;
  TheNotices.Error(messageId);
  return true;
}

void SettingsDialog::WriteDirectories() {
  Values.MusicDirectory = Dialog.lblBGDir_Name.Caption;
  Values.MessageDirectory = Dialog.lblMsgDir_Name.Caption;
  Store.Write(keys::kMusicDirectory, Values.MusicDirectory);
  Store.Write(keys::kMessageDirectory, Values.MessageDirectory);
}

void SettingsDialog::WriteZoneNames() {
  for (int zone = 0; zone < kZones; ++zone) {
    const std::string& name = Dialog.txtZoneName[zone].Text;
    Store.Write({keys::kZoneNames, keys::ZoneName(zone)}, QuotedName(name));
    Values.ZoneNames[static_cast<std::size_t>(zone)] = name;
  }
}

void SettingsDialog::WriteAmplifier() {
  const bool router = Dialog.optTolvo[0].Value();
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
  Values.PriorityLevelText = Dialog.optPriority[0].Value() ? "Low" : "High";
  Store.Write(keys::kPriority, Values.PriorityLevelText);
  Values.OwnPriorityLevel = PriorityLevelOf(Values.PriorityLevelText);
}

void SettingsDialog::WriteFadeTime() {
  const bool slow = Dialog.optSlow.Value();
  Values.FadeTime = slow ? kSlowFadeTimeMs : kFastFadeTimeMs;
  Store.Write(keys::kFadeTime, slow ? "Slow" : "Fast");
}

/// Writes what the labels show: if a box is checked but nothing is picked, an empty chime.
void SettingsDialog::WriteChimes() {
  if (Dialog.chkPreChime.Value != kChecked) Values.PreChime.clear();
  if (Dialog.chkPostChime.Value != kChecked) Values.PostChime.clear();
  Store.Write(keys::kPreChime, QuotedName(Dialog.lblPreChime.Caption.Get()));
  Store.Write(keys::kPostChime, QuotedName(Dialog.lblPostChime.Caption.Get()));
}

void SettingsDialog::RefreshMainWindow() {
  Table.RebuildScheduleTable();
  TheMainWindow.ShowZoneNames();
}

void SettingsDialog::cmdCancel_Click() {
  Dialog.Unload();
  if (!TheFrmMain.Visible) TheProcess.End();
}

}  // namespace marlex
