#include "desktop/windows/list_binding.h"

#include <gtest/gtest.h>

#include "desktop/windows/finger.h"
#include "desktop/windows/mouse.h"
#include "desktop/windows/painted_windows.h"

namespace marlex {
namespace {

/// The playlist with `songs` entries "s0", "s1" and so on.
struct Playlist {
  explicit Playlist(int songs) {
    for (int song = 0; song < songs; ++song) List.AddItem("s" + std::to_string(song));
    List.OnMouseDown = [this](MouseButton) { Note("down"); };
    List.OnMouseMove = [this] { Note("move"); };
    List.OnMouseUp = [this] { Note("up"); };
    List.OnDblClick = [this] { Note("double"); };
    Shown.ShowMain();
  }

  void Note(const std::string& what) {
    Heard += what + " " + std::to_string(List.ListIndex()) + ", ";
  }
  QPoint At(int row) { return View.visualRect(View.model()->index(row, 0)).center(); }
  bool Sees(int row) { return View.viewport()->rect().contains(At(row)); }

  PaintedWindows Shown;
  ListBox& List = Shown.Forms.frmMain.lstPlaylist;
  QListView& View = Shown.Find<QListView>("lstPlaylist");
  std::string Heard;
};

TEST(ListBinding, APressSelectsItsEntryFirst) {
  Playlist songs(5);
  Mouse(*songs.View.viewport()).Click(songs.At(2));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "down 2, up 2, ");
  EXPECT_EQ(songs.View.currentIndex().row(), 2);
}

TEST(ListBinding, AClickOnTheSelectedEntryIsAClickToo) {
  Playlist songs(5);
  songs.List.OnClick = [&] { songs.Note("click"); };
  Mouse(*songs.View.viewport()).Click(songs.At(2));
  Mouse(*songs.View.viewport()).Click(songs.At(2));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 2, down 2, up 2, click 2, down 2, up 2, ");
}

TEST(ListBinding, ADoubleClickComesAfterItsFirstClick) {
  Playlist songs(5);
  Mouse(*songs.View.viewport()).DoubleClick(songs.At(3));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "down 3, up 3, double 3, ");
}

TEST(ListBinding, TheSelectionFollowsAFastPointerEntryByEntry) {
  Playlist songs(8);
  Mouse mouse(*songs.View.viewport());
  mouse.Press(songs.At(1));
  mouse.Move(songs.At(4));
  mouse.Move(songs.At(3));
  mouse.Release(songs.At(3));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "down 1, move 2, move 3, move 4, move 3, up 3, ");
}

TEST(ListBinding, APointerOutsideTheListGoesOnToItsEnds) {
  Playlist songs(4);
  Mouse mouse(*songs.View.viewport());
  mouse.Press(songs.At(1));
  mouse.Move({10, songs.View.height() + 500});
  mouse.Move({10, -500});
  mouse.Release({10, -500});
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "down 1, move 2, move 3, move 2, move 1, move 0, up 0, ");
}

TEST(ListBinding, AHeldPointerBelowTheListScrollsIt) {
  Playlist songs(60);
  Mouse mouse(*songs.View.viewport());
  mouse.Press(songs.At(5));
  mouse.Move({10, songs.View.height() + 20});
  EXPECT_TRUE(QTest::qWaitFor([&] {
    songs.Shown.Settle();
    return songs.Sees(30);
  }));
  mouse.Release({10, songs.View.height() + 20});
}

TEST(ListBinding, MovingWithoutAButtonOrWithTheRightOneSelectsNothing) {
  Playlist songs(5);
  Mouse mouse(*songs.View.viewport());
  mouse.Move(songs.At(2));
  mouse.Press(songs.At(3), Qt::RightButton);
  mouse.Move(songs.At(4));
  mouse.Release(songs.At(4), Qt::RightButton);
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "down -1, up -1, ");
}

/// A list in which a click acts, recorded as "click 2, ".
struct ActingList : Playlist {
  explicit ActingList(int songs = 5) : Playlist(songs) {
    List.ClickActs = true;
    List.OnClick = [this] { Note("click"); };
    List.OnMouseDown = nullptr;
    List.OnMouseMove = nullptr;
    List.OnMouseUp = nullptr;
    List.OnDblClick = nullptr;
  }

  /// Moves a finger that is down on the list, as far and as fast as a hand does.
  void Drag(Finger& finger, QPoint from, QPoint to) {
    constexpr int kSteps = 8;
    for (int step = 1; step <= kSteps; ++step) {
      QTest::qWait(5);
      finger.Move(from + (to - from) * step / kSteps);
    }
  }
  int Scrolled() { return View.verticalScrollBar()->value(); }
  QWidget& Area() { return *View.viewport(); }
};

