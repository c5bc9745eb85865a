#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
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

/// The desk with the router amplifier: zones, and a call key beside them.
void ShowRouter(Desk& desk) {
  FrmMain& main = desk.Forms.frmMain;
  main.Load();
  Texts().Fill(desk.Forms);
  FillSchedule(main.grdSchedule, 26);
  main.frCall.Visible = false;
  for (const int zone : {0, 1, 2, 4}) main.cmdMusicZones[zone].Value = true;
  for (const int zone : {0, 5}) main.cmdCallZone[zone].Value = true;
  for (const int zone : {0, 1, 2, 4}) main.lblCurrentZone[zone].BackColor = kGreen;
  desk.ShowMain();
  desk.Screen.Main().resize(kPictureSize);
}

TEST(Pictures, MainWindowWithZones) {
  Desk desk;
  ShowRouter(desk);
  FrmMain& main = desk.Forms.frmMain;
  PaintRow(main.grdSchedule, 15, kNavy, kWhite);
  main.grdSchedule.SetTopRow(7);
  desk.Settle();
  Keep(desk.Screen.Main(), "main_zones");
}

TEST(Pictures, MainWindowWhileAMessagePlays) {
  Desk desk;
  ShowRouter(desk);
  FrmMain& main = desk.Forms.frmMain;
  PaintRow(main.grdSchedule, 4, kNavy, kWhite);
  main.grdSchedule.SetCol(0);
  main.grdSchedule.SetCellColors(kGreen, kWhite);
  for (CommandButton* key : {&main.cmdPlay, &main.cmdSkip, &main.cmdStop}) key->Enabled = false;
  desk.Settle();
  Keep(desk.Screen.Main(), "main_message");
}

TEST(Pictures, MainWindowWithAConflictAndAHigherCall) {
  Desk desk;
  ShowRouter(desk);
  FrmMain& main = desk.Forms.frmMain;
  for (const int row : {3, 4}) {
    main.grdSchedule.SetRow(row);
    main.grdSchedule.SetCol(0);
    main.grdSchedule.SetCellColors(kRed, kWhite);
  }
  main.lblConflict.Caption =
      "Time conflict(s) in schedule, double-click a red time field to remove a sequence";
  main.lblConflict.Visible = true;
  for (CommandButton* key : {&main.cmdPlay, &main.cmdSkip, &main.cmdStop})
    key->Height = FrmMain::kShrunkenKeyHeight;
  main.lblHiPrio.Caption = "Higher priority call in progress";
  main.lblHiPrio.Visible = true;
  main.lblBusy[0].BackColor = kGreen;
  main.cmdCall.Caption = "Speak";
  desk.Settle();
  Keep(desk.Screen.Main(), "main_conflict");
}

TEST(Pictures, MainWindowWithZonesAndNoMicrophone) {
  Desk desk;
  ShowRouter(desk);
  FrmMain& main = desk.Forms.frmMain;
  for (VisualControl* control :
       {static_cast<VisualControl*>(&main.lblCall), static_cast<VisualControl*>(&main.cmdCall),
        static_cast<VisualControl*>(&main.lblBusy[0])}) {
    control->Visible = false;
  }
  for (int zone = 0; zone < kZones; ++zone) {
    main.cmdCallZone[zone].Visible = false;
    main.cmdMusicZones[zone].Height = FrmMain::kTallZoneKeyHeight;
  }
  desk.Settle();
  Keep(desk.Screen.Main(), "main_zones_no_microphone");
}

TEST(Pictures, MainWindowWithoutZones) {
  Desk desk;
  ShowRouter(desk);
  FrmMain& main = desk.Forms.frmMain;
  main.frRouting.Visible = false;
  main.frCall.Visible = true;
  main.grdSchedule.SetColWidth(kRoutingColumn, 0);
  desk.Settle();
  Keep(desk.Screen.Main(), "main_call_key");
  main.frCall.Visible = false;
  desk.Settle();
  Keep(desk.Screen.Main(), "main_player_only");
}

TEST(Pictures, MainWindowWithLongTexts) {
  Desk desk;
  desk.Forms.frmMain.Load();
  Texts(true).Fill(desk.Forms);
  FillSchedule(desk.Forms.frmMain.grdSchedule, 8);
  desk.Forms.frmMain.frCall.Visible = false;
  desk.ShowMain();
  Keep(desk.Screen.Main(), "main_long_texts");
}

TEST(Pictures, SmallWindows) {
  Desk desk;
  Texts().Fill(desk.Forms);
  for (Form* form :
       {static_cast<Form*>(&desk.Forms.frmLogo), static_cast<Form*>(&desk.Forms.frmAbout),
        static_cast<Form*>(&desk.Forms.frmlangSel)}) {
    form->Show();
  }
  desk.Settle();
  Keep(desk.Screen.Logo(), "splash");
  Keep(desk.Screen.About(), "about");
  Keep(desk.Screen.LangSel(), "languages");
}

