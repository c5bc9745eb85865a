#include "desktop/windows/list_binding.h"

#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/mouse.h"

namespace marlex {
namespace {

/// The playlist with `songs` entries "s0", "s1" and so on.
struct Playlist {
  explicit Playlist(int songs) {
    for (int song = 0; song < songs; ++song) List.AddItem("s" + std::to_string(song));
    List.OnMouseDown = [this](MouseButton) { Tell("down"); };
    List.OnMouseMove = [this] { Tell("move"); };
    List.OnMouseUp = [this] { Tell("up"); };
    List.OnDblClick = [this] { Tell("double"); };
    Place.ShowMain();
  }

  void Tell(const std::string& what) {
    Heard += what + " " + std::to_string(List.ListIndex()) + ", ";
  }
  QPoint At(int row) { return View.visualRect(View.model()->index(row, 0)).center(); }
  bool Sees(int row) { return View.viewport()->rect().contains(At(row)); }

  Desk Place;
  ListBox& List = Place.Forms.frmMain.lstPlaylist;
  QListView& View = Place.Find<QListView>("lstPlaylist");
  std::string Heard;
};

TEST(ListBinding, APressSelectsItsEntryFirst) {
  Playlist songs(5);
  Mouse(*songs.View.viewport()).Click(songs.At(2));
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "down 2, up 2, ");
  EXPECT_EQ(songs.View.currentIndex().row(), 2);
}

TEST(ListBinding, AClickOnTheSelectedEntryIsAClickToo) {
  Playlist songs(5);
  songs.List.OnClick = [&] { songs.Tell("click"); };
  Mouse(*songs.View.viewport()).Click(songs.At(2));
  Mouse(*songs.View.viewport()).Click(songs.At(2));
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "click 2, down 2, up 2, click 2, down 2, up 2, ");
}

TEST(ListBinding, ADoubleClickComesAfterItsFirstClick) {
  Playlist songs(5);
  Mouse(*songs.View.viewport()).DoubleClick(songs.At(3));
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "down 3, up 3, double 3, ");
}

TEST(ListBinding, TheSelectionFollowsAFastPointerEntryByEntry) {
  Playlist songs(8);
  Mouse mouse(*songs.View.viewport());
  mouse.Press(songs.At(1));
  mouse.Move(songs.At(4));
  mouse.Move(songs.At(3));
  mouse.Release(songs.At(3));
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "down 1, move 2, move 3, move 4, move 3, up 3, ");
}

TEST(ListBinding, APointerOutsideTheListGoesOnToItsEnds) {
  Playlist songs(4);
  Mouse mouse(*songs.View.viewport());
  mouse.Press(songs.At(1));
  mouse.Move({10, songs.View.height() + 500});
  mouse.Move({10, -500});
  mouse.Release({10, -500});
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "down 1, move 2, move 3, move 2, move 1, move 0, up 0, ");
}

TEST(ListBinding, AHeldPointerBelowTheListScrollsIt) {
  Playlist songs(60);
  Mouse mouse(*songs.View.viewport());
  mouse.Press(songs.At(5));
  mouse.Move({10, songs.View.height() + 20});
  EXPECT_TRUE(QTest::qWaitFor([&] {
    songs.Place.Settle();
    return songs.Sees(30);
  }));
  mouse.Release({10, songs.View.height() + 20});
}

TEST(ListBinding, MovingWithoutAKeyOrWithTheRightOneSelectsNothing) {
  Playlist songs(5);
  Mouse mouse(*songs.View.viewport());
  mouse.Move(songs.At(2));
  mouse.Press(songs.At(3), Qt::RightButton);
  mouse.Move(songs.At(4));
  mouse.Release(songs.At(4), Qt::RightButton);
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "down -1, up -1, ");
}