TEST(ListBinding, WhereAClickActsAHeldButtonDoesNotRunOverTheEntries) {
  ActingList songs;
  Mouse mouse(*songs.View.viewport());
  mouse.Press(songs.At(1));
  mouse.Move(songs.At(4));
  mouse.Release(songs.At(4));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 1, ");
}

TEST(ListBinding, WhereAClickActsTheArrowsOnlyLeadAndEnterOrSpaceClicks) {
  ActingList songs;
  Mouse(*songs.View.viewport()).Click(songs.At(1));
  songs.Shown.Settle();
  QTest::keyClick(&songs.View, Qt::Key_Down);
  QTest::keyClick(&songs.View, Qt::Key_Down);
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 1, ");
  QTest::keyClick(&songs.View, Qt::Key_Return);
  songs.Shown.Settle();
  QTest::keyClick(&songs.View, Qt::Key_Space);
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 1, click 3, click 3, ");
}

TEST(ListBinding, WhereAClickActsAKeyThatIsHeldClicksOnce) {
  ActingList songs;
  songs.View.setCurrentIndex(songs.View.model()->index(2, 0));
  for (const bool repeated : {false, true, true}) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "", repeated);
    QApplication::sendEvent(&songs.View, &key);
  }
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 2, ");
}

TEST(ListBinding, WhereAClickActsTwoQuickClicksActTwiceAndThreeThrice) {
  ActingList songs;
  QWindow& window = *songs.View.window()->windowHandle();
  const QPoint there = songs.View.viewport()->mapTo(songs.View.window(), songs.At(2));
  QTest::mouseDClick(&window, Qt::LeftButton, {}, there);
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 2, click 2, ");
  for (int click = 0; click < 3; ++click) Mouse(songs.Area()).DoubleClick(songs.At(4));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard.substr(18), "click 4, click 4, click 4, click 4, click 4, click 4, ");
}

TEST(ListBinding, WhereAClickActsAFingerClicksAsItIsLifted) {
  ActingList songs;
  Finger finger(songs.Area());
  finger.Press(songs.At(2));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "");
  finger.Move(songs.At(2) + QPoint(3, -3));
  finger.Release(songs.At(2) + QPoint(3, -3));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 2, ");
}

TEST(ListBinding, WhereAClickActsTwoQuickTapsActTwice) {
  ActingList songs;
  Finger finger(songs.Area());
  finger.Tap(songs.At(3));
  finger.Tap(songs.At(3));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 3, click 3, ");
}

TEST(ListBinding, WhereAClickActsASwipeScrollsWithTheFingerAndClicksNothing) {
  ActingList songs(200);
  Finger finger(songs.Area());
  const QPoint low = songs.At(5);
  finger.Press(low);
  songs.Drag(finger, low, low - QPoint(0, 120));
  EXPECT_TRUE(QTest::qWaitFor([&] { return songs.View.indexAt(low - QPoint(0, 120)).row() == 5; }))
      << "the entry stays under the finger";
  songs.Drag(finger, low - QPoint(0, 120), low - QPoint(0, 40));
  EXPECT_TRUE(QTest::qWaitFor([&] { return songs.View.indexAt(low - QPoint(0, 40)).row() == 5; }));
  finger.Release(low - QPoint(0, 40));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "");
}

TEST(ListBinding, WhereAClickActsASwipeOfAListThatIsAllInViewClicksNothing) {
  ActingList songs;
  Finger finger(songs.Area());
  finger.Press(songs.At(1));
  songs.Drag(finger, songs.At(1), songs.At(3));
  finger.Release(songs.At(3));
  finger.Press(songs.At(1));
  songs.Drag(finger, songs.At(1), songs.At(1) + QPoint(60, 0));
  songs.Drag(finger, songs.At(1) + QPoint(60, 0), songs.At(1));
  finger.Release(songs.At(1));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "");
}

TEST(ListBinding, AFlickedListRunsOnAndATouchOnlyStopsIt) {
  ActingList songs(2000);
  Finger finger(songs.Area());
  const QPoint low = songs.At(8);
  finger.Press(low);
  songs.Drag(finger, low, low - QPoint(0, 200));
  finger.Release(low - QPoint(0, 200));
  const int released = songs.Scrolled();
  ASSERT_TRUE(QTest::qWaitFor([&] { return songs.Scrolled() > released + 100; }));
  finger.Press(low);
  const int stopped = songs.Scrolled();
  QTest::qWait(100);
  EXPECT_EQ(songs.Scrolled(), stopped);
  finger.Release(low);
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "");
  finger.Tap(low);
  songs.Shown.Settle();
  const int under = songs.View.indexAt(low).row();
  EXPECT_GT(under, 8);
  EXPECT_EQ(songs.Heard, "click " + std::to_string(under) + ", ");
}

