#include "core/main_window.h"

#include "i18n/translate_controls.h"
#include "state/week_time.h"

namespace marlex {

MainWindow::MainWindow(Pc& pc, SettingsStore& store, Windows& windows, FrmPlayers& frmPlayers,
                       FrmMxr& frmMxr, SoundLines& lines, const StringTable& strings,
                       ScheduleColumns& columns, PlaylistFiles& playlist, OpenSequences& sequences,
                       ZoneRouting& routing, Record& record, Notices& notices)
    : ThePc(pc),
      Store(store),
      TheFrmMain(windows.frmMain),
      TheFrmAbout(windows.frmAbout),
      TheFrmPlayers(frmPlayers),
      TheFrmMxr(frmMxr),
      Lines(lines),
      Strings(strings),
      Columns(columns),
      Playlist(playlist),
      Sequences(sequences),
      Routing(routing),
      TheRecord(record),
      TheNotices(notices) {
  TheFrmMain.OnLoad = [this] { Load(); };
  TheFrmMain.OnClose = [this] { mnuExit_Click(); };
  TheFrmMain.Seconds.OnTimer = [this] { ShowClock(); };
  TheFrmMain.mnuExit.OnClick = [this] { mnuExit_Click(); };
  TheFrmMain.mnuAdresses.OnClick = [this] { mnuAdresses_Click(); };
  TheFrmMain.mnuAboutbox.OnClick = [this] { TheFrmAbout.Show(); };
  TheFrmAbout.OnLoad = [this] { LoadAbout(); };
  TheFrmAbout.cmdOK.OnClick = [this] { TheFrmAbout.Unload(); };
}

void MainWindow::LoadAbout() {
  TranslateControls(TheFrmAbout, Strings);
  TheFrmAbout.Caption = Strings.LoadString(kStrAbout);
  TheFrmAbout.cmdOK.Caption = Strings.LoadString(kStrOk);
}

void MainWindow::Load() {
  WriteMenuIds(TheFrmMain);
  WriteHeadings();
  TranslateControls(TheFrmMain, Strings);
  TheFrmMain.BackColor = TheFrmMain.frBGMusic.BackColor;
  TheFrmMain.grdSchedule.BackColorFixed = TheFrmMain.frBGMusic.BackColor;
  TheFrmMain.grdSchedule.BackColorBkg = TheFrmMain.frBGMusic.BackColor;
  TheFrmMain.lblMP3Number.Caption = "";
  TheFrmMain.lblMP3Length.Caption = "";
  TheFrmMain.lblMP3Position.Caption = "";
  TheFrmMain.lstPlaylist.ToolTipText = Strings.LoadString(kStrDoubleClickToPlay);
  if (TheFrmMain.lstPlaylist.ListIndex() == ListBox::kNoSelection)
    TheFrmMain.cmdPlay.Enabled = false;
  // After a first run there is no text yet; the frame keeps its design caption.
  if (!Store.Values.MusicLabelText.empty())
    TheFrmMain.frBGMusic.Caption = Store.Values.MusicLabelText;
  ShowViewMenus();
  LoadCurrentPlaylist();
  Columns.SetupScheduleGrid();
  Columns.LayoutScheduleColumns();
  Sequences.LoadSequenceList();
  const bool musicPlays = TheFrmPlayers.MP3Player.PlayState() == kPlaying;
  TheFrmMain.EnableSkipAndStop(musicPlays);
  ShowZoneNames();
  ArrangeForInstallation();
  LoadRouting();
  TheFrmPlayers.ResumeSchedule();
  ArrangeCallControls();
  TheFrmMain.Height = 6525;
}

void MainWindow::WriteHeadings() {
  Grid& table = TheFrmMain.grdSchedule;
  table.SetTextMatrix(0, kTimeColumn, Strings.LoadString(kStrTime));
  table.SetTextMatrix(0, kDaysColumn, Strings.LoadString(kStrDays));
  table.SetTextMatrix(0, kRoutingColumn, Strings.LoadString(kStrRouting));
  table.SetTextMatrix(0, kMessagesColumn, Strings.LoadString(kStrMessageInfo));
  table.SetTextMatrix(0, kNameColumn, Strings.LoadString(kStrSchedule));
}

void MainWindow::ShowViewMenus() {
  const Settings& settings = Store.Values;
  TheFrmMain.mnuAllDays.Checked = settings.AllDaysView;
  TheFrmMain.mnuCurrentDay.Checked = !settings.AllDaysView;
  Columns.ShowDaysColumn();
  TheFrmMain.mnuScheduleName.Checked = settings.ScheduleNameView;
  TheFrmMain.grdSchedule.SetColWidth(kNameColumn,
                                     settings.ScheduleNameView ? ScheduleColumns::kNameWidth : 0);
}

/// A missing file leaves the list empty. The music may start here.
void MainWindow::LoadCurrentPlaylist() {
  const std::string& file = Store.Values.CurrentPlaylistFile;
  if (!file.empty() && !ThePc.Files.Search(file).empty()) Playlist.LoadPlaylist();
}

void MainWindow::ArrangeForInstallation() {
  if (!Store.Values.RouterPresent) {
    ArrangeWithoutRouter();
    return;
  }
  TheFrmMain.frCall.Visible = false;
  TheFrmMain.frRouting.Visible = true;
  if (!TheFrmPlayers.TolvoPort.PortOpen()) TheFrmPlayers.TolvoPort.SetPortOpen(true);
}

void MainWindow::ArrangeWithoutRouter() {
  TheFrmMain.grdSchedule.SetColWidth(kRoutingColumn, 0);
  TheFrmMain.frCall.Visible = true;
  TheFrmMain.frCall.Width = 6855;
  TheFrmMain.frRouting.Visible = false;
  if (Lines.HasMicrophone()) {
    TheFrmMain.PlaceConflictNote(true);
    return;
  }
  // The lower part of the window is empty: the schedule grows into it.
  TheFrmMain.frCall.Visible = false;
  TheFrmMain.PlaceConflictNote(false);
  TheFrmMain.SizeSchedule(false, TheFrmMain.lblConflict.Visible);
}

void MainWindow::RedoLayout() {
  ArrangeForInstallation();
  ArrangeCallControls();
}

void MainWindow::ShowZoneNames() {
  for (int zone = 0; zone < kZones; ++zone) {
    TheFrmMain.lblZoneName[zone].Caption = Store.Values.ZoneNames[static_cast<std::size_t>(zone)];
  }
}

void MainWindow::LoadRouting() {
  Store.Values.MusicRouting = Store.Read(keys::kMusicRouting);
  Store.Values.CallRouting = Store.Read(keys::kCallRouting);
  Routing.ApplyMusicRouting();
  Routing.ApplyCallRouting();
}

void MainWindow::ArrangeCallControls() {
  TheFrmMain.lblMusic.Top = 840;
  if (Lines.HasMicrophone()) return;
  for (VisualControl* control : {static_cast<VisualControl*>(&TheFrmMain.frCall),
                                 static_cast<VisualControl*>(&TheFrmMain.lblCall),
                                 static_cast<VisualControl*>(&TheFrmMain.cmdCall),
                                 static_cast<VisualControl*>(&TheFrmMain.cmdCall2),
                                 static_cast<VisualControl*>(&TheFrmMain.lblBusy[0]),
                                 static_cast<VisualControl*>(&TheFrmMain.lblBusy[1])}) {
    control->Visible = false;
  }
  for (int zone = 0; zone < kZones; ++zone) {
    TheFrmMain.cmdCallZone[zone].Visible = false;
    TheFrmMain.cmdMusicZones[zone].Height = FrmMain::kTallZoneButtonHeight;
  }
  TheFrmMain.lblMusic.Top = 1020;
}

void MainWindow::ShowClock() {
  TheFrmMain.frSchedule.Caption =
      SecondText(ThePc.Clock.Now()) + Strings.LoadString(kStrTimeSchedule) +
      Strings.LoadString(Store.Values.AllDaysView ? kStrAllDays : kStrToday);
}

void MainWindow::mnuExit_Click() {
  TheRecord.ProgramExits();
  if (Store.Values.RouterPresent) {
    Routing.Release();
    TheFrmPlayers.TolvoPort.SetPortOpen(false);
  }
  TheFrmMxr.Unload();
  TheFrmPlayers.Unload();
  TheFrmMain.Unload();
  ThePc.TheProcess.End();
}

void MainWindow::mnuAdresses_Click() {
  TheNotices.Info(Strings.LoadString(kStrSurfTo) + "\r" + Strings.LoadString(kStrNearestContact));
}

}  // namespace marlex
