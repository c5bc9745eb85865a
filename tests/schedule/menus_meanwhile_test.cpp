#include <gtest/gtest.h>

#include "schedule/message_playback.h"
#include "schedule/spot_desk.h"

namespace marlex {
namespace {

TEST(MenusMeanwhile, TheCellThatIsPaintedBackIsThatOfTheRowThatIsCurrentThen) {
  SpotDesk desk({.Sequences = {{.File = "a.sch", .Messages = "welcome,closing"},
                               {.File = "b.sch", .Hours = "13"}}});
  desk.AdvanceTo(3000);
  ASSERT_EQ(desk.Paint(1), "gnnnn");
  desk.Do([&] {  // a click on the other row
    desk.Main().grdSchedule.SetRow(2);
    desk.Main().grdSchedule.SetCol(kMessagesColumn);
  });
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Paint(1), "gnnnn");
  EXPECT_EQ(desk.Paint(2), "nwwww");
}

TEST(MenusMeanwhile, AnotherPlaylistOpenedInTheRiseLetsTheRiseEnd) {
  SpotDesk desk;
  desk.Pc.Disk.AddFile("/app/Night.lst", "[Playlist]\r\nSong:1=waltz\r\n");
  desk.Pc.Dialogs.OpenResults = {"/app/Night.lst"};
  desk.Pc.Journal.Mute("open");
  desk.AdvanceTo(6900);
  ASSERT_TRUE(desk.State().FadeRunning);
  desk.Click("mnuOpen");
  desk.AdvanceTo(SpotDesk::kFadedUp - 1);
  EXPECT_EQ(desk.Alive(), "cmdPlay");  // the selection of the new list's first song
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 17535");
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Main().lstPlaylist.ListCount(), 1);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
  SpotDesk undisturbed;
  undisturbed.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(), undisturbed.Journal());
}

}  // namespace
}  // namespace marlex