TEST(ListBinding, WhereAClickActsATouchThatIsCancelledClicksNothing) {
  ActingList songs(200);
  Finger finger(songs.Area());
  finger.Press(songs.At(2));
  Finger::Cancel(*songs.View.window());
  finger.Release(songs.At(2));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "");
  finger.Tap(songs.At(3));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 3, ");
}

TEST(ListBinding, AnEntryFoundByTheArrowsIsKeptWhenTheFocusReturns) {
  ActingList songs(200);
  Mouse(songs.Area()).Click(songs.At(1));
  songs.Shown.Settle();
  for (int step = 0; step < 40; ++step) QTest::keyClick(&songs.View, Qt::Key_Down);
  songs.Shown.Settle();
  const int scrolled = songs.Scrolled();
  EXPECT_GT(scrolled, 0);
  songs.View.clearFocus();
  songs.View.setFocus();
  songs.List.ToolTipText = "another";
  songs.Shown.Settle();
  EXPECT_EQ(songs.View.currentIndex().row(), 41);
  EXPECT_EQ(songs.Scrolled(), scrolled);
  QTest::keyClick(&songs.View, Qt::Key_Return);
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 1, click 41, ");
}

TEST(ListBinding, AClickOnTheOldEntryLeadsBackToIt) {
  ActingList songs;
  Mouse(songs.Area()).Click(songs.At(1));
  QTest::keyClick(&songs.View, Qt::Key_Down);
  songs.Shown.Settle();
  QTest::keyClick(&songs.View, Qt::Key_Down);
  songs.Shown.Settle();
  Mouse(songs.Area()).Click(songs.At(1));
  songs.Shown.Settle();
  EXPECT_EQ(songs.View.currentIndex().row(), 1);
  EXPECT_EQ(songs.Heard, "click 1, click 1, ");
}

TEST(ListBinding, TheSystemLeadsOnFromWhereTheArrowsHaveLed) {
  ActingList songs;
  songs.List.SetListIndex(1);
  songs.Shown.Settle();
  QTest::keyClick(&songs.View, Qt::Key_Down);
  songs.Shown.Settle();
  songs.List.SetListIndex(4);
  songs.Shown.Settle();
  EXPECT_EQ(songs.View.currentIndex().row(), 4);
  songs.List.SetListIndex(ListBox::kNoSelection);
  songs.Shown.Settle();
  EXPECT_FALSE(songs.View.currentIndex().isValid());
}

TEST(ListBinding, DeleteIsPassedOnAndArrowsMoveTheSelection) {
  Playlist songs(5);
  int code = 0;
  songs.List.OnKeyDown = [&](int key) { code = key; };
  songs.List.SetListIndex(1);
  songs.Shown.Settle();
  QTest::keyClick(&songs.View, Qt::Key_Delete);
  QTest::keyClick(&songs.View, Qt::Key_Down);
  songs.Shown.Settle();
  EXPECT_EQ(code, kKeyDelete);
  EXPECT_EQ(songs.List.ListIndex(), 2);
}

TEST(ListBinding, EntriesFollowTheControlAndTheListKeepsItsPlace) {
  Playlist songs(60);
  songs.List.SetListIndex(50);
  songs.Shown.Settle();
  const int place = songs.View.verticalScrollBar()->value();
  songs.List.SetList(48, "another");
  songs.List.RemoveItem(59);
  songs.Shown.Settle();
  EXPECT_EQ(songs.View.model()->rowCount(), 59);
  EXPECT_EQ(songs.View.model()->index(48, 0).data().toString(), "another");
  EXPECT_FALSE(songs.View.selectionModel()->hasSelection());
  EXPECT_EQ(songs.View.verticalScrollBar()->value(), place);
  songs.List.Clear();
  songs.Shown.Settle();
  EXPECT_EQ(songs.View.model()->rowCount(), 0);
}

TEST(ListBinding, AnInstantsSelectionFurtherDownShowsTheComingEntries) {
  Playlist songs(60);
  songs.Shown.Screen.Main().resize(1000, 700);
  songs.Shown.Settle();
  for (int song = 0; song < 30; ++song) {
    songs.List.SetListIndex(song + 10);
    songs.List.SetListIndex(song + 1);
    songs.Shown.Settle();
    ASSERT_TRUE(songs.Sees(song + 10)) << "while song " << song + 1 << " plays";
  }
}