TEST(Pictures, SettingsDialog) {
  Desk desk;
  FrmSettings& settings = desk.Forms.frmSettings;
  settings.Load();
  Texts().Fill(desk.Forms);
  settings.Show();
  desk.Settle();
  Keep(desk.Screen.Settings(), "settings_zones");
  for (Frame* frame :
       {&settings.frNames, &settings.frPort, &settings.frPriority, &settings.frChimes})
    frame->Visible = false;
  settings.optTolvo[1].SetValue(true);
  settings.frSound.Visible = true;
  settings.frMicroVolume.Enabled = false;
  desk.Settle();
  Keep(desk.Screen.Settings(), "settings_no_zones_no_microphone");
}

TEST(Pictures, SettingsDialogWithLongTexts) {
  Desk desk;
  desk.Forms.frmSettings.Load();
  Texts(true).Fill(desk.Forms);
  desk.Forms.frmSettings.Show();
  desk.Settle();
  Keep(desk.Screen.Settings(), "settings_long_texts");
}

TEST(Pictures, Pickers) {
  Desk desk;
  FillMedia(desk.Disk);
  FrmDirSel& directory = desk.Forms.frmDirSel;
  directory.Load();
  directory.Drive1.Refresh();
  directory.Dir1.BeginAt("/home/operator/Music");
  directory.lstFiles.SetPath("/home/operator/Music");
  directory.Show();
  FrmChimeSelect& chime = desk.Forms.frmChimeSelect;
  chime.Load();
  chime.lstChimeList.SetPath("/home/operator/Messages");
  chime.lstChimeList.SetListIndex(1);
  chime.Show();
  desk.Settle();
  Keep(desk.Screen.DirSel(), "directory_picker");
  Keep(desk.Screen.ChimeSelect(), "chime_picker");
}

TEST(Pictures, PlaylistEditor) {
  Desk desk;
  FrmPlaylist& playlist = desk.Forms.frmPlaylist;
  playlist.Load();
  Texts().Fill(desk.Forms);
  playlist.Show();
  desk.Settle();
  Keep(desk.Screen.Playlist(), "playlist_scheduled");
  playlist.optScheduled[FrmPlaylist::kAutostart].SetValue(true);
  playlist.frMusicTime.Visible = false;
  playlist.RemoveKey.Enabled = false;
  playlist.PrevKey.Enabled = false;
  desk.Settle();
  Keep(desk.Screen.Playlist(), "playlist_autostart");
}

TEST(Pictures, PlaylistEditorWithLongTexts) {
  Desk desk;
  desk.Forms.frmPlaylist.Load();
  Texts(true).Fill(desk.Forms);
  desk.Forms.frmPlaylist.Show();
  desk.Settle();
  desk.Screen.Playlist().resize(desk.Screen.Playlist().minimumSizeHint());
  desk.Settle();
  Keep(desk.Screen.Playlist(), "playlist_long_texts");
}

/// The same window four times, with the focus on another part each.
TEST(Pictures, Focus) {
  Desk desk;
  desk.Forms.frmPlaylist.Load();
  Texts().Fill(desk.Forms);
  desk.Forms.frmPlaylist.Show();
  desk.Settle();
  for (const char* part : {"AvailMP3s", "SelectedMP3s", "optScheduled_0", "chkDays_2"}) {
    desk.Screen.Playlist().findChild<QWidget*>(part)->setFocus(Qt::TabFocusReason);
    desk.Settle();
    Keep(desk.Screen.Playlist(), std::string("focus_") + part);
  }
}

TEST(Pictures, OpenMenus) {
  Desk desk;
  ShowRouter(desk);
  for (const char* name : {"mnuFile", "mnuEdit", "mnuView", "mnuSchedules", "mnuAbout"}) {
    auto& menu = desk.Find<QMenu>(name);
    menu.popup(desk.Screen.Main().mapToGlobal(QPoint(20, 40)));
    Keep(menu, name);
    menu.hide();
  }
}

TEST(Pictures, ScheduleEditor) {
  for (const bool interval : {false, true}) {
    Desk desk;
    WavWindow& editor = desk.Forms.TheWavWindow;
    editor.Load();
    Texts().Fill(desk.Forms);
    editor.frMinutes.Visible = !interval;
    editor.frInterval.Visible = interval;
    editor.frZones.Visible = !interval;
    editor.Show();
    desk.Settle();
    Keep(desk.Screen.ScheduleEditor(), interval ? "editor_interval" : "editor_zones");
  }
}

}  // namespace
}  // namespace marlex
