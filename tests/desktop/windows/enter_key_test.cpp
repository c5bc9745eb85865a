// The enter key on the table and the lists of the whole system does what a double-click does there.

#include <gtest/gtest.h>

#include "desktop/windows/shop_desk.h"

namespace marlex {
namespace {

/// A desk whose table has three rows in conflict, and a fourth that is in none.
struct EnterKeyDesk : WholeDesk {
  EnterKeyDesk() {
    for (const char* name : {"a", "b", "c"}) WriteSequence(name, "8");
    WriteSequence("late", "20");
    Profiles.WriteStrings({{"Current sequence list", "Sequence list", "a.sch|b.sch|c.sch|late.sch"},
                           {"Current sequence list", "Sequence path", Place.Path("")}},
                          Place.Path("Tolvo.ini"));
    Start();
  }

  void WriteSequence(const std::string& name, const std::string& hour) {
    Place.Write(name + ".sch", "[Schedule]\r\nMessage(s)=gong\r\nHour(s)=" + hour +
                                   "\r\nMinute(s)=00\r\nWeekday(s)=1234567\r\nTimer=Exact\r\n");
  }

  /// The arrow keys start at the cell that the system has left current.
  void GoTo(int row, int column) {
    for (int step = 0; step < 4; ++step) PressKey(View, Qt::Key_Up);
    for (int step = 1; step < row; ++step) PressKey(View, Qt::Key_Down);
    PressKey(View, Qt::Key_Home);
    if (column > 0) PressKey(View, Qt::Key_End);
  }

  void Enter(bool repeated = false) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", repeated);
    QApplication::sendEvent(&View, &key);
    Settle();
  }

  /// The rows in the window from top to bottom: the red ones and those in no conflict.
  std::string Rows() {
    std::string rows;
    for (int row = 1; row < Cells.Rows(); ++row) {
      if (View.isRowHidden(row - 1)) continue;
      rows += std::to_string(row) + (Cells.BackColorAt(row, kTimeColumn) == kRed ? "! " : " ");
    }
    return rows;
  }

  Grid& Cells = Sys.TheWindows.frmMain.grdSchedule;
  QTableView& View = Find<QTableView>(Screen.Main(), "grdSchedule");
};

TEST(EnterKey, TakesARedRowOfTheTableOutWhicheverOfItsCellsIsTheCurrentOne) {
  EnterKeyDesk desk;
  ASSERT_EQ(desk.Rows(), "1! 2! 3! 4 ");
  desk.GoTo(2, kMessagesColumn);
  ASSERT_EQ(desk.View.currentIndex().column(), kMessagesColumn);
  desk.Enter();
  EXPECT_EQ(desk.Rows(), "1! 3! 4 ");
  desk.GoTo(1, kTimeColumn);
  desk.PressKey(desk.View, Qt::Key_Enter);
  EXPECT_EQ(desk.Rows(), "3 4 ");
  EXPECT_FALSE(desk.Sys.TheWindows.frmMain.lblConflict.Visible);
}

TEST(EnterKey, LeavesARowOfTheTableThatIsInNoConflict) {
  EnterKeyDesk desk;
  desk.GoTo(4, kTimeColumn);
  ASSERT_EQ(desk.Cells.Row(), 4);
  desk.Enter();
  EXPECT_EQ(desk.Rows(), "1! 2! 3! 4 ");
}

TEST(EnterKey, TakesOneRowOutHoweverLongItIsHeld) {
  EnterKeyDesk desk;
  desk.GoTo(1, kTimeColumn);
  desk.Enter();
  for (int repeat = 0; repeat < 5; ++repeat) desk.Enter(true);
  EXPECT_EQ(desk.Rows(), "2! 3! 4 ");
}

TEST(EnterKey, PlaysTheSongOnWhichItIsPressedAndNoneWhileAMessagePlays) {
  ShopDesk desk;
  auto& songs = desk.Find<QListView>(desk.Screen.Main(), "lstPlaylist");
  desk.PressKey(songs, Qt::Key_Down);
  desk.PressKey(songs, Qt::Key_Down);
  desk.PressKey(songs, Qt::Key_Return);
  EXPECT_NE(desk.Pc.Heard().find("waltz.mp3"), std::string::npos) << desk.Pc.Heard();
  desk.Sys.TheFlags.MessagePlaying = true;
  desk.Pc.Journal.Clear();
  desk.PressKey(songs, Qt::Key_Up);
  desk.PressKey(songs, Qt::Key_Return);
  EXPECT_EQ(desk.Pc.Journal.Text(), "");
}

}  // namespace
}  // namespace marlex
