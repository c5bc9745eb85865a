#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/windows/mouse.h"
#include "desktop/windows/whole_desk.h"

namespace marlex {
namespace {

constexpr int kSongs = 20'000;
constexpr int kMessages = 5'000;
#if defined(__SANITIZE_ADDRESS__)
constexpr qint64 kSlower = 5;  // no operator works with that build
#else
constexpr qint64 kSlower = 1;
#endif
constexpr qint64 kLimitMs = 1000 * kSlower;
constexpr qint64 kFrameMs = 16 * kSlower;

/// A desk over folders as large as they get, which measures how long the operator waits.
struct LargeFolders : WholeDesk {
  LargeFolders(int songs, int messages) {
    for (int song = 0; song < songs; ++song)
      Place.Write("music/" + Name("Song", song, songs) + ".mp3", "");
    for (int message = 0; message < messages; ++message)
      Place.Write("messages/" + Name("message", message, messages) + ".wav", "");
    Start();
  }

  /// Names of some length, not in sorted order.
  static std::string Name(const char* kind, int number, int count) {
    const int mixed = static_cast<int>(number * 7919LL % count);
    return std::string(mixed % 2 == 0 ? "Various artists - " : "various artists - ") + kind + " " +
           std::to_string(mixed);
  }

  /// Expects the result of the operator's action to be on the screen within the limit.
  template <class Action>
  void ExpectSoon(const std::string& name, QWidget& window, Action action) {
    QElapsedTimer clock;
    clock.start();
    action();
    Settle();
    window.grab();
    const qint64 took = clock.elapsed();
    ::testing::Test::RecordProperty(name, static_cast<int>(took));
    EXPECT_LT(took, kLimitMs) << name;
  }

  /// Scrolls a list from end to end and expects half of its paintings to be ready within a frame.
  static void ExpectToScroll(const std::string& name, QListView& list) {
    constexpr int kSteps = 100;
    std::vector<qint64> paintingsMs;
    for (int step = 0; step <= kSteps; ++step) {
      QElapsedTimer clock;
      clock.start();
      list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() * step / kSteps);
      list.viewport()->grab();
      paintingsMs.push_back(clock.elapsed());
    }
    std::sort(paintingsMs.begin(), paintingsMs.end());
    ::testing::Test::RecordProperty(name, static_cast<int>(paintingsMs.back()));
    EXPECT_LT(paintingsMs[kSteps / 2], kFrameMs) << name;
    EXPECT_EQ(list.indexAt({20, list.viewport()->height() - 10}).row(),
              list.model()->rowCount() - 1);
  }
};

TEST(LargeFolders, TwentyThousandSongsComeUpAreTakenMixedSavedAndOpened) {
  LargeFolders desk(kSongs, 0);
  QWidget& window = desk.Screen.Playlist();
  FrmPlaylist& editor = desk.Sys.TheWindows.frmPlaylist;
  const auto isFull = [&](const ListBox& list) { return list.ListCount() == kSongs; };
  desk.ExpectSoon("openEditor", window, [&] { desk.Choose(desk.Screen.Main(), "mnuPlaylist"); });
  ASSERT_TRUE(window.isVisible() && isFull(editor.AvailMP3s));
  desk.ExpectSoon("selectAll", window, [&] { desk.ClickButton(window, "cmdSelectAll"); });
  ASSERT_TRUE(isFull(editor.SelectedMP3s));
  auto& available = desk.Find<QListView>(window, "AvailMP3s");
  desk.ExpectSoon("takeOne", window, [&] {
    Mouse(*available.viewport()).Click(available.visualRect(available.indexAt({20, 20})).center());
  });
  EXPECT_EQ(editor.SelectedMP3s.ListCount(), kSongs + 1);
  auto& selected = desk.Find<QListView>(window, "SelectedMP3s");
  Mouse(*selected.viewport()).Click(selected.viewport()->rect().center());
  desk.Settle();
  desk.ExpectSoon("removeOne", window, [&] { desk.ClickButton(window, "RemoveKey"); });
  ASSERT_TRUE(isFull(editor.SelectedMP3s));
  const std::string first = editor.SelectedMP3s.List(0) + editor.SelectedMP3s.List(1);
  desk.ExpectSoon("shuffle", window, [&] { desk.ClickButton(window, "cmdRandomize"); });
  ASSERT_TRUE(isFull(editor.SelectedMP3s));
  EXPECT_NE(editor.SelectedMP3s.List(0) + editor.SelectedMP3s.List(1), first);
  const std::string mixed = editor.SelectedMP3s.List(kSongs - 1);
  desk.ExpectToScroll("scrollAvailable", available);
  desk.ExpectToScroll("scrollSelected", selected);
  desk.Pc.Dialogs.OpenResults = {desk.Place.Path("All.lst"), desk.Place.Path("All.lst"),
                                 desk.Place.Path("All.lst")};
  desk.ExpectSoon("save", desk.Screen.Main(), [&] { desk.Choose(window, "mnuSave"); });
  ASSERT_FALSE(editor.Loaded());
  desk.Choose(desk.Screen.Main(), "mnuPlaylist");
  desk.ExpectSoon("openFile", window, [&] { desk.Choose(window, "mnuOpen"); });
  ASSERT_TRUE(isFull(editor.SelectedMP3s));
  EXPECT_EQ(editor.SelectedMP3s.List(kSongs - 1), mixed);
  desk.ExpectSoon("removeAll", window, [&] { desk.ClickButton(window, "RemAll_Key"); });
  desk.ExpectSoon("openInMain", desk.Screen.Main(),
                  [&] { desk.Choose(desk.Screen.Main(), "mnuOpen"); });
  EXPECT_TRUE(isFull(desk.Sys.TheWindows.frmMain.lstPlaylist));
}

TEST(LargeFolders, FiveThousandMessagesComeUpAndScroll) {
  LargeFolders desk(0, kMessages);
  QWidget& window = desk.Screen.ScheduleEditor();
  desk.ExpectSoon("openEditor", window, [&] { desk.Choose(desk.Screen.Main(), "mnuSchedule"); });
  ASSERT_TRUE(window.isVisible());
  ASSERT_EQ(desk.Sys.TheWindows.TheWavWindow.AvailWavs.ListCount(), kMessages);
  desk.ExpectToScroll("scrollAvailable", desk.Find<QListView>(window, "AvailWavs"));
}

}  // namespace
}  // namespace marlex
