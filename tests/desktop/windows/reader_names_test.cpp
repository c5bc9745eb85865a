#include "desktop/windows/reader_names.h"

#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

std::string NameOf(QWidget& window, const char* widget) {
  auto* found = window.findChild<QWidget*>(widget);
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(found);
  return spoken ? spoken->text(QAccessible::Name).toStdString() : "(none)";
}

TEST(ReaderNames, AKeyOfAZoneIsToldByItsRowAndItsZone) {
  Desk desk;
  desk.Forms.frmMain.Load();
  Texts().Fill(desk.Forms);
  desk.ShowMain();
  EXPECT_EQ(NameOf(desk.Screen.Main(), "cmdMusicZones_1"), "Music Hall A");
  EXPECT_EQ(NameOf(desk.Screen.Main(), "cmdCallZone_5"), "Call Car park");
  desk.Forms.frmMain.lblZoneName[5].Caption = "Roof";
  desk.Settle();
  EXPECT_EQ(NameOf(desk.Screen.Main(), "cmdCallZone_5"), "Call Roof");
  EXPECT_EQ(NameOf(desk.Screen.Main(), "cmdSkip"), "Skip");
  EXPECT_EQ(desk.Find<QWidget>("grdSchedule").accessibleName(), "Message time schedule today");
}

TEST(ReaderNames, FieldsListsSlidersAndDaysAreToldByTheirLabelsOrFrames) {
  Desk desk;
  desk.Forms.TheWavWindow.Load();
  desk.Forms.frmPlaylist.Load();
  Texts().Fill(desk.Forms);
  for (Form* form :
       {static_cast<Form*>(&desk.Forms.TheWavWindow), static_cast<Form*>(&desk.Forms.frmPlaylist),
        static_cast<Form*>(&desk.Forms.frmSettings)}) {
    form->Show();
  }
  desk.Settle();
  QWidget& editor = desk.Screen.ScheduleEditor();
  EXPECT_EQ(NameOf(editor, "txtHours"), "Hours");
  EXPECT_EQ(NameOf(editor, "txtMinutes"), "Minutes");
  EXPECT_EQ(NameOf(editor, "SelectedWavs"), "Selected sequence");
  EXPECT_EQ(NameOf(editor, "WkDays_2"), "W 3/7");
  EXPECT_EQ(NameOf(desk.Screen.Playlist(), "AvailMP3s"), "Available music");
  EXPECT_EQ(NameOf(desk.Screen.Playlist(), "chkDays_0"), "M 1/7");
  EXPECT_EQ(NameOf(desk.Screen.Playlist(), "chkDays_3"), "T 4/7");
  EXPECT_EQ(NameOf(desk.Screen.Settings(), "slMusicVolume"), "Music");
}

TEST(ReaderNames, ABoxThatOpensIsToldByItsEntryAndDescribedByItsLabel) {
  Desk desk;
  desk.Forms.frmPlaylist.Load();
  Texts().Fill(desk.Forms);
  desk.Forms.frmPlaylist.cmbStopMinutes.AddItem("45");
  desk.Forms.frmPlaylist.cmbStopMinutes.SetListIndex(
      desk.Forms.frmPlaylist.cmbStopMinutes.ListCount() - 1);
  desk.Forms.frmPlaylist.Show();
  desk.Settle();
  QWidget& editor = desk.Screen.Playlist();
  auto& box = *editor.findChild<QComboBox*>("cmbStopMinutes");
  EXPECT_EQ(NameOf(editor, "cmbStopMinutes"), "45");
  QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&box);
  EXPECT_EQ(spoken.text(QAccessible::Description), "Stops at: 2/2");
}

TEST(ReaderNames, WhatSharesItsWordsIsToldByWhatStandsAroundItOrByItsPlace) {
  Desk desk;
  desk.Forms.frmSettings.Load();
  Texts().Fill(desk.Forms);
  desk.Forms.frmSettings.Show();
  desk.Settle();
  QWidget& settings = desk.Screen.Settings();
  EXPECT_EQ(NameOf(settings, "cmdMsgBrowse"),
            "Directory where the wav message file are stored Browse");
  EXPECT_EQ(NameOf(settings, "cmdPostSelect"), "Chime succeeds call Select");
  EXPECT_EQ(NameOf(settings, "txtZoneName_2"), "Zone names 3/6");
  EXPECT_EQ(NameOf(settings, "cmdOK"), "OK");
}

TEST(ReaderNames, NothingThatTakesTheFocusIsNameless) {
  Desk desk;
  desk.Forms.frmMain.Load();
  desk.Forms.TheWavWindow.Load();
  desk.Forms.frmPlaylist.Load();
  desk.Forms.frmSettings.Load();
  Texts().Fill(desk.Forms);
  for (Form* form :
       {static_cast<Form*>(&desk.Forms.frmMain), static_cast<Form*>(&desk.Forms.TheWavWindow),
        static_cast<Form*>(&desk.Forms.frmPlaylist), static_cast<Form*>(&desk.Forms.frmSettings),
        static_cast<Form*>(&desk.Forms.frmChimeSelect),
        static_cast<Form*>(&desk.Forms.frmDirSel)}) {
    form->Show();
  }
  desk.Settle();
  int judged = 0;
  for (QWidget* window :
       {&desk.Screen.Main(), &desk.Screen.ScheduleEditor(), &desk.Screen.Playlist(),
        &desk.Screen.Settings(), &desk.Screen.ChimeSelect(), &desk.Screen.DirSel()}) {
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
