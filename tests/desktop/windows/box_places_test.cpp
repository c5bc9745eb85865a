// Where boxes appear, and what they block.

#include <gtest/gtest.h>

#include "desktop/windows/box_hand.h"
#include "desktop/windows/painted_windows.h"

namespace marlex {
namespace {

/// The main window with a call button whose presses are counted.
struct BoxPlacesDesk : PaintedWindows {
  BoxPlacesDesk() {
    Forms.frmMain.Load();
    Forms.frmMain.frRouting.Visible = true;
    Forms.frmMain.cmdCall.OnMouseDown = [this](MouseButton) { ++Presses; };
    Forms.frmMain.cmdCall.OnMouseUp = [this](MouseButton) { ++Releases; };
    ShowMain();
    Screen.Main().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Screen.Main()));
  }

  /// Takes the same route as a real mouse: through the window.
  void Press() {
    QTest::mousePress(Screen.Main().windowHandle(), Qt::LeftButton, {}, CallButton());
    Settle();
  }
  void Release() {
    QTest::mouseRelease(Screen.Main().windowHandle(), Qt::LeftButton, {}, CallButton());
    Settle();
  }

  template <class T = QMessageBox>
  T* Box() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* box = qobject_cast<T*>(window); box && box->isVisible()) return box;
    }
    return nullptr;
  }

  void Report(const std::string& text) { Boxes.LeaveMsgBox(text, BoxIcon::Critical, "Error"); }

  int Presses = 0;
  int Releases = 0;
  EnglishBoxes Boxes{Loop};

 private:
  QPoint CallButton() {
    auto& button = Find<QWidget>("cmdCall");
    return button.mapTo(&Screen.Main(), button.rect().center());
  }
};

TEST(BoxPlaces, ANoticeOverTheMainWindowBarsNothing) {
  BoxPlacesDesk desk;
  desk.Report("No paper");
  QMessageBox* const box = desk.Box();
  ASSERT_TRUE(box);
  EXPECT_EQ(box->windowModality(), Qt::NonModal);
  EXPECT_EQ(box->parentWidget(), &desk.Screen.Main());
  desk.Press();
  EXPECT_EQ(desk.Presses, 1);
  desk.Release();
  EXPECT_EQ(desk.Releases, 1);
  EXPECT_TRUE(box->isVisible());
  box->close();
}

TEST(BoxPlaces, ANoticeOnANoticeBarsNothingEitherAndOutlivesIt) {
  BoxPlacesDesk desk;
  desk.Report("one");
  QMessageBox* const first = desk.Box();
  first->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(first));
  desk.Report("two");
  first->accept();
  desk.Settle();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QMessageBox* const second = desk.Box();
  ASSERT_TRUE(second);
  EXPECT_EQ(second->text(), "two");
  EXPECT_EQ(second->windowModality(), Qt::NonModal);
  second->close();
}

TEST(BoxPlaces, ANoticeInACallOpensAfterItAndDoesNotEndIt) {
  BoxPlacesDesk desk;
  desk.Press();
  ASSERT_EQ(desk.Presses, 1);
  desk.Report("No paper");
  QTest::qWait(200);
  desk.Settle();
  EXPECT_EQ(desk.Releases, 0);
  EXPECT_FALSE(desk.Box());
  desk.Report("No paper");  // waits already
  desk.Release();
  EXPECT_EQ(desk.Releases, 1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return desk.Box() != nullptr; }));
  desk.Box()->close();
  desk.Settle();
  EXPECT_FALSE(desk.Box());
}

TEST(BoxPlaces, AFileDialogOfTheMainWindowLeavesTheCallButtonFree) {
  BoxPlacesDesk desk;
  desk.Boxes.LeaveOpen({"Schedules (*.sch)|*.sch", "sch", "/", true}, [](const std::string&) {});
  auto* const box = desk.Box<QFileDialog>();
  ASSERT_TRUE(box);
  EXPECT_EQ(box->windowModality(), Qt::NonModal);
  desk.Press();
  desk.Release();
  EXPECT_EQ(desk.Presses, 1);
  EXPECT_EQ(desk.Releases, 1);
  box->close();
}

