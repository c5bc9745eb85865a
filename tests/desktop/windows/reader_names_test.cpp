#include "desktop/windows/reader_names.h"

#include <gtest/gtest.h>

#include "desktop/windows/painted_windows.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

std::string NameOf(QWidget& window, const char* widget) {
  auto* found = window.findChild<QWidget*>(widget);
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(found);
  return spoken ? spoken->text(QAccessible::Name).toStdString() : "(none)";
}

TEST(ReaderNames, AZoneButtonIsNamedByItsRowAndItsZone) {
  PaintedWindows windows;
  windows.Forms.frmMain.Load();
  Texts().Fill(windows.Forms);
  windows.ShowMain();
  EXPECT_EQ(NameOf(windows.Screen.Main(), "cmdMusicZones_1"), "Music Hall A");
  EXPECT_EQ(NameOf(windows.Screen.Main(), "cmdCallZone_5"), "Call Car park");
  windows.Forms.frmMain.lblZoneName[5].Caption = "Roof";
  windows.Settle();
  EXPECT_EQ(NameOf(windows.Screen.Main(), "cmdCallZone_5"), "Call Roof");
  EXPECT_EQ(NameOf(windows.Screen.Main(), "cmdSkip"), "Skip");
  EXPECT_EQ(windows.Find<QWidget>("grdSchedule").accessibleName(), "Message time schedule today");
}

TEST(ReaderNames, FieldsListsSlidersAndDaysAreNamedByTheirLabelsOrFrames) {
  PaintedWindows windows;
  windows.Forms.TheWavWindow.Load();
  windows.Forms.frmPlaylist.Load();
  Texts().Fill(windows.Forms);
  for (Form* form : {static_cast<Form*>(&windows.Forms.TheWavWindow),
                     static_cast<Form*>(&windows.Forms.frmPlaylist),
                     static_cast<Form*>(&windows.Forms.frmSettings)}) {
    form->Show();
  }
  windows.Settle();
  QWidget& editor = windows.Screen.ScheduleEditor();
  EXPECT_EQ(NameOf(editor, "txtHours"), "Hours");
  EXPECT_EQ(NameOf(editor, "txtMinutes"), "Minutes");
  EXPECT_EQ(NameOf(editor, "SelectedWavs"), "Selected sequence");
  EXPECT_EQ(NameOf(editor, "WkDays_2"), "W 3/7");
  EXPECT_EQ(NameOf(windows.Screen.Playlist(), "AvailMP3s"), "Available music");
  EXPECT_EQ(NameOf(windows.Screen.Playlist(), "chkDays_0"), "M 1/7");
  EXPECT_EQ(NameOf(windows.Screen.Playlist(), "chkDays_3"), "T 4/7");
  EXPECT_EQ(NameOf(windows.Screen.Settings(), "slMusicVolume"), "Music");
}

TEST(ReaderNames, ABoxThatOpensIsNamedByItsEntryAndDescribedByItsLabel) {
  PaintedWindows windows;
  windows.Forms.frmPlaylist.Load();
  Texts().Fill(windows.Forms);
  windows.Forms.frmPlaylist.cmbStopMinutes.AddItem("45");
  windows.Forms.frmPlaylist.cmbStopMinutes.SetListIndex(
      windows.Forms.frmPlaylist.cmbStopMinutes.ListCount() - 1);
  windows.Forms.frmPlaylist.Show();
  windows.Settle();
  QWidget& editor = windows.Screen.Playlist();
  auto& box = *editor.findChild<QComboBox*>("cmbStopMinutes");
  EXPECT_EQ(NameOf(editor, "cmbStopMinutes"), "45");
  QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&box);
  EXPECT_EQ(spoken.text(QAccessible::Description), "Stops at: 2/2");
}

TEST(ReaderNames, WhatSharesItsWordsIsNamedByWhatIsAroundItOrByItsPlace) {
  PaintedWindows windows;
  windows.Forms.frmSettings.Load();
  Texts().Fill(windows.Forms);
  windows.Forms.frmSettings.Show();
  windows.Settle();
  QWidget& settings = windows.Screen.Settings();
  EXPECT_EQ(NameOf(settings, "cmdMsgBrowse"),
            "Directory where the wav message file are stored Browse");
  EXPECT_EQ(NameOf(settings, "cmdPostSelect"), "Chime succeeds call Select");
  EXPECT_EQ(NameOf(settings, "txtZoneName_2"), "Zone names 3/6");
  EXPECT_EQ(NameOf(settings, "cmdOK"), "OK");
}

TEST(ReaderNames, NothingThatTakesTheFocusIsNameless) {
  PaintedWindows windows;
  windows.Forms.frmMain.Load();
  windows.Forms.TheWavWindow.Load();
  windows.Forms.frmPlaylist.Load();
  windows.Forms.frmSettings.Load();
  Texts().Fill(windows.Forms);
  for (Form* form :
       {static_cast<Form*>(&windows.Forms.frmMain), static_cast<Form*>(&windows.Forms.TheWavWindow),
        static_cast<Form*>(&windows.Forms.frmPlaylist),
        static_cast<Form*>(&windows.Forms.frmSettings),
        static_cast<Form*>(&windows.Forms.frmChimeSelect),
        static_cast<Form*>(&windows.Forms.frmDirSel)}) {
    form->Show();
  }
  windows.Settle();
  int judged = 0;
  for (QWidget* window :
       {&windows.Screen.Main(), &windows.Screen.ScheduleEditor(), &windows.Screen.Playlist(),
        &windows.Screen.Settings(), &windows.Screen.ChimeSelect(), &windows.Screen.DirSel()}) {
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
      const bool isOwn = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
      if (!isOwn || widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()) continue;
      const std::string name = widget->objectName().toStdString();
      EXPECT_NE(NameOf(*window, name.c_str()), "")
          << window->objectName().toStdString() << "." << name;
      ++judged;
    }
  }
  EXPECT_GT(judged, 60);
}

}  // namespace
}  // namespace marlex
