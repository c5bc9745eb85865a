#include "desktop/windows/qt_dialogs.h"

#include <gtest/gtest.h>

#include "desktop/windows/box_hand.h"
#include "desktop/windows/call_place.h"
#include "desktop/windows/finger.h"
#include "places.h"

namespace marlex {
namespace {

TEST(QtDialogs, AMessageBoxShowsItsTextsAndIcon) {
  QtEventLoop loop;
  EnglishBoxes dialogs(loop);
  QString seen;
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    EXPECT_EQ(box.objectName(), "messageBox");
    EXPECT_EQ(box.windowTitle(), "Problem");
    seen = box.text();
    box.accept();
  });
  dialogs.MsgBox("<b>Cannot</b> find\rC:\\Music\\\r\nClick & go", BoxIcon::Critical, "Problem");
  EXPECT_EQ(seen, "<b>Cannot</b> find\nC:\\Music\\\nClick & go");
}

TEST(QtDialogs, BoxesShowTheirTextsWhole) {
  PaintedWindows desk;
  QtEventLoop loop;
  EnglishBoxes dialogs(loop);
  const auto keep = [](QWidget& box, const char* name) {
    QDir().mkpath(QString(MARLEX_BINARY_DIR) + "/screenshots");
    EXPECT_TRUE(box.grab().save(QString(MARLEX_BINARY_DIR) + "/screenshots/" + name + ".png"));
    box.close();
  };
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    const auto* text = box.findChild<QLabel*>("qt_msgbox_label");
    EXPECT_GE(text->height(), text->heightForWidth(text->width()));
    keep(box, "message_box");
  });
  dialogs.MsgBox(
      "Unable to detect a mixer:\rPossible causes:\rNo sound card, or no driver for it, is present",
      BoxIcon::Critical, "Problem");
  Folder folder;
  WhenOpen<QFileDialog>([&](QFileDialog& box) { keep(box, "file_dialog"); });
  Chosen(loop, dialogs, folder.Asked(true));
}

TEST(QtDialogs, AnOpenNoticeBarsNoCallKey) {
  CallPlace desk;
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  desk.Settle();
  ASSERT_EQ(OpenDialogs<QMessageBox>().size(), 1);
  desk.Press();
  EXPECT_EQ(desk.Heard, "down ");
  desk.Release();
  EXPECT_EQ(desk.Heard, "down up ");
}

TEST(QtDialogs, AFileDialogOfTheMainWindowBarsNoCallKey) {
  Folder folder;
  CallPlace desk;
  desk.Boxes.LeaveOpen(folder.Asked(true), [](const std::string&) {});
  desk.Settle();
  ASSERT_EQ(OpenDialogs<QFileDialog>().size(), 1);
  desk.Press();
  desk.Release();
  EXPECT_EQ(desk.Heard, "down up ");
}

TEST(QtDialogs, ANoticeThatComesWhileTheKeyIsHeldWaitsUntilItIsLetGo) {
  for (const bool byFinger : {false, true}) {
    CallPlace desk;
    Finger finger(desk.Find<QPushButton>("cmdCall"));
    byFinger ? finger.Press() : desk.Press();
    desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
    QTest::qWait(200);
    desk.Settle();
    EXPECT_EQ(desk.Heard, "down ") << "the operator still speaks";
    byFinger ? finger.Release() : desk.Release();
    EXPECT_TRUE(QTest::qWaitFor([] { return OpenDialogs<QMessageBox>().size() == 1; }));
    desk.Settle();
    EXPECT_EQ(desk.Heard, "down up ");
  }
}