TEST(BoxPlaces, TheQuestionOfAnEditorsSaveDialogBarsTheEditorAlone) {
  BoxPlacesDesk desk;
  desk.Forms.frmPlaylist.Show();
  desk.Settle();
  desk.Screen.Playlist().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.Screen.Playlist()));
  QTemporaryDir place;
  QFile file(place.filePath("day.lst"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  desk.Boxes.LeaveOpen(
      {"Lists (*.lst)|*.lst", "lst", place.path().toStdString() + "/", false, true},
      [](const std::string&) {});
  auto* const dialog = desk.Box<QFileDialog>();
  ASSERT_TRUE(dialog);
  Choose(*dialog, "day.lst");
  QMessageBox* const question = desk.Box();
  ASSERT_TRUE(question) << "and nobody was held up";
  EXPECT_EQ(question->windowModality(), Qt::WindowModal);
  desk.Press();
  EXPECT_EQ(desk.Presses, 1);
  desk.Release();
  EXPECT_EQ(desk.Releases, 1);
  desk.Report("No paper");
  EXPECT_EQ(OpenDialogs<QMessageBox>().size(), 2);
  for (QMessageBox* box : OpenDialogs<QMessageBox>()) {
    if (box == question) continue;
    EXPECT_EQ(box->parentWidget(), &desk.Screen.Main()) << "where it can be answered";
    box->close();
  }
  Answer(*question, "Cancel");
  EXPECT_TRUE(dialog->isVisible());
  dialog->close();
}

TEST(BoxPlaces, AFileThatIsNotFoundBarsNothingOfTheMainWindow) {
  BoxPlacesDesk desk;
  bool closed = false;
  desk.Forms.frmMain.OnUnload = [&] { return closed = true; };
  QTemporaryDir place;
  desk.Boxes.LeaveOpen({"Lists (*.lst)|*.lst", "lst", place.path().toStdString() + "/"},
                       [](const std::string&) {});
  auto* const dialog = desk.Box<QFileDialog>();
  ASSERT_TRUE(dialog);
  Choose(*dialog, "day.lst");
  QMessageBox* const notice = desk.Box();
  ASSERT_TRUE(notice) << "and nobody was held up";
  EXPECT_EQ(notice->text(), "day.lst\nFile not found");
  EXPECT_EQ(notice->windowModality(), Qt::NonModal);
  desk.Press();
  EXPECT_EQ(desk.Presses, 1);
  desk.Release();
  EXPECT_EQ(desk.Releases, 1);
  EXPECT_TRUE(notice->isVisible());
  Choose(*dialog, "night.lst");
  ASSERT_EQ(OpenDialogs<QMessageBox>().size(), 1) << "the first one is over";
  EXPECT_EQ(desk.Box()->text(), "night.lst\nFile not found");
  QCloseEvent close;  // like the window manager's; a box that blocks the window would refuse it
  QApplication::sendEvent(desk.Screen.Main().windowHandle(), &close);
  desk.Settle();
  EXPECT_TRUE(closed);
  dialog->close();
}

TEST(BoxPlaces, ABoxOfAnEditorBarsTheEditorAlone) {
  BoxPlacesDesk desk;
  desk.Forms.frmPlaylist.Show();
  desk.Settle();
  desk.Screen.Playlist().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.Screen.Playlist()));
  desk.Report("No name");
  ASSERT_TRUE(desk.Box());
  EXPECT_EQ(desk.Box()->parentWidget(), &desk.Screen.Playlist());
  EXPECT_EQ(desk.Box()->windowModality(), Qt::WindowModal);
  desk.Press();
  EXPECT_EQ(desk.Presses, 1);
  desk.Release();
  desk.Box()->close();
}

}  // namespace
}  // namespace marlex
