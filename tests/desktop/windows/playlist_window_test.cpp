#include <gtest/gtest.h>

#include "desktop/windows/mouse.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

/// The playlist editor, open, with three songs to choose from.
struct PlaylistPlace : PaintedWindows {
  PlaylistPlace() {
    TheFrmPlaylist.Load();
    for (const char* song : {"march", "waltz", "polka"}) TheFrmPlaylist.AvailMP3s.AddItem(song);
    TheFrmPlaylist.AvailMP3s.OnClick = [this] {
      TheFrmPlaylist.SelectedMP3s.AddItem(TheFrmPlaylist.AvailMP3s.Text());
    };
    TheFrmPlaylist.frMusicTime.Visible = true;
    TheFrmPlaylist.Show();
    Settle();
  }

  template <class T>
  T& Part(const char* name) {
    auto* found = Screen.Playlist().findChild<T*>(name);
    if (!found) throw RuntimeFailure(std::string("No widget ") + name);
    return *found;
  }
  void ClickSong(const char* list, int row) {
    auto& view = Part<QListView>(list);
    Mouse(*view.viewport()).Click(view.visualRect(view.model()->index(row, 0)).center());
    Settle();
  }
  QStringList Shown(const char* list) {
    QStringList entries;
    const QAbstractItemModel& model = *Part<QListView>(list).model();
    for (int row = 0; row < model.rowCount(); ++row)
      entries << model.index(row, 0).data().toString();
    return entries;
  }

  FrmPlaylist& TheFrmPlaylist = Forms.frmPlaylist;
};

TEST(PlaylistWindow, OneClickOnASongTakesItAndAnotherTakesItAgain) {
  PlaylistPlace windows;
  windows.ClickSong("AvailMP3s", 1);
  windows.ClickSong("AvailMP3s", 0);
  windows.ClickSong("AvailMP3s", 0);
  EXPECT_EQ(windows.Shown("SelectedMP3s"), (QStringList{"waltz", "march", "march"}));
}

TEST(PlaylistWindow, TheNewestSongOfALongListIsInView) {
  PlaylistPlace windows;
  for (int song = 0; song < 60; ++song)
    windows.TheFrmPlaylist.SelectedMP3s.AddItem(std::to_string(song));
  windows.Settle();
  windows.ClickSong("AvailMP3s", 2);
  auto& list = windows.Part<QListView>("SelectedMP3s");
  const QRect newest = list.visualRect(list.model()->index(60, 0));
  EXPECT_TRUE(list.viewport()->rect().contains(newest.center()));
}

TEST(PlaylistWindow, ButtonsChoicesDaysAndMenusReachTheirControls) {
  PlaylistPlace windows;
  std::string clicked;
  windows.TheFrmPlaylist.cmdRandomize.OnClick = [&] { clicked += "randomize "; };
  windows.TheFrmPlaylist.mnuSave.OnClick = [&] { clicked += "save "; };
  for (const char* name : {"cmdRandomize", "optScheduled_1", "chkDays_6"}) {
    Mouse(windows.Part<QAbstractButton>(name)).Click();
    windows.Settle();
  }
  windows.Part<QAction>("mnuSave").trigger();
  windows.Settle();
  EXPECT_EQ(clicked, "randomize save ");
  EXPECT_TRUE(windows.TheFrmPlaylist.optScheduled[FrmPlaylist::kManual].Value());
  EXPECT_FALSE(windows.TheFrmPlaylist.optScheduled[FrmPlaylist::kAutostart].Value());
  EXPECT_EQ(windows.TheFrmPlaylist.chkDays[6].Value, 1);
}

TEST(PlaylistWindow, EachDaysBoxIsUnderItsLetter) {
  PlaylistPlace windows;
  windows.Screen.Playlist().resize(1100, 760);
  windows.Settle();
  auto& header = windows.Part<QLabel>("Label5");
  QWidget& window = windows.Screen.Playlist();
  for (int day = 0; day < kWeekdays; ++day) {
    const auto& box = windows.Part<QCheckBox>(("chkDays_" + std::to_string(day)).c_str());
    const int letter = header.mapTo(&window, QPoint(header.width() * (2 * day + 1) / 14, 0)).x();
    EXPECT_NEAR(box.mapTo(&window, box.rect().center()).x(), letter, 3) << day;
  }
}

