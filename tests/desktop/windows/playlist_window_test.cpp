#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/mouse.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

/// The playlist editor, open, with three songs to choose from.
struct PlaylistPlace : Desk {
  PlaylistPlace() {
    Editor.Load();
    for (const char* song : {"march", "waltz", "polka"}) Editor.AvailMP3s.AddItem(song);
    Editor.AvailMP3s.OnClick = [this] { Editor.SelectedMP3s.AddItem(Editor.AvailMP3s.Text()); };
    Editor.frMusicTime.Visible = true;
    Editor.Show();
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

  FrmPlaylist& Editor = Forms.frmPlaylist;
};

TEST(PlaylistWindow, OneClickOnASongTakesItAndAnotherTakesItAgain) {
  PlaylistPlace desk;
  desk.ClickSong("AvailMP3s", 1);
  desk.ClickSong("AvailMP3s", 0);
  desk.ClickSong("AvailMP3s", 0);
  EXPECT_EQ(desk.Shown("SelectedMP3s"), (QStringList{"waltz", "march", "march"}));
}

TEST(PlaylistWindow, TheNewestSongOfALongListIsInView) {
  PlaylistPlace desk;
  for (int song = 0; song < 60; ++song) desk.Editor.SelectedMP3s.AddItem(std::to_string(song));
  desk.Settle();
  desk.ClickSong("AvailMP3s", 2);
  auto& list = desk.Part<QListView>("SelectedMP3s");
  const QRect newest = list.visualRect(list.model()->index(60, 0));
  EXPECT_TRUE(list.viewport()->rect().contains(newest.center()));
}

TEST(PlaylistWindow, KeysChoicesDaysAndMenusReachTheirControls) {
  PlaylistPlace desk;
  std::string clicked;
  desk.Editor.cmdRandomize.OnClick = [&] { clicked += "randomize "; };
  desk.Editor.mnuSave.OnClick = [&] { clicked += "save "; };
  for (const char* name : {"cmdRandomize", "optScheduled_1", "chkDays_6"}) {
    Mouse(desk.Part<QAbstractButton>(name)).Click();
    desk.Settle();
  }
  desk.Part<QAction>("mnuSave").trigger();
  desk.Settle();
  EXPECT_EQ(clicked, "randomize save ");
  EXPECT_TRUE(desk.Editor.optScheduled[FrmPlaylist::kManual].Value());
  EXPECT_FALSE(desk.Editor.optScheduled[FrmPlaylist::kAutostart].Value());
  EXPECT_EQ(desk.Editor.chkDays[6].Value, 1);
}

TEST(PlaylistWindow, EachDaysBoxStandsUnderItsLetter) {
  PlaylistPlace desk;
  desk.Screen.Playlist().resize(1100, 760);
  desk.Settle();
  auto& header = desk.Part<QLabel>("Label5");
  QWidget& window = desk.Screen.Playlist();
  for (int day = 0; day < kWeekdays; ++day) {
    const auto& box = desk.Part<QCheckBox>(("chkDays_" + std::to_string(day)).c_str());
    const int letter = header.mapTo(&window, QPoint(header.width() * (2 * day + 1) / 14, 0)).x();
    EXPECT_NEAR(box.mapTo(&window, box.rect().center()).x(), letter, 3) << day;
  }
}

TEST(PlaylistWindow, TheListsTakeTheRoomOfAnEnlargedWindow) {
  PlaylistPlace desk;
  QWidget& window = desk.Screen.Playlist();
  const QSize small = window.size();
  const QSize list = desk.Part<QListView>("SelectedMP3s").size();
  const int frame = desk.Part<QWidget>("frMusicTime").height();
  window.resize(small + QSize(200, 150));
  desk.Settle();
  EXPECT_EQ(desk.Part<QListView>("SelectedMP3s").height(), list.height() + 150);
  EXPECT_GT(desk.Part<QListView>("SelectedMP3s").width(), list.width() + 50);
  EXPECT_EQ(desk.Part<QWidget>("frMusicTime").height(), frame);
}

TEST(PlaylistWindow, NothingMovesWhenTheTimesComeAndGo) {
  PlaylistPlace desk;
  const QRect list = desk.Part<QListView>("SelectedMP3s").geometry();
  const QRect start = desk.Part<QWidget>("Frame1").geometry();
  const QSize size = desk.Screen.Playlist().size();
  desk.Editor.frMusicTime.Visible = false;
  desk.Settle();
  EXPECT_EQ(desk.Part<QListView>("SelectedMP3s").geometry(), list);
  EXPECT_EQ(desk.Part<QWidget>("Frame1").geometry(), start);
  EXPECT_EQ(desk.Screen.Playlist().size(), size);
}

TEST(PlaylistWindow, ItStandsBesideTheMainWindowAndBlocksNothing) {
  PlaylistPlace desk;
  desk.ShowMain();
  EXPECT_EQ(desk.Screen.Playlist().windowModality(), Qt::NonModal);
  int clicks = 0;
  desk.Forms.frmMain.cmdPlay.OnClick = [&] { ++clicks; };
  Mouse(desk.Find<QPushButton>("cmdPlay")).Click();
  desk.Settle();
  EXPECT_EQ(clicks, 1);
  desk.Screen.Playlist().close();
  desk.Settle();
  EXPECT_FALSE(desk.Editor.Loaded());
  EXPECT_FALSE(desk.Screen.Playlist().isVisible());
  EXPECT_TRUE(desk.Screen.Main().isVisible());
}

TEST(PlaylistWindow, TheTabGoesFromTheSongsToTheDays) {
  PlaylistPlace desk;
  const QStringList songs{"AvailMP3s",  "cmdSelectAll", "SelectedMP3s", "RemoveKey",
                          "RemAll_Key", "cmdRandomize", "PrevKey"};
  const QStringList times{"cmbStartHours", "cmbStartMinutes", "cmbStopHours", "cmbStopMinutes"};
  EXPECT_EQ(TabOrder(desk.Part<QWidget>("AvailMP3s")),
            songs + Numbered("optScheduled", 3) + times + Numbered("chkDays", kWeekdays));
}

TEST(PlaylistWindow, TwentyThousandSongsComeUpAndScrollWithinASecond) {
  Desk desk;
  FrmPlaylist& editor = desk.Forms.frmPlaylist;
  editor.Load();
  for (int song = 0; song < 20'000; ++song) {
    editor.AvailMP3s.AddItem("Song number " + std::to_string(song));
    editor.SelectedMP3s.AddItem("Song number " + std::to_string(song));
  }
  QElapsedTimer clock;
  clock.start();
  editor.Show();
  desk.Settle();
  desk.Screen.Playlist().grab();
  EXPECT_LT(clock.restart(), 1000);
  auto& list = *desk.Screen.Playlist().findChild<QListView*>("AvailMP3s");
  for (int step = 0; step <= 20; ++step) {
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() * step / 20);
    list.viewport()->grab();
  }
  EXPECT_LT(clock.elapsed(), 1000);
  EXPECT_EQ(list.indexAt({20, list.viewport()->height() - 10}).row(), 19'999);
}

}  // namespace
}  // namespace marlex
