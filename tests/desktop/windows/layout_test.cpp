#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/texts.h"
#include "screen/measure.h"

namespace marlex {
namespace {

/// Every way in which the main window can stand.
void ExpectMainWhole(Desk& desk) {
  FrmMain& main = desk.Forms.frmMain;
  main.lblConflict.Caption =
      "Time conflict(s) in schedule, double-click a red time field to remove a sequence";
  main.lblHiPrio.Caption =
      "Higher priority call in progress, which every listener hears before any other";
  for (const bool special : {false, true}) {
    main.lblConflict.Visible = special;
    main.lblHiPrio.Visible = special;
    main.cmdCall.Caption = special ? "Speak" : "Wait";
    for (CommandButton* key : {&main.cmdPlay, &main.cmdSkip, &main.cmdStop}) {
      key->Height = special ? FrmMain::kShrunkenKeyHeight : FrmMain::kTransportKeyHeight;
    }
    for (const bool router : {false, true}) {
      main.frRouting.Visible = router;
      main.frCall.Visible = !router;
      desk.ShowMain();
      desk.Screen.Main().resize(desk.Screen.Main().minimumSizeHint());
      desk.Settle();
      ExpectNothingClipped(desk.Screen.Main());
    }
  }
}

class WholeLayout : public ::testing::TestWithParam<bool> {};

TEST_P(WholeLayout, NothingIsClippedInTheSmallestMainWindow) {
  Desk desk;
  desk.Forms.frmMain.Load();
  Texts(GetParam()).Fill(desk.Forms);
  FillSchedule(desk.Forms.frmMain.grdSchedule, 40);
  ExpectMainWhole(desk);
}

TEST_P(WholeLayout, NothingIsClippedInTheSmallWindows) {
  Desk desk;
  Texts(GetParam()).Fill(desk.Forms);
  for (Form* form :
       {static_cast<Form*>(&desk.Forms.frmLogo), static_cast<Form*>(&desk.Forms.frmAbout),
        static_cast<Form*>(&desk.Forms.frmlangSel)}) {
    form->Show();
  }
  desk.Settle();
  ExpectNothingClipped(desk.Screen.Logo());
  ExpectNothingClipped(desk.Screen.About());
  ExpectNothingClipped(desk.Screen.LangSel());
}

TEST_P(WholeLayout, NothingIsClippedInTheSettingsAndTheirPickers) {
  Desk desk;
  desk.Forms.frmSettings.Load();
  Texts(GetParam()).Fill(desk.Forms);
  for (const bool router : {true, false}) {
    FrmSettings& settings = desk.Forms.frmSettings;
    for (Frame* frame : {&settings.frNames, &settings.frPort, &settings.frPriority})
      frame->Visible = router;
    settings.frChimes.Visible = router;
    settings.frSound.Visible = !router;
    for (Form* form : {static_cast<Form*>(&settings), static_cast<Form*>(&desk.Forms.frmDirSel),
                       static_cast<Form*>(&desk.Forms.frmChimeSelect)}) {
      form->Show();
    }
    desk.Settle();
    ExpectNothingClipped(desk.Screen.Settings());
    ExpectNothingClipped(desk.Screen.DirSel());
    ExpectNothingClipped(desk.Screen.ChimeSelect());
  }
}

TEST_P(WholeLayout, NothingIsClippedInTheSmallestPlaylistEditor) {
  Desk desk;
  FrmPlaylist& playlist = desk.Forms.frmPlaylist;
  playlist.Load();
  Texts(GetParam()).Fill(desk.Forms);
  for (const bool scheduled : {true, false}) {
    playlist.frMusicTime.Visible = scheduled;
    playlist.Show();
    desk.Settle();
    desk.Screen.Playlist().resize(desk.Screen.Playlist().minimumSizeHint());
    desk.Settle();
    ExpectNothingClipped(desk.Screen.Playlist());
  }
}

TEST_P(WholeLayout, NothingIsClippedInTheSmallestScheduleEditor) {
  Desk desk;
  WavWindow& editor = desk.Forms.TheWavWindow;
  editor.Load();
  Texts(GetParam()).Fill(desk.Forms);
  for (const bool interval : {false, true}) {
    editor.frMinutes.Visible = !interval;
    editor.frInterval.Visible = interval;
    for (const bool router : {true, false}) {
      editor.frZones.Visible = router;
      editor.Show();
      desk.Settle();
      desk.Screen.ScheduleEditor().resize(desk.Screen.ScheduleEditor().minimumSizeHint());
      desk.Settle();
      ExpectNothingClipped(desk.Screen.ScheduleEditor());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(LongerTexts, WholeLayout, ::testing::Bool());

TEST(Layout, TheMainWindowFitsASmallScreen) {
  Desk desk;
  desk.Forms.frmMain.Load();
  Texts().Fill(desk.Forms);
  desk.ShowMain();
  const QSize smallest = desk.Screen.Main().minimumSizeHint();
  EXPECT_LE(smallest.width(), 1024);
  EXPECT_LE(smallest.height(), 700);
}

TEST(Layout, TheEditorsFitASmallScreen) {
  for (const bool longer : {false, true}) {
    Desk desk;
    desk.Forms.frmPlaylist.Load();
    desk.Forms.TheWavWindow.Load();
    Texts(longer).Fill(desk.Forms);
    desk.Forms.TheWavWindow.frMinutes.Visible = false;
    desk.Forms.TheWavWindow.frInterval.Visible = true;
    desk.Forms.frmPlaylist.Show();
    desk.Forms.TheWavWindow.Show();
    desk.Settle();
    for (const QWidget* editor : {&desk.Screen.Playlist(), &desk.Screen.ScheduleEditor()}) {
      EXPECT_LE(editor->minimumSizeHint().width(), 1024) << editor->objectName().toStdString();
      EXPECT_LE(editor->minimumSizeHint().height(), 700) << editor->objectName().toStdString();
    }
  }
}

TEST(Layout, TheSettingsDialogFitsASmallScreen) {
  Desk desk;
  desk.Forms.frmSettings.Load();
  Texts().Fill(desk.Forms);
  desk.Forms.frmSettings.Show();
  desk.Settle();
  EXPECT_LE(desk.Screen.Settings().width(), 1024);
  EXPECT_LE(desk.Screen.Settings().height(), 700);
}

}  // namespace
}  // namespace marlex
