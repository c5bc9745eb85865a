#include "schedule/sequence_editor.h"

#include <algorithm>

#include "i18n/translate_controls.h"
#include "platform/runtime_failure.h"
#include "schedule/editor_masks.h"
#include "text/digit_mask.h"
#include "text/paths.h"

namespace marlex {

SequenceEditor::SequenceEditor(SettingsStore& store, EventLoop& loop, Dialogs& dialogs,
                               const Directories& directories, Windows& windows,
                               FrmPlayers& frmPlayers, ScheduleTable& table,
                               const Conflicts& conflicts, SelectedMessages& messages,
                               TimeFields& times, MessagePreview& preview,
                               const StringTable& strings, Notices& notices)
    : Store(store),
      Loop(loop),
      TheDialogs(dialogs),
      TheDirectories(directories),
      Window(windows.TheWavWindow),
      TheFrmSettings(windows.frmSettings),
      TheFrmPlayers(frmPlayers),
      Table(table),
      TheConflicts(conflicts),
      Messages(messages),
      Times(times),
      Preview(preview),
      Strings(strings),
      TheNotices(notices) {
  windows.frmMain.mnuSchedule.OnClick = [this] { mnuSchedule_Click(); };
  Window.OnLoad = [this] { Load(); };
  Window.OnUnload = [this] { return Unload(); };
  Window.mnuOpen.OnClick = [this] { mnuOpen_Click(); };
  Window.mnuSave.OnClick = [this] { mnuSave_Click(); };
  Window.mnuExit.OnClick = [this] { Window.Unload(); };
  Window.tmrWriteDelay.OnTimer = [this] {
    Window.tmrWriteDelay.Enabled = false;
    WriteDone = true;
  };
}

void SequenceEditor::mnuSchedule_Click() {
  FunctionKeyMode = false;
  if (TheDirectories.Search(Store.Values.MessageDirectory).empty()) {
    ReportNoDirectory();
  } else {
    Window.Show();
  }
}

void SequenceEditor::ReportNoDirectory() {
  TheNotices.Error(Strings.LoadString(kStrNoMessageDirectoryFound) + Store.Values.MessageDirectory +
                       "\r" + Strings.LoadString(kStrOpenConfiguration),
                   [this] { TheFrmSettings.Show(); });
}

void SequenceEditor::Load() {
  WriteMenuIds(Window);
  TranslateControls(Window, Strings);
  Window.Caption = Strings.LoadString(kStrScheduleEditor);
  Window.cmdOK.Caption = Strings.LoadString(kStrOk);
  Window.cmdCancel.Caption = Strings.LoadString(kStrCancel);
  Window.lblDescription.Visible = false;
  Window.txtDescription.Visible = false;
  HoldAndShowAllDays();
  Messages.ListAvailable();
  PrepareControls();
  ArrangeZones();
}

/// From now on no row fires, and the clock neither starts nor stops the music, until the editor
/// closes or the end of an announcement or of a call resumes the schedule.
void SequenceEditor::HoldAndShowAllDays() {
  SavedAllDaysView = Store.Values.AllDaysView;
  Store.Values.AllDaysView = true;
  Table.RebuildScheduleTable();
  TheFrmPlayers.HoldSchedule();
  TheFrmPlayers.WavPlayer.Command("Close");
}

void SequenceEditor::PrepareControls() {
  for (int zone = 0; zone < kZones; ++zone)
    Window.cmdZone[zone].Caption = Store.Values.ZoneNames[static_cast<std::size_t>(zone)];
  for (CommandButton* button : {&Window.RemoveKey, &Window.PrevKey, &Window.RemAll_Key})
    button->Enabled = false;
  Window.frInterval.Visible = false;
  constexpr int kHourMinutes = 60;
  for (int minute = 0; minute < kHourMinutes; ++minute)
    Window.cmbStart.AddItem(std::to_string(minute));
  // A function key can be saved only once it has been chosen.
  Window.mnuSave.Enabled = !FunctionKeyMode;
}

void SequenceEditor::ArrangeZones() {
  const bool router = Store.Values.RouterPresent;
  Window.frZones.Visible = router;
  Window.frZones.Top = WavWindow::kZonesTop;
  Window.Height = router ? WavWindow::kRouterHeight : WavWindow::kPlainHeight;
  Window.frTimeSetting.Height = router ? WavWindow::kRouterTimeHeight : WavWindow::kPlainTimeHeight;
  Window.frTimeSetting.Caption =
      Strings.LoadString(router ? kStrTimeAndZoneSetting : kStrTimeSetting);
}

bool SequenceEditor::Unload() {
  Preview.End();
  Store.Values.AllDaysView = SavedAllDaysView;
  Table.RebuildScheduleTable();
  TheFrmPlayers.ResumeSchedule();
  return true;
}

void SequenceEditor::mnuOpen_Click() {
  // Deliberate: a name without an extension is saved with ".seq", which neither these dialogs nor
  // the main window then lists or opens.
  TheDialogs.LeaveOpen({.Filter = "Sequence files (*.sch)|*.sch",
                        .DefaultExtension = "seq",
                        .InitialDirectory = Store.ApplicationDirectory()},
                       Window.WhileOpen([this](const std::string& file) { Open(file); }));
}

/// Does not validate the fields: a file made by hand can put anything into them, and is checked
/// when it is saved. Weekdays or zones that are too short throw `RuntimeFailure`; the editor then
/// shows what it showed before.
void SequenceEditor::Open(const std::string& file) {
  if (file.empty()) return;
  const auto read = [&](const ProfileKey& key) { return Store.ReadProfileValue(key, file); };
  const std::string weekdays = read(keys::kSequenceWeekdays);
  const std::vector<bool> days =
      AtPlace(FileNameOf(file) + ": Weekday(s)", [&] { return DaysOf(weekdays); });
  AtPlace(FileNameOf(file) + ": Zone(s)", [&] { ApplyZoneText(Window, read(keys::kRowZones)); });
  ChosenFile = file;
  WeekdayText = weekdays;
  Window.Caption = Strings.LoadString(kStrMessageSchedule) + " " + FileNameOf(file);
  MessagesText = read(keys::kMessages);
  Messages.LoadSelectedMessages(MessagesText);
  Window.txtHours.Text = read(keys::kHours);
  Window.txtMinutes.Text = read(keys::kMinutes);
  TickDays(Window, days);
  Window.txtDescription.Text = UpToFirstPoint(FileNameOf(file));
  (read(keys::kTimer) == "Exact" ? Window.optExact : Window.optBetween).SetValue(true);
}

void SequenceEditor::mnuSave_Click() {
  if (FunctionKeyMode) {
    SaveFunctionKey();
    return;
  }
  if (!FieldsAreFilled()) return;
  Times.TestValidity();
  if (!Times.HoursValid || !Times.MinutesValid) return;
  MessagesText = Messages.BuildMessagesText();
  const FileDialog dialog = {.Filter = "Schedule files (*.sch)|*.sch",
                             .DefaultExtension = "seq",
                             .InitialDirectory = Store.ApplicationDirectory(),
                             .Save = true};
  const bool asked = TheDialogs.LeaveOpen(
      dialog, Window.WhileOpen([this](const std::string& file) { Save(file); }));
  if (asked) LastSave.Cut();
}

/// Deliberate: in every language, the title of the box is the English heading of the weekdays.
bool SequenceEditor::FieldsAreFilled() {
  const std::vector<bool> days = TickedDays(Window);
  const bool anyDay = std::find(days.begin(), days.end(), true) != days.end();
  int message = 0;
  if (Window.txtHours.Text.Get().empty()) {
    message = kStrHoursEmpty;
  } else if (Window.txtMinutes.Text.Get().empty()) {
    message = kStrMinutesEmpty;
  } else if (Window.SelectedWavs.ListCount() == 0) {
    message = kStrNoMessagesSelected;
  } else if (!anyDay) {
    message = kStrNoWeekdaySelected;
  }
  if (message == 0) return true;
  TheNotices.Leave(Strings.LoadString(message), BoxIcon::Critical,
                   Strings.LoadEnglish(kStrWeekdayHeader));
  return false;
}

/// Deliberate: if the dialog is cancelled, nothing is written, but everything else happens as after
/// a save.
void SequenceEditor::Save(const std::string& file) {
  if (!Write(file) && !file.empty()) {
    ReportNotSaved(file);
    return;
  }
  const Lifeline::Tie opening = Window.ThisOpening();
  const Lifeline::Tie last = LastSave.Now();
  WriteDone = false;
  Window.tmrWriteDelay.Enabled = true;
  Loop.PumpUntil([&] { return WriteDone || !opening.Holds(); });
  // Deliberate: this conflict is in the table as built when the editor opened, not in the file just
  // written.
  if (last.Holds() && opening.Holds() && !TheConflicts.ConflictFound) Window.Unload();
}

bool SequenceEditor::Write(const std::string& file) {
  WeekdayText = DigitMask(TickedDays(Window));
  return Store.WriteProfileValues(
      {EntryOf(keys::kMessages, QuotedName(MessagesText)),
       EntryOf(keys::kHours, Window.txtHours.Text), EntryOf(keys::kMinutes, Window.txtMinutes.Text),
       EntryOf(keys::kSequenceWeekdays, WeekdayText),
       EntryOf(keys::kRowZones, BuildZoneText(Window)),
       EntryOf(keys::kTimer, Window.optExact.Value() ? "Exact" : "Between")},
      file);
}

void SequenceEditor::ReportNotSaved(const std::string& file) {
  TheNotices.Error(Strings.LoadString(kStrFileNotSaved) + file);
}

}  // namespace marlex
