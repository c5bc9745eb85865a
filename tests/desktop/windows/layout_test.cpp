#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

std::string Describe(const QWidget& widget, const QString& text) {
  return widget.objectName().toStdString() + " \"" + text.toStdString() + "\" is " +
         std::to_string(widget.width()) + " x " + std::to_string(widget.height());
}

void ExpectWhole(const QLabel& label) {
  if (label.text().isEmpty()) return;
  const QSize need =
      label.wordWrap() ? QSize(label.minimumSizeHint().width(), label.heightForWidth(label.width()))
                       : label.sizeHint();
  EXPECT_GE(label.width(), need.width()) << Describe(label, label.text());
  EXPECT_GE(label.height(), need.height()) << Describe(label, label.text());
}

void ExpectWhole(const QAbstractButton& key) {
  EXPECT_GE(key.width(), key.sizeHint().width()) << Describe(key, key.text());
  EXPECT_GE(key.height(), key.minimumSizeHint().height()) << Describe(key, key.text());
}

/// The title, wrapped in the frame's width, ends above the first widget of the frame.
void ExpectWhole(const QGroupBox& frame) {
  if (frame.title().isEmpty()) return;
  const QRect room = frame.contentsRect();
  const QRect text = frame.fontMetrics().boundingRect(QRect(0, 0, room.width(), 10000),
                                                      Qt::TextWordWrap, frame.title());
  EXPECT_LE(text.width(), room.width()) << Describe(frame, frame.title());
  for (const QWidget* child : frame.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!child->isVisible()) continue;
    EXPECT_GE(child->y(), room.top() + text.height()) << Describe(frame, frame.title());
  }
}

void ExpectWhole(const QTableView& table) {
  const QHeaderView& heading = *table.horizontalHeader();
  for (int column = 0; column < heading.count(); ++column) {
    if (heading.isSectionHidden(column)) continue;
    EXPECT_GE(heading.sectionSize(column), heading.sectionSizeHint(column)) << "column " << column;
  }
}

template <class T>
void ExpectAllWhole(QWidget& window) {
  for (const T* widget : window.findChildren<T*>()) {
    if (!widget->isVisible() || widget->objectName().startsWith("qt_")) continue;
    ExpectWhole(*widget);
    const QRect inWindow(widget->mapTo(&window, QPoint(0, 0)), widget->size());
    EXPECT_TRUE(window.rect().contains(inWindow))
        << widget->objectName().toStdString() << " leaves the window";
    const QRect inParent = widget->geometry();
    const bool isInside = widget->parentWidget()->rect().contains(inParent);
    EXPECT_TRUE(isInside) << widget->objectName().toStdString() << " leaves its frame";
  }
}

void ExpectNothingClipped(QWidget& window) {
  ExpectAllWhole<QLabel>(window);
  ExpectAllWhole<QAbstractButton>(window);
  ExpectAllWhole<QGroupBox>(window);
  ExpectAllWhole<QTableView>(window);
}

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
