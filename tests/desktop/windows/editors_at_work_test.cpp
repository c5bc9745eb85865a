#include <gtest/gtest.h>

#include "desktop/windows/finger.h"
#include "desktop/windows/mouse.h"
#include "desktop/windows/whole_desk.h"

namespace marlex {
namespace {

/// The message schedule editor over a folder of messages "m0", "m1" and so on.
struct MessagesAtWork : WholeDesk {
  explicit MessagesAtWork(int messages) {
    for (int message = 0; message < messages; ++message)
      Place.Write("messages/m" + std::to_string(message) + ".wav", "");
    Start();
    Choose(Screen.Main(), "mnuSchedule");
  }

  void Take(int messages) {
    for (int message = 0; message < messages; ++message) {
      TheWavWindow.SelectedWavs.AddItem("m" + std::to_string(message));
      TheWavWindow.SelectedFiles.AddItem("m" + std::to_string(message) + ".wav");
    }
    TheWavWindow.RemAll_Key.Enabled = true;
    Settle();
    Chosen.scrollToTop();
  }
  static QPoint At(QListView& view, int row) {
    return view.visualRect(view.model()->index(row, 0)).center();
  }
  /// Puts a finger down and waits until it has taken hold of the message.
  void Hold(Finger& finger, QPoint at) {
    finger.Press(at);
    EXPECT_TRUE(QTest::qWaitFor([this] {
      Settle();
      return Sys.Selected.Drag.DragActive;
    }));
  }
  std::string Sequence() { return Sys.Selected.BuildMessagesText(); }

  WavWindow& TheWavWindow = Sys.TheWindows.TheWavWindow;
  QListView& Available = Find<QListView>(Screen.ScheduleEditor(), "AvailWavs");
  QListView& Chosen = Find<QListView>(Screen.ScheduleEditor(), "SelectedWavs");
};

/// The messages "m0" to "m<count - 1>" in order, but with one of them moved to the end.
std::string WithLast(int last, int count) {
  std::string text;
  for (int message = 0; message < count; ++message) {
    if (message != last) text += "m" + std::to_string(message) + ",";
  }
  return text + "m" + std::to_string(last);
}

TEST(EditorsAtWork, TwoQuickClicksOnAMessageAddItTwice) {
  MessagesAtWork desk(3);
  desk.Pc.Disk.AddWav(desk.MessageFolder() + "m1.wav", 1500);
  QWindow& window = *desk.Screen.ScheduleEditor().windowHandle();
  const QPoint there =
      desk.Available.viewport()->mapTo(&desk.Screen.ScheduleEditor(), desk.At(desk.Available, 1));
  QTest::mouseDClick(&window, Qt::LeftButton, {}, there);
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), "m1,m1");
  EXPECT_EQ(desk.TheWavWindow.lblTotalTime.Caption.Get(), "3");
}

/// A call can be made at any moment.
TEST(EditorsAtWork, TheMainWindowIsFreeUnderTheEditorOfMessages) {
  MessagesAtWork desk(1);
  QWidget& main = desk.Screen.Main();
  auto& button = desk.Find<QPushButton>(main, "cmdCall2");
  const QPoint there = button.mapTo(&main, button.rect().center());
  QTest::mousePress(main.windowHandle(), Qt::LeftButton, {}, there);
  desk.Settle();
  EXPECT_TRUE(desk.Sys.TheFlags.CallActive);
  QTest::mouseRelease(main.windowHandle(), Qt::LeftButton, {}, there);
  desk.Settle();
  EXPECT_FALSE(desk.Sys.TheFlags.CallActive);
  EXPECT_TRUE(desk.Screen.ScheduleEditor().isVisible());
}

TEST(EditorsAtWork, TwoQuickTapsOnASongTakeItTwice) {
  WholeDesk desk;
  for (const char* song : {"music/march.mp3", "music/waltz.mp3"}) desk.Place.Write(song, "");
  desk.Start();
  desk.Choose(desk.Screen.Main(), "mnuPlaylist");
  auto& songs = desk.Find<QListView>(desk.Screen.Playlist(), "AvailMP3s");
  Finger finger(*songs.viewport());
  const QPoint there = songs.visualRect(songs.model()->index(1, 0)).center();
  finger.Tap(there);
  finger.Tap(there);
  desk.Settle();
  const ListBox& taken = desk.Sys.TheWindows.frmPlaylist.SelectedMP3s;
  ASSERT_EQ(taken.ListCount(), 2);
  EXPECT_EQ(taken.List(0), "waltz");
  EXPECT_EQ(taken.List(1), "waltz");
}