TEST(PlaylistWindow, TheListsTakeTheRoomOfAnEnlargedWindow) {
  PlaylistPlace windows;
  QWidget& window = windows.Screen.Playlist();
  const QSize small = window.size();
  const QSize list = windows.Part<QListView>("SelectedMP3s").size();
  const int frame = windows.Part<QWidget>("frMusicTime").height();
  window.resize(small + QSize(200, 150));
  windows.Settle();
  EXPECT_EQ(windows.Part<QListView>("SelectedMP3s").height(), list.height() + 150);
  EXPECT_GT(windows.Part<QListView>("SelectedMP3s").width(), list.width() + 50);
  EXPECT_EQ(windows.Part<QWidget>("frMusicTime").height(), frame);
}

TEST(PlaylistWindow, NothingMovesWhenTheTimesComeAndGo) {
  PlaylistPlace windows;
  const QRect list = windows.Part<QListView>("SelectedMP3s").geometry();
  const QRect start = windows.Part<QWidget>("Frame1").geometry();
  const QSize size = windows.Screen.Playlist().size();
  windows.TheFrmPlaylist.frMusicTime.Visible = false;
  windows.Settle();
  EXPECT_EQ(windows.Part<QListView>("SelectedMP3s").geometry(), list);
  EXPECT_EQ(windows.Part<QWidget>("Frame1").geometry(), start);
  EXPECT_EQ(windows.Screen.Playlist().size(), size);
}

TEST(PlaylistWindow, ItOpensBesideTheMainWindowAndBlocksNothing) {
  PlaylistPlace windows;
  windows.ShowMain();
  EXPECT_EQ(windows.Screen.Playlist().windowModality(), Qt::NonModal);
  int clicks = 0;
  windows.Forms.frmMain.cmdPlay.OnClick = [&] { ++clicks; };
  Mouse(windows.Find<QPushButton>("cmdPlay")).Click();
  windows.Settle();
  EXPECT_EQ(clicks, 1);
  windows.Screen.Playlist().close();
  windows.Settle();
  EXPECT_FALSE(windows.TheFrmPlaylist.Loaded());
  EXPECT_FALSE(windows.Screen.Playlist().isVisible());
  EXPECT_TRUE(windows.Screen.Main().isVisible());
}

TEST(PlaylistWindow, TheTabGoesFromTheSongsToTheDays) {
  PlaylistPlace windows;
  const QStringList songs{"AvailMP3s",  "cmdSelectAll", "SelectedMP3s", "RemoveKey",
                          "RemAll_Key", "cmdRandomize", "PrevKey"};
  const QStringList times{"cmbStartHours", "cmbStartMinutes", "cmbStopHours", "cmbStopMinutes"};
  EXPECT_EQ(TabOrder(windows.Part<QWidget>("AvailMP3s")),
            songs + Numbered("optScheduled", 3) + times + Numbered("chkDays", kWeekdays));
}

TEST(PlaylistWindow, TwentyThousandSongsComeUpAndScrollWithinASecond) {
  PaintedWindows windows;
  FrmPlaylist& editor = windows.Forms.frmPlaylist;
  editor.Load();
  for (int song = 0; song < 20'000; ++song) {
    editor.AvailMP3s.AddItem("Song number " + std::to_string(song));
    editor.SelectedMP3s.AddItem("Song number " + std::to_string(song));
  }
  QElapsedTimer clock;
  clock.start();
  editor.Show();
  windows.Settle();
  windows.Screen.Playlist().grab();
  EXPECT_LT(clock.restart(), 1000);
  auto& list = *windows.Screen.Playlist().findChild<QListView*>("AvailMP3s");
  for (int step = 0; step <= 20; ++step) {
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() * step / 20);
    list.viewport()->grab();
  }
  EXPECT_LT(clock.elapsed(), 1000);
  EXPECT_EQ(list.indexAt({20, list.viewport()->height() - 10}).row(), 19'999);
}

}  // namespace
}  // namespace marlex
