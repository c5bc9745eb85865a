#include "desktop/windows/qt_dialogs.h"

#include <gtest/gtest.h>

#include <map>

#include "desktop/windows/box_hand.h"
#include "desktop/windows/call_place.h"
#include "desktop/windows/finger.h"
#include "desktop/windows/message_box.h"
#include "desktop/windows/shown_body.h"
#include "desktop/windows/theme.h"
#include "places.h"
#include "screen/painted_texts.h"

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
    seen = WithoutMarks(box.text());
    box.accept();
  });
  dialogs.MsgBox("<b>Cannot</b> find\rC:\\Music\\\r\nClick & go", BoxIcon::Critical, "Problem");
  EXPECT_EQ(seen, "<b>Cannot</b> find\nC:\\Music\\\nClick & go");
}

/// Whether the picture has a pixel of that colour.
bool HasColor(const QImage& picture, const QColor& color) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, y) == color) return true;
    }
  }
  return false;
}

TEST(QtDialogs, ABoxWearsTheProgramsSignAlsoAfterAChangeOfTheLook) {
  const std::map<QMessageBox::Icon, const char*> signs = {{QMessageBox::Critical, "alarm"},
                                                          {QMessageBox::Warning, "text"},
                                                          {QMessageBox::Information, "accent"}};
  for (const auto& [icon, color] : signs) {
    MessageBox box(icon, "Caption", "Body", nullptr);
    EXPECT_EQ(box.icon(), icon);
    const auto& sign = *box.findChild<QLabel*>("qt_msgboxex_icon_label");
    EXPECT_TRUE(HasColor(sign.pixmap().toImage(), ThemeColorNow(color))) << color;
    QEvent change(QEvent::StyleChange);
    QApplication::sendEvent(&box, &change);
    EXPECT_TRUE(HasColor(sign.pixmap().toImage(), ThemeColorNow(color))) << color;
  }
}

/// Distance of the leftmost pixel of a label's text from its left edge.
int RoomBefore(const QLabel& label) {
  const QImage picture = const_cast<QLabel&>(label).grab().toImage();
  const QColor ground = picture.pixelColor(0, 0);
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y) {
      if (picture.pixelColor(x, y) != ground) return x;
    }
  }
  return picture.width();
}

TEST(QtDialogs, ALineInHebrewBeginsOnTheLeftLikeOneInEnglish) {
  constexpr int kSideBearing = 3;
  const std::string longest = "/home/operator/Music/Background/Day.sch";
  for (const char* line : {"COM1", "שגיאה"}) {
    MessageBox box(QMessageBox::Critical, "Caption", ShownBody(longest), nullptr);
    box.show();
    auto& label = *box.findChild<QLabel*>("qt_msgbox_label");
    label.setText(ShownBody(line));
    EXPECT_LE(RoomBefore(label), kSideBearing) << line;
  }
}

TEST(QtDialogs, NoLineOfABoxIsLeftWithASingleWord) {
  const QString words = "one two three four five six seven eight nine ten eleven twelve thirteen ";
  MessageBox box(QMessageBox::Critical, "Caption", words + words + words, nullptr);
  box.show();
  auto& label = *box.findChild<QLabel*>("qt_msgbox_label");
  std::map<int, QRectF> lines;
  for (const PaintedTexts::Piece& piece : PaintedTexts::Of(label)) {
    QRectF& line = lines[qRound(piece.Place.top())];
    line = line.united(piece.Place);
    EXPECT_LE(piece.Place.right(), label.width());
  }
  ASSERT_GT(lines.size(), 1U);
  EXPECT_GT(lines.rbegin()->second.width(), lines.begin()->second.width() / 2);
  EXPECT_EQ(WithoutMarks(box.text()), words + words + words);
}

TEST(QtDialogs, APathInABoxIsReadAndCopiedWithoutMarks) {
  const QString body = "Not found: /home/Autumn and winter/";
  MessageBox box(QMessageBox::Critical, "Caption", ShownBody(body.toStdString()), nullptr);
  box.show();
  EXPECT_NE(box.text(), body);
  QAccessibleInterface& spoken =
      *QAccessible::queryAccessibleInterface(box.findChild<QLabel*>("qt_msgbox_label"));
  EXPECT_EQ(spoken.text(QAccessible::Name), body);
  QTest::keySequence(&box, QKeySequence::Copy);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), body);
}

TEST(QtDialogs, ALongPathInABoxBeginsALineOfItsOwn) {
  const QString text = "The file cannot be saved: ";
  const QString folders = "/home/operator/Music/Background/Autumn and winter/";
  const QString longPath = folders + folders.mid(1);
  for (const QString& paths : {QString("/home/Day.sch"), longPath, longPath + "\nIn: /home/"}) {
    const bool isLong = paths.startsWith(longPath);
    const QString body = text + paths;
    MessageBox box(QMessageBox::Critical, "Caption", ShownBody(body.toStdString()), nullptr);
    box.show();
    EXPECT_EQ(box.text().startsWith(text.trimmed() + QChar::LineSeparator), isLong);
    EXPECT_EQ(box.text().count(QChar::LineSeparator), isLong ? 1 : 0);
    EXPECT_EQ(box.findChild<QLabel*>("qt_msgbox_label")->accessibleName(), body);
    QTest::keySequence(&box, QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), body);
  }
}

TEST(QtDialogs, TheButtonThatEnterPressesIsThePrimaryOne) {
  MessageBox notice(QMessageBox::Critical, "Caption", "Body", nullptr);
  notice.addButton(QMessageBox::Ok);
  notice.show();
  EXPECT_EQ(notice.button(QMessageBox::Ok)->property("face"), "primary");
  MessageBox question(QMessageBox::Warning, "Caption", "Body", nullptr);
  const QPushButton* replace = question.addButton("Replace", QMessageBox::AcceptRole);
  QPushButton* cancel = question.addButton("Cancel", QMessageBox::RejectRole);
  question.setDefaultButton(cancel);
  question.show();
  EXPECT_EQ(cancel->property("face"), "primary");
  EXPECT_FALSE(replace->property("face").isValid());
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

TEST(QtDialogs, AnOpenNoticeBarsNoCallButton) {
  CallPlace desk;
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  desk.Settle();
  ASSERT_EQ(OpenDialogs<QMessageBox>().size(), 1);
  desk.Press();
  EXPECT_EQ(desk.Heard, "down ");
  desk.Release();
  EXPECT_EQ(desk.Heard, "down up ");
}

TEST(QtDialogs, AFileDialogOfTheMainWindowBarsNoCallButton) {
  Folder folder;
  CallPlace desk;
  desk.Boxes.LeaveOpen(folder.Asked(true), [](const std::string&) {});
  desk.Settle();
  ASSERT_EQ(OpenDialogs<QFileDialog>().size(), 1);
  desk.Press();
  desk.Release();
  EXPECT_EQ(desk.Heard, "down up ");
}

TEST(QtDialogs, ANoticeThatComesWhileTheButtonIsHeldWaitsUntilItIsLetGo) {
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
  auto& button = desk.Find<QPushButton>("cmdCall");
  Finger finger(button);
  finger.Press();
  Finger::Cancel(button);
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
  auto& button = *editor.findChild<QPushButton*>("cmdRandomize");
  QTest::mouseClick(editor.windowHandle(), Qt::LeftButton, {},
                    button.mapTo(&editor, button.rect().center()));
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