TEST(EditorsAtWork, AFingerThatRestsOnAMessageDragsItPastItsNeighboursOneByOne) {
  MessagesAtWork desk(1);
  desk.Take(5);
  Finger finger(*desk.Chosen.viewport());
  desk.Hold(finger, desk.At(desk.Chosen, 0));
  finger.Move(desk.At(desk.Chosen, 3));
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), "m1,m2,m3,m0,m4");
  finger.Move(desk.At(desk.Chosen, 1));
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), "m1,m0,m2,m3,m4");
  finger.Release(desk.At(desk.Chosen, 1));
  desk.Settle();
  desk.Hold(finger, desk.At(desk.Chosen, 4));
  finger.Move({10, -100});
  finger.Release({10, -100});
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), "m4,m1,m0,m2,m3");
  EXPECT_FALSE(desk.Sys.Selected.Drag.DragActive);
}

TEST(EditorsAtWork, AFingerBelowALongSequenceDragsAMessageToItsEndAndScrolls) {
  constexpr int kMessages = 40;
  MessagesAtWork desk(1);
  desk.Take(kMessages);
  const auto isInView = [&](int row) {
    return desk.Chosen.viewport()->rect().contains(desk.At(desk.Chosen, row));
  };
  ASSERT_FALSE(isInView(kMessages - 1));
  const QPoint below(10, desk.Chosen.viewport()->height() + 40);
  Finger finger(*desk.Chosen.viewport());
  desk.Hold(finger, desk.At(desk.Chosen, 2));
  finger.Move(below);
  ASSERT_TRUE(QTest::qWaitFor([&] {
    desk.Settle();
    const int selected = desk.TheWavWindow.SelectedWavs.ListIndex();
    // The timer of the drag may move it on while the screen is painted.
    const bool isFollowed = isInView(selected) || isInView(selected - 1) || isInView(selected - 2);
    EXPECT_TRUE(isFollowed) << selected;
    return selected == kMessages - 1;
  }));
  desk.Settle();
  EXPECT_TRUE(isInView(kMessages - 1));
  EXPECT_EQ(desk.Sequence(), WithLast(2, kMessages));
  finger.Release(below);
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), WithLast(2, kMessages));
  EXPECT_EQ(desk.TheWavWindow.SelectedWavs.Text(), "m2");
}

/// Moves a finger upwards over a list, as far and as fast as a hand does, and lifts it.
void SwipeUp(QListView& view, int way) {
  constexpr int kSteps = 8;
  Finger finger(*view.viewport());
  const QPoint from(20, view.viewport()->height() - 20);
  finger.Press(from);
  for (int step = 1; step <= kSteps; ++step) {
    QTest::qWait(5);
    finger.Move(from - QPoint(0, way * step / kSteps));
  }
  finger.Release(from - QPoint(0, way));
}

TEST(EditorsAtWork, AFingerThatScrollsTheSequenceLeavesItInItsOrder) {
  constexpr int kMessages = 60;
  MessagesAtWork desk(1);
  desk.Take(kMessages);
  const std::string before = desk.Sequence();
  for (int swipe = 0; swipe < 3; ++swipe) {
    const int scrolled = desk.Chosen.verticalScrollBar()->value();
    SwipeUp(desk.Chosen, 60);
    desk.Settle();
    EXPECT_GT(desk.Chosen.verticalScrollBar()->value(), scrolled);
  }
  EXPECT_EQ(desk.Sequence(), before);
  EXPECT_EQ(desk.TheWavWindow.SelectedWavs.ListIndex(), ListBox::kNoSelection);
}

/// The playlist editor with `songs` selected songs, over a folder of one.
struct SongsAtWork : WholeDesk {
  explicit SongsAtWork(int songs) {
    Place.Write("music/s0.mp3", "");
    Start();
    Choose(Screen.Main(), "mnuPlaylist");
    for (int song = 0; song < songs; ++song)
      TheFrmPlaylist.SelectedMP3s.AddItem(std::to_string(song));
    Settle();
    Chosen.scrollToTop();
  }

  FrmPlaylist& TheFrmPlaylist = Sys.TheWindows.frmPlaylist;
  QListView& Chosen = Find<QListView>(Screen.Playlist(), "SelectedMP3s");
};