TEST(QtDialogs, ANoticeWaitsForTheFingerWhateverTheMouseDoes) {
  CallPlace desk;
  QWindow& window = *desk.Screen.Main().windowHandle();
  const QPoint elsewhere = desk.Find<QLabel>("lblMusic").mapTo(&desk.Screen.Main(), QPoint(3, 3));
  Finger finger(desk.Find<QPushButton>("cmdCall"));
  finger.Press();
  QTest::mouseMove(&window, elsewhere);
  QTest::mouseClick(&window, Qt::LeftButton, {}, elsewhere);
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  QTest::qWait(200);
  desk.Settle();
  EXPECT_EQ(desk.Heard, "down ") << "the operator still speaks";
  EXPECT_TRUE(OpenDialogs<QMessageBox>().isEmpty());
  finger.Release();
  EXPECT_TRUE(QTest::qWaitFor([] { return OpenDialogs<QMessageBox>().size() == 1; }));
  desk.Settle();
  EXPECT_EQ(desk.Heard, "down up ");
}

TEST(QtDialogs, ANoticeWaitsForTheMouseAlsoWhenAFingerTaps) {
  CallPlace desk;
  desk.Press();
  Finger(desk.Find<QLabel>("lblMusic")).Tap({3, 3});
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  QTest::qWait(200);
  desk.Settle();
  EXPECT_EQ(desk.Heard, "down ") << "the operator still speaks";
  EXPECT_TRUE(OpenDialogs<QMessageBox>().isEmpty());
  desk.Release();
  EXPECT_TRUE(QTest::qWaitFor([] { return OpenDialogs<QMessageBox>().size() == 1; }));
  desk.Settle();
  EXPECT_EQ(desk.Heard, "down up ");
}

TEST(QtDialogs, ATouchThatIsCancelledHoldsNoNoticeBack) {
  CallPlace desk;
  auto& key = desk.Find<QPushButton>("cmdCall");
  Finger finger(key);
  finger.Press();
  Finger::Cancel(key);
  QTest::mouseClick(desk.Screen.Main().windowHandle(), Qt::LeftButton, {}, QPoint(30, 30));
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  EXPECT_TRUE(QTest::qWaitFor([] { return OpenDialogs<QMessageBox>().size() == 1; }));
  finger.Release();
}

TEST(QtDialogs, TheFileDialogOfAnEditorBlocksItAloneAndANoticeOverItStays) {
  Folder folder;
  CallPlace desk;
  desk.Forms.frmPlaylist.Show();
  desk.Settle();
  QWidget& editor = desk.Screen.Playlist();
  editor.activateWindow();
  QApplication::processEvents();
  int clicks = 0;
  desk.Forms.frmPlaylist.cmdRandomize.OnClick = [&] { ++clicks; };
  desk.Boxes.LeaveOpen(folder.Asked(true), [](const std::string&) {});
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  desk.Settle();
  auto& key = *editor.findChild<QPushButton*>("cmdRandomize");
  QTest::mouseClick(editor.windowHandle(), Qt::LeftButton, {},
                    key.mapTo(&editor, key.rect().center()));
  desk.Settle();
  EXPECT_EQ(clicks, 0);
  desk.Press();
  desk.Release();
  EXPECT_EQ(desk.Heard, "down up ");
  OpenDialogs<QFileDialog>().front()->close();
  desk.Settle();
  ASSERT_EQ(OpenDialogs<QMessageBox>().size(), 1);
  QMessageBox& notice = *OpenDialogs<QMessageBox>().front();
  const QPushButton& answer = *qobject_cast<QPushButton*>(notice.button(QMessageBox::Ok));
  QTest::mouseClick(notice.windowHandle(), Qt::LeftButton, {},
                    answer.mapTo(&notice, answer.rect().center()));
  desk.Settle();
  EXPECT_TRUE(OpenDialogs<QMessageBox>().isEmpty());
}

TEST(QtDialogs, ANoticeOverAnotherStaysWhenThatOneIsAnswered) {
  CallPlace desk;
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  desk.Settle();
  desk.Boxes.LeaveMsgBox("No ink", BoxIcon::Critical, "Error");
  desk.Settle();
  for (QMessageBox* box : OpenDialogs<QMessageBox>()) {
    if (box->text() == "No paper") box->accept();
  }
  QTest::qWait(1);
  ASSERT_EQ(OpenDialogs<QMessageBox>().size(), 1);
  EXPECT_EQ(OpenDialogs<QMessageBox>().front()->text(), "No ink");
}

}  // namespace
}  // namespace marlex
