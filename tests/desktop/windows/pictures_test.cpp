#include <gtest/gtest.h>

#include "desktop/windows/painted_windows.h"
#include "desktop/windows/texts.h"
#include "places.h"

namespace marlex {
namespace {

constexpr QSize kPictureSize(1160, 760);

void Keep(QWidget& window, const std::string& name) {
  const QString directory = QString(MARLEX_BINARY_DIR) + "/screenshots";
  QDir().mkpath(directory);
  const QPixmap picture = window.grab();
  EXPECT_FALSE(picture.isNull());
  EXPECT_TRUE(picture.save(directory + "/" + QString::fromStdString(name) + ".png"));
}

/// The windows with the router amplifier: zones, and a call button beside them.
void ShowRouter(PaintedWindows& windows) {
  FrmMain& main = windows.Forms.frmMain;
  main.Load();
  Texts().Fill(windows.Forms);
  FillSchedule(main.grdSchedule, 26);
  main.frCall.Visible = false;
  for (const int zone : {0, 1, 2, 4}) main.cmdMusicZones[zone].Value = true;
  for (const int zone : {0, 5}) main.cmdCallZone[zone].Value = true;
  for (const int zone : {0, 1, 2, 4}) main.lblCurrentZone[zone].BackColor = kGreen;
  windows.ShowMain();
  windows.Screen.Main().resize(kPictureSize);
}

TEST(Pictures, MainWindowWithZones) {
  PaintedWindows windows;
  ShowRouter(windows);
  FrmMain& main = windows.Forms.frmMain;
  PaintRow(main.grdSchedule, 15, kNavy, kWhite);
  main.grdSchedule.SetTopRow(7);
  windows.Settle();
  Keep(windows.Screen.Main(), "main_zones");
}

TEST(Pictures, MainWindowWhileAMessagePlays) {
  PaintedWindows windows;
  ShowRouter(windows);
  FrmMain& main = windows.Forms.frmMain;
  PaintRow(main.grdSchedule, 4, kNavy, kWhite);
  main.grdSchedule.SetCol(0);
  main.grdSchedule.SetCellColors(kGreen, kWhite);
  for (CommandButton* button : {&main.cmdPlay, &main.cmdSkip, &main.cmdStop})
    button->Enabled = false;
  windows.Settle();
  Keep(windows.Screen.Main(), "main_message");
}

TEST(Pictures, MainWindowWithAConflictAndAHigherCall) {
  PaintedWindows windows;
  ShowRouter(windows);
  FrmMain& main = windows.Forms.frmMain;
  for (const int row : {3, 4}) {
    main.grdSchedule.SetRow(row);
    main.grdSchedule.SetCol(0);
    main.grdSchedule.SetCellColors(kRed, kWhite);
  }
  main.lblConflict.Caption =
      "Time conflict(s) in schedule, double-click a red time field to remove a sequence";
  main.lblConflict.Visible = true;
  for (CommandButton* button : {&main.cmdPlay, &main.cmdSkip, &main.cmdStop})
    button->Height = FrmMain::kShrunkenTransportHeight;
  main.lblHiPrio.Caption = "Higher priority call in progress";
  main.lblHiPrio.Visible = true;
  main.lblBusy[0].BackColor = kGreen;
  main.cmdCall.Caption = "Speak";
  windows.Settle();
  Keep(windows.Screen.Main(), "main_conflict");
}

TEST(Pictures, MainWindowWithZonesAndNoMicrophone) {
  PaintedWindows windows;
  ShowRouter(windows);
  FrmMain& main = windows.Forms.frmMain;
  for (VisualControl* control :
       {static_cast<VisualControl*>(&main.lblCall), static_cast<VisualControl*>(&main.cmdCall),
        static_cast<VisualControl*>(&main.lblBusy[0])}) {
    control->Visible = false;
  }
  for (int zone = 0; zone < kZones; ++zone) {
    main.cmdCallZone[zone].Visible = false;
    main.cmdMusicZones[zone].Height = FrmMain::kTallZoneButtonHeight;
  }
  windows.Settle();
  Keep(windows.Screen.Main(), "main_zones_no_microphone");
}

TEST(Pictures, MainWindowWithoutZones) {
  PaintedWindows windows;
  ShowRouter(windows);
  FrmMain& main = windows.Forms.frmMain;
  main.frRouting.Visible = false;
  main.frCall.Visible = true;
  main.grdSchedule.SetColWidth(kRoutingColumn, 0);
  windows.Settle();
  Keep(windows.Screen.Main(), "main_call_button");
  main.frCall.Visible = false;
  windows.Settle();
  Keep(windows.Screen.Main(), "main_player_only");
}

TEST(Pictures, MainWindowWithLongTexts) {
  PaintedWindows windows;
  windows.Forms.frmMain.Load();
  Texts(true).Fill(windows.Forms);
  FillSchedule(windows.Forms.frmMain.grdSchedule, 8);
  windows.Forms.frmMain.frCall.Visible = false;
  windows.ShowMain();
  Keep(windows.Screen.Main(), "main_long_texts");
}

TEST(Pictures, SmallWindows) {
  PaintedWindows windows;
  Texts().Fill(windows.Forms);
  for (Form* form :
       {static_cast<Form*>(&windows.Forms.frmLogo), static_cast<Form*>(&windows.Forms.frmAbout),
        static_cast<Form*>(&windows.Forms.frmlangSel)}) {
    form->Show();
  }
  windows.Settle();
  Keep(windows.Screen.Logo(), "splash");
  Keep(windows.Screen.About(), "about");
  Keep(windows.Screen.LangSel(), "languages");
}

TEST(Pictures, SettingsDialog) {
  PaintedWindows windows;
  FrmSettings& settings = windows.Forms.frmSettings;
  settings.Load();
  Texts().Fill(windows.Forms);
  settings.Show();
  windows.Settle();
  Keep(windows.Screen.Settings(), "settings_zones");
  for (Frame* frame :
       {&settings.frNames, &settings.frPort, &settings.frPriority, &settings.frChimes})
    frame->Visible = false;
  settings.optTolvo[1].SetValue(true);
  settings.frSound.Visible = true;
  settings.frMicroVolume.Enabled = false;
  windows.Settle();
  Keep(windows.Screen.Settings(), "settings_no_zones_no_microphone");
}

TEST(Pictures, SettingsDialogWithLongTexts) {
  PaintedWindows windows;
  windows.Forms.frmSettings.Load();
  Texts(true).Fill(windows.Forms);
  windows.Forms.frmSettings.Show();
  windows.Settle();
  Keep(windows.Screen.Settings(), "settings_long_texts");
}

TEST(Pictures, Pickers) {
  PaintedWindows windows;
  FillMedia(windows.Disk);
  FrmDirSel& directory = windows.Forms.frmDirSel;
  directory.Load();
  directory.Drive1.Refresh();
  directory.Dir1.BeginAt("/home/operator/Music");
  directory.lstFiles.SetPath("/home/operator/Music");
  directory.Show();
  FrmChimeSelect& chime = windows.Forms.frmChimeSelect;
  chime.Load();
  chime.lstChimeList.SetPath("/home/operator/Messages");
  chime.lstChimeList.SetListIndex(1);
  chime.Show();
  windows.Settle();
  Keep(windows.Screen.DirSel(), "directory_picker");
  Keep(windows.Screen.ChimeSelect(), "chime_picker");
}

TEST(Pictures, PlaylistEditor) {
  PaintedWindows windows;
  FrmPlaylist& playlist = windows.Forms.frmPlaylist;
  playlist.Load();
  Texts().Fill(windows.Forms);
  playlist.Show();
  windows.Settle();
  Keep(windows.Screen.Playlist(), "playlist_scheduled");
  playlist.optScheduled[FrmPlaylist::kAutostart].SetValue(true);
  playlist.frMusicTime.Visible = false;
  playlist.RemoveKey.Enabled = false;
  playlist.PrevKey.Enabled = false;
  windows.Settle();
  Keep(windows.Screen.Playlist(), "playlist_autostart");
}

TEST(Pictures, PlaylistEditorWithLongTexts) {
  PaintedWindows windows;
  windows.Forms.frmPlaylist.Load();
  Texts(true).Fill(windows.Forms);
  windows.Forms.frmPlaylist.Show();
  windows.Settle();
  windows.Screen.Playlist().resize(windows.Screen.Playlist().minimumSizeHint());
  windows.Settle();
  Keep(windows.Screen.Playlist(), "playlist_long_texts");
}

/// The same window four times, each with the focus on another part.
TEST(Pictures, Focus) {
  PaintedWindows windows;
  windows.Forms.frmPlaylist.Load();
  Texts().Fill(windows.Forms);
  windows.Forms.frmPlaylist.Show();
  windows.Settle();
  for (const char* part : {"AvailMP3s", "SelectedMP3s", "optScheduled_0", "chkDays_2"}) {
    windows.Screen.Playlist().findChild<QWidget*>(part)->setFocus(Qt::TabFocusReason);
    windows.Settle();
    Keep(windows.Screen.Playlist(), std::string("focus_") + part);
  }
}

TEST(Pictures, OpenMenus) {
  PaintedWindows windows;
  ShowRouter(windows);
  for (const char* name : {"mnuFile", "mnuEdit", "mnuView", "mnuSchedules", "mnuAbout"}) {
    auto& menu = windows.Find<QMenu>(name);
    menu.popup(windows.Screen.Main().mapToGlobal(QPoint(20, 40)));
    Keep(menu, name);
    menu.hide();
  }
}

TEST(Pictures, ScheduleEditor) {
  for (const bool interval : {false, true}) {
    PaintedWindows windows;
    WavWindow& editor = windows.Forms.TheWavWindow;
    editor.Load();
    Texts().Fill(windows.Forms);
    editor.frMinutes.Visible = !interval;
    editor.frInterval.Visible = interval;
    editor.frZones.Visible = !interval;
    editor.Show();
    windows.Settle();
    Keep(windows.Screen.ScheduleEditor(), interval ? "editor_interval" : "editor_zones");
  }
}

}  // namespace
}  // namespace marlex