TEST(EditorsAtWork, AFingerScrollsTheChosenSongsAndATapSelectsOne) {
  SongsAtWork desk(200);
  SwipeUp(desk.Chosen, 60);
  desk.Settle();
  EXPECT_GT(desk.Chosen.verticalScrollBar()->value(), 0);
  EXPECT_EQ(desk.TheFrmPlaylist.SelectedMP3s.ListIndex(), ListBox::kNoSelection);
  EXPECT_FALSE(desk.TheFrmPlaylist.RemoveKey.Enabled);
  const QScroller& scroller = *QScroller::scroller(&desk.Chosen);
  ASSERT_TRUE(QTest::qWaitFor([&] { return scroller.state() == QScroller::Inactive; }));
  const QPoint there(20, desk.Chosen.viewport()->height() / 2);
  const int row = desk.Chosen.indexAt(there).row();
  Finger(*desk.Chosen.viewport()).Tap(there);
  desk.Settle();
  EXPECT_EQ(desk.TheFrmPlaylist.SelectedMP3s.ListIndex(), row);
  EXPECT_TRUE(desk.TheFrmPlaylist.RemoveKey.Enabled);
}

/// Presses the space bar on Remove, and then wherever the focus has moved.
void RemoveThenSpace(WholeDesk& desk, QWidget& window) {
  desk.PressKey(desk.Find<QPushButton>(window, "RemoveKey"), Qt::Key_Space);
  for (int press = 0; press < 3; ++press) {
    ASSERT_TRUE(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    desk.Settle();
  }
}

TEST(EditorsAtWork, RemoveAndThenTheSpaceBarLeaveTheRestOfTheSequence) {
  MessagesAtWork desk(1);
  desk.Take(5);
  desk.Chosen.setFocus();
  Mouse(*desk.Chosen.viewport()).Click(desk.At(desk.Chosen, 2));
  desk.Settle();
  RemoveThenSpace(desk, desk.Screen.ScheduleEditor());
  EXPECT_EQ(desk.Sequence(), "m0,m1,m3,m4");
  EXPECT_EQ(QApplication::focusWidget(), &desk.Chosen);
  EXPECT_EQ(desk.TheWavWindow.SelectedWavs.Text(), "m3")
      << "what has moved up to the removed place";
  desk.PressKey(desk.Find<QPushButton>(desk.Screen.ScheduleEditor(), "RemAll_Key"), Qt::Key_Space);
  EXPECT_EQ(desk.Sequence(), "");
  EXPECT_EQ(QApplication::focusWidget(), &desk.Chosen);
}

TEST(EditorsAtWork, RemoveStaysAtItsPlaceInTwentyThousandSongs) {
  constexpr int kSongs = 20'000;
  constexpr int kPlace = 15'000;
  SongsAtWork desk(kSongs);
  desk.TheFrmPlaylist.SelectedMP3s.SetListIndex(kPlace);
  desk.Settle();
  desk.PressKey(desk.Find<QPushButton>(desk.Screen.Playlist(), "RemoveKey"), Qt::Key_Space);
  EXPECT_EQ(desk.TheFrmPlaylist.SelectedMP3s.ListCount(), kSongs - 1);
  EXPECT_EQ(QApplication::focusWidget(), &desk.Chosen);
  EXPECT_EQ(desk.Chosen.currentIndex().row(), kPlace);
  const QRect shown = desk.Chosen.visualRect(desk.Chosen.currentIndex());
  EXPECT_TRUE(desk.Chosen.viewport()->rect().contains(shown.center()));
  EXPECT_EQ(desk.TheFrmPlaylist.SelectedMP3s.ListIndex(), ListBox::kNoSelection);
  QTest::keyClick(&desk.Chosen, Qt::Key_Down);
  desk.Settle();
  EXPECT_EQ(desk.TheFrmPlaylist.SelectedMP3s.ListIndex(), kPlace + 1);
  RemoveThenSpace(desk, desk.Screen.Playlist());
  EXPECT_EQ(desk.TheFrmPlaylist.SelectedMP3s.ListCount(), kSongs - 2);
}

TEST(EditorsAtWork, AButtonThatSwitchesItselfOffHandsItsFocusToNoButton) {
  SongsAtWork desk(0);
  desk.Sys.TheWindows.frmMain.cmdStop.Enabled = true;
  desk.Screen.Main().activateWindow();
  desk.Settle();
  desk.PressKey(desk.Find<QPushButton>(desk.Screen.Main(), "cmdStop"), Qt::Key_Space);
  EXPECT_FALSE(desk.Sys.TheWindows.frmMain.cmdStop.Enabled);
  EXPECT_EQ(desk.Screen.Main().focusWidget(), nullptr);
}

}  // namespace
}  // namespace marlex