/// A list in which a click acts, told of as "click 2, ".
struct ActingList : Playlist {
  ActingList() : Playlist(5) {
    List.ClickActs = true;
    List.OnClick = [this] { Tell("click"); };
    List.OnMouseDown = nullptr;
    List.OnMouseMove = nullptr;
    List.OnMouseUp = nullptr;
    List.OnDblClick = nullptr;
  }
};

TEST(ListBinding, WhereAClickActsAHeldButtonDoesNotRunOverTheEntries) {
  ActingList songs;
  Mouse mouse(*songs.View.viewport());
  mouse.Press(songs.At(1));
  mouse.Move(songs.At(4));
  mouse.Release(songs.At(4));
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "click 1, ");
}

TEST(ListBinding, WhereAClickActsTheArrowsOnlyLeadToAnEntryAndEnterOrSpaceClicksIt) {
  ActingList songs;
  Mouse(*songs.View.viewport()).Click(songs.At(1));
  songs.Place.Settle();
  QTest::keyClick(&songs.View, Qt::Key_Down);
  QTest::keyClick(&songs.View, Qt::Key_Down);
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "click 1, ");
  QTest::keyClick(&songs.View, Qt::Key_Return);
  songs.Place.Settle();
  QTest::keyClick(&songs.View, Qt::Key_Space);
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "click 1, click 3, click 3, ");
}

TEST(ListBinding, WhereAClickActsAKeyThatIsHeldClicksOnce) {
  ActingList songs;
  songs.View.setCurrentIndex(songs.View.model()->index(2, 0));
  for (const bool repeated : {false, true, true}) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "", repeated);
    QApplication::sendEvent(&songs.View, &key);
  }
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "click 2, ");
}

TEST(ListBinding, DeleteIsToldAndArrowsMoveTheSelection) {
  Playlist songs(5);
  int code = 0;
  songs.List.OnKeyDown = [&](int key) { code = key; };
  songs.List.SetListIndex(1);
  songs.Place.Settle();
  QTest::keyClick(&songs.View, Qt::Key_Delete);
  QTest::keyClick(&songs.View, Qt::Key_Down);
  songs.Place.Settle();
  EXPECT_EQ(code, kKeyDelete);
  EXPECT_EQ(songs.List.ListIndex(), 2);
}

TEST(ListBinding, EntriesFollowTheControlAndTheListKeepsItsPlace) {
  Playlist songs(60);
  songs.List.SetListIndex(50);
  songs.Place.Settle();
  const int place = songs.View.verticalScrollBar()->value();
  songs.List.SetList(48, "another");
  songs.List.RemoveItem(59);
  songs.Place.Settle();
  EXPECT_EQ(songs.View.model()->rowCount(), 59);
  EXPECT_EQ(songs.View.model()->index(48, 0).data().toString(), "another");
  EXPECT_FALSE(songs.View.currentIndex().isValid());
  EXPECT_EQ(songs.View.verticalScrollBar()->value(), place);
  songs.List.Clear();
  songs.Place.Settle();
  EXPECT_EQ(songs.View.model()->rowCount(), 0);
}

TEST(ListBinding, ASelectionFurtherDownForAnInstantBringsTheComingEntriesIntoView) {
  Playlist songs(60);
  songs.Place.Screen.Main().resize(1000, 700);
  songs.Place.Settle();
  for (int song = 0; song < 30; ++song) {
    songs.List.SetListIndex(song + 10);
    songs.List.SetListIndex(song + 1);
    songs.Place.Settle();
    ASSERT_TRUE(songs.Sees(song + 10)) << "while song " << song + 1 << " plays";
  }
}

TEST(ListBinding, TellsThatItGotTheFocus) {
  Playlist songs(3);
  songs.View.clearFocus();
  songs.Place.Settle();
  songs.List.OnGotFocus = [&] { songs.Tell("focus"); };
  songs.View.setFocus();
  songs.Place.Settle();
  EXPECT_EQ(songs.Heard, "focus -1, ");
}

}  // namespace
}  // namespace marlex
