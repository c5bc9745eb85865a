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
    for (int message = 0; message < messages; ++message)
      Editor.SelectedWavs.AddItem("m" + std::to_string(message));
    Settle();
    Chosen.scrollToTop();
  }
  static QPoint At(QListView& view, int row) {
    return view.visualRect(view.model()->index(row, 0)).center();
  }
  std::string Sequence() { return Sys.Selected.BuildMessagesText(); }

  WavWindow& Editor = Sys.TheWindows.TheWavWindow;
  QListView& Available = Find<QListView>(Screen.ScheduleEditor(), "AvailWavs");
  QListView& Chosen = Find<QListView>(Screen.ScheduleEditor(), "SelectedWavs");
};

/// All but one of the messages "m0" to "m<count - 1>" in their order, and that one last.
std::string WithLast(int last, int count) {
  std::string text;
  for (int message = 0; message < count; ++message) {
    if (message != last) text += "m" + std::to_string(message) + ",";
  }
  return text + "m" + std::to_string(last);
}

TEST(EditorsAtWork, TwoQuickClicksOnAMessageAddItTwice) {
  MessagesAtWork desk(3);
  desk.Pc.Disk.AddWav(desk.Messages() + "m1.wav", 1500);
  QWindow& window = *desk.Screen.ScheduleEditor().windowHandle();
  const QPoint there =
      desk.Available.viewport()->mapTo(&desk.Screen.ScheduleEditor(), desk.At(desk.Available, 1));
  QTest::mouseDClick(&window, Qt::LeftButton, {}, there);
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), "m1,m1");
  EXPECT_EQ(desk.Editor.lblTotalTime.Caption.Get(), "3");
}

/// A call can be made at any moment.
TEST(EditorsAtWork, TheMainWindowIsFreeUnderTheEditorOfMessages) {
  MessagesAtWork desk(1);
  QWidget& main = desk.Screen.Main();
  auto& key = desk.Find<QPushButton>(main, "cmdCall2");
  const QPoint there = key.mapTo(&main, key.rect().center());
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

TEST(EditorsAtWork, AFingerDragsAMessagePastItsNeighboursOneByOne) {
  MessagesAtWork desk(1);
  desk.Take(5);
  Finger finger(*desk.Chosen.viewport());
  finger.Press(desk.At(desk.Chosen, 0));
  finger.Move(desk.At(desk.Chosen, 3));
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), "m1,m2,m3,m0,m4");
  finger.Move(desk.At(desk.Chosen, 1));
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), "m1,m0,m2,m3,m4");
  finger.Release(desk.At(desk.Chosen, 1));
  finger.Press(desk.At(desk.Chosen, 4));
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
  finger.Press(desk.At(desk.Chosen, 2));
  finger.Move(below);
  ASSERT_TRUE(QTest::qWaitFor([&] {
    desk.Settle();
    const int selected = desk.Editor.SelectedWavs.ListIndex();
    EXPECT_TRUE(isInView(selected)) << selected;
    return selected == kMessages - 1;
  }));
  EXPECT_EQ(desk.Sequence(), WithLast(2, kMessages));
  finger.Release(below);
  desk.Settle();
  EXPECT_EQ(desk.Sequence(), WithLast(2, kMessages));
  EXPECT_EQ(desk.Editor.SelectedWavs.Text(), "m2");
}

}  // namespace
}  // namespace marlex