TEST(ListBinding, ReportsThatItGotTheFocus) {
  Playlist songs(3);
  songs.View.clearFocus();
  songs.Shown.Settle();
  songs.List.OnGotFocus = [&] { songs.Note("focus"); };
  songs.View.setFocus();
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "focus -1, ");
}

TEST(ListBinding, ABlankInATypedSearchBelongsToTheSearchAndClicksNothing) {
  ActingList songs;
  songs.List.AddItem("fire");
  songs.List.AddItem("fire alarm");
  songs.List.AddItem("fire drill");
  songs.Shown.Settle();
  songs.View.setFocus();
  QTest::keyClicks(&songs.View, "fire d");
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "");
  EXPECT_EQ(songs.View.currentIndex().row(), 7);
  QTest::qWait(2 * QApplication::keyboardInputInterval());
  QTest::keyClick(&songs.View, Qt::Key_Space);
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "click 7, ") << "the search is over";
}

TEST(ListBinding, ASelectionThatHoldsCannotBeHidden) {
  Playlist songs(5);
  Mouse(*songs.View.viewport()).Click(songs.At(2));
  songs.Shown.Settle();
  songs.View.setFocus();
  QTest::keyClick(&songs.View, Qt::Key_Space, Qt::ControlModifier);
  songs.Shown.Settle();
  EXPECT_EQ(songs.List.ListIndex(), 2);
  EXPECT_TRUE(songs.View.selectionModel()->isSelected(songs.View.model()->index(2, 0)));
}

TEST(ListBinding, TheArrowsGoOnFromWhereAnEntryWasRemoved) {
  for (const int count : {60, 20'000}) {
    Playlist songs(count);
    const int place = count * 3 / 4;
    songs.List.SetListIndex(place);
    songs.Shown.Settle();
    songs.View.setFocus();
    songs.List.RemoveItem(place);
    songs.Shown.Settle();
    EXPECT_EQ(songs.View.currentIndex().row(), place);
    EXPECT_TRUE(songs.Sees(place));
    EXPECT_FALSE(songs.View.selectionModel()->hasSelection());
    songs.List.ToolTipText = "painted again";
    songs.Shown.Settle();
    EXPECT_EQ(songs.View.currentIndex().row(), place);
    QTest::keyClick(&songs.View, Qt::Key_Up);
    songs.Shown.Settle();
    EXPECT_EQ(songs.List.ListIndex(), place - 1);
  }
}

TEST(ListBinding, WhereTheLastEntryIsRemovedTheArrowsGoOnFromTheOneBeforeIt) {
  Playlist songs(3);
  songs.List.SetListIndex(2);
  songs.Shown.Settle();
  songs.View.setFocus();
  songs.List.RemoveItem(2);
  songs.Shown.Settle();
  EXPECT_EQ(songs.View.currentIndex().row(), 1);
  QTest::keyClick(&songs.View, Qt::Key_Space);
  songs.Shown.Settle();
  EXPECT_EQ(songs.List.ListIndex(), 1);
}

TEST(ListBinding, AListThatIsFilledAgainBeginsAtItsTop) {
  Playlist songs(60);
  songs.List.SetListIndex(40);
  songs.Shown.Settle();
  songs.List.RemoveItem(40);
  songs.Shown.Settle();
  songs.List.Clear();
  for (int song = 0; song < 60; ++song) songs.List.AddItem("t" + std::to_string(song));
  songs.Shown.Settle();
  EXPECT_FALSE(songs.View.currentIndex().isValid());
}

TEST(ListBinding, TwoQuickTapsAreADoubleClickWhereAClickOnlySelects) {
  Playlist songs(60);
  Finger finger(*songs.View.viewport());
  finger.Tap(songs.At(8));  // so that no earlier tap, of any test, makes the next one a double tap
  songs.Shown.Settle();
  songs.Heard.clear();
  finger.Tap(songs.At(3));
  finger.Tap(songs.At(3));
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "down 3, up 3, double 3, ");
}

TEST(ListBinding, TwoQuickSwipesScrollAndPlayNothing) {
  Playlist songs(200);
  Finger finger(*songs.View.viewport());
  const QPoint low = songs.At(5);
  for (int swipe = 0; swipe < 2; ++swipe) {
    finger.Press(low);
    for (int step = 1; step <= 4; ++step) {
      QTest::qWait(5);
      finger.Move(low - QPoint(0, 20 * step));
    }
    finger.Release(low - QPoint(0, 80));
  }
  songs.Shown.Settle();
  EXPECT_EQ(songs.Heard, "");
  EXPECT_GT(songs.View.verticalScrollBar()->value(), 0);
}

}  // namespace
}  // namespace marlex
