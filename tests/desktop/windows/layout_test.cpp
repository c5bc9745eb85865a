#include <gtest/gtest.h>

#include "desktop/windows/painted_windows.h"
#include "desktop/windows/texts.h"
#include "screen/measure.h"

namespace marlex {
namespace {

/// Every state in which the main window can be laid out.
void ExpectMainWhole(PaintedWindows& windows) {
  FrmMain& main = windows.Forms.frmMain;
  main.lblConflict.Caption =
      "Time conflict(s) in schedule, double-click a red time field to remove a sequence";
  main.lblHiPrio.Caption =
      "Higher priority call in progress, which every listener hears before any other";
  for (const bool special : {false, true}) {
    main.lblConflict.Visible = special;
    main.lblHiPrio.Visible = special;
    main.cmdCall.Caption = special ? "Speak" : "Wait";
    for (CommandButton* button : {&main.cmdPlay, &main.cmdSkip, &main.cmdStop}) {
      button->Height = special ? FrmMain::kShrunkenTransportHeight : FrmMain::kTransportHeight;
    }
    for (const bool router : {false, true}) {
      main.frRouting.Visible = router;
      main.frCall.Visible = !router;
      windows.ShowMain();
      windows.Screen.Main().resize(windows.Screen.Main().minimumSizeHint());
      windows.Settle();
      ExpectNothingClipped(windows.Screen.Main());
    }
  }
}

class WholeLayout : public ::testing::TestWithParam<bool> {};

TEST_P(WholeLayout, NothingIsClippedInTheSmallestMainWindow) {
  PaintedWindows windows;
  windows.Forms.frmMain.Load();
  Texts(GetParam()).Fill(windows.Forms);
  FillSchedule(windows.Forms.frmMain.grdSchedule, 40);
  ExpectMainWhole(windows);
}

TEST_P(WholeLayout, NothingIsClippedInTheSmallWindows) {
  PaintedWindows windows;
  Texts(GetParam()).Fill(windows.Forms);
  for (Form* form :
       {static_cast<Form*>(&windows.Forms.frmLogo), static_cast<Form*>(&windows.Forms.frmAbout),
        static_cast<Form*>(&windows.Forms.frmlangSel)}) {
    form->Show();
  }
  windows.Settle();
  ExpectNothingClipped(windows.Screen.Logo());
  ExpectNothingClipped(windows.Screen.About());
  ExpectNothingClipped(windows.Screen.LangSel());
}

TEST_P(WholeLayout, NothingIsClippedInTheSettingsAndTheirPickers) {
  PaintedWindows windows;
  windows.Forms.frmSettings.Load();
  Texts(GetParam()).Fill(windows.Forms);
  for (const bool router : {true, false}) {
    FrmSettings& settings = windows.Forms.frmSettings;
    for (Frame* frame : {&settings.frNames, &settings.frPort, &settings.frPriority})
      frame->Visible = router;
    settings.frChimes.Visible = router;
    settings.frSound.Visible = !router;
    for (Form* form : {static_cast<Form*>(&settings), static_cast<Form*>(&windows.Forms.frmDirSel),
                       static_cast<Form*>(&windows.Forms.frmChimeSelect)}) {
      form->Show();
    }
    windows.Settle();
    ExpectNothingClipped(windows.Screen.Settings());
    ExpectNothingClipped(windows.Screen.DirSel());
    ExpectNothingClipped(windows.Screen.ChimeSelect());
  }
}

TEST_P(WholeLayout, NothingIsClippedInTheSmallestPlaylistEditor) {
  PaintedWindows windows;
  FrmPlaylist& playlist = windows.Forms.frmPlaylist;
  playlist.Load();
  Texts(GetParam()).Fill(windows.Forms);
  for (const bool scheduled : {true, false}) {
    playlist.frMusicTime.Visible = scheduled;
    playlist.Show();
    windows.Settle();
    windows.Screen.Playlist().resize(windows.Screen.Playlist().minimumSizeHint());
    windows.Settle();
    ExpectNothingClipped(windows.Screen.Playlist());
  }
}

TEST_P(WholeLayout, NothingIsClippedInTheSmallestScheduleEditor) {
  PaintedWindows windows;
  WavWindow& editor = windows.Forms.TheWavWindow;
  editor.Load();
  Texts(GetParam()).Fill(windows.Forms);
  for (const bool interval : {false, true}) {
    editor.frMinutes.Visible = !interval;
    editor.frInterval.Visible = interval;
    for (const bool router : {true, false}) {
      editor.frZones.Visible = router;
      editor.Show();
      windows.Settle();
      windows.Screen.ScheduleEditor().resize(windows.Screen.ScheduleEditor().minimumSizeHint());
      windows.Settle();
      ExpectNothingClipped(windows.Screen.ScheduleEditor());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(LongerTexts, WholeLayout, ::testing::Bool());

TEST(Layout, TheMainWindowFitsASmallScreen) {
  PaintedWindows windows;
  windows.Forms.frmMain.Load();
  Texts().Fill(windows.Forms);
  windows.ShowMain();
  const QSize smallest = windows.Screen.Main().minimumSizeHint();
  EXPECT_LE(smallest.width(), 1024);
  EXPECT_LE(smallest.height(), 700);
}

TEST(Layout, TheEditorsFitASmallScreen) {
  for (const bool longer : {false, true}) {
    PaintedWindows windows;
    windows.Forms.frmPlaylist.Load();
    windows.Forms.TheWavWindow.Load();
    Texts(longer).Fill(windows.Forms);
    windows.Forms.TheWavWindow.frMinutes.Visible = false;
    windows.Forms.TheWavWindow.frInterval.Visible = true;
    windows.Forms.frmPlaylist.Show();
    windows.Forms.TheWavWindow.Show();
    windows.Settle();
    for (const QWidget* editor : {&windows.Screen.Playlist(), &windows.Screen.ScheduleEditor()}) {
      EXPECT_LE(editor->minimumSizeHint().width(), 1024) << editor->objectName().toStdString();
      EXPECT_LE(editor->minimumSizeHint().height(), 700) << editor->objectName().toStdString();
    }
  }
}

TEST(Layout, TheSettingsDialogFitsASmallScreen) {
  PaintedWindows windows;
  windows.Forms.frmSettings.Load();
  Texts().Fill(windows.Forms);
  windows.Forms.frmSettings.Show();
  windows.Settle();
  EXPECT_LE(windows.Screen.Settings().width(), 1024);
  EXPECT_LE(windows.Screen.Settings().height(), 700);
}

}  // namespace
}  // namespace marlex
