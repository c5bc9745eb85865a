#include "i18n/notices.h"

#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

void Leave(SimulatedPc& pc) { pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever; }

void Report(Desk& desk, const std::string& body) {
  desk.Do([&desk, body] { desk.Sys->TheNotices.Leave(body, BoxIcon::Critical, "Error"); });
}

TEST(Notices, ABoxThatIsOpenIsNotOpenedTwice) {
  Desk desk({}, Leave);
  Report(desk, "No paper");
  Report(desk, "No paper");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
}

TEST(Notices, ABoxThatWasAnsweredOpensAgain) {
  Desk desk({}, Leave);
  Report(desk, "No paper");
  desk.Pc.Dialogs.Answer();
  desk.Advance(0);
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 0);
  Report(desk, "No paper");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 2u);
}

TEST(Notices, BoxesOfAnotherBodyAreOpenTogether) {
  Desk desk({}, Leave);
  Report(desk, "No paper");
  Report(desk, "No ink");
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 2);
}

TEST(Notices, AnOpenBoxDoesNotStopTheTicks) {
  Desk desk({.Music = {{"march"}}, .Sequences = {{.Minutes = "01"}}}, Leave);
  Report(desk, "No paper");
  desk.Pc.Journal.Only({"wav"});
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(desk.Pc.Journal.Lines().size(), 2u) << desk.Journal();
  EXPECT_EQ(desk.Text("frSchedule").substr(0, 7), "12:01:3");
}

TEST(Notices, AnAnnouncementDoesNotWaitForABoxThatNobodyReads) {
  Desk desk({.Music = {{"march"}}, .Sequences = {{.Minutes = "01"}}}, Leave);
  desk.Click("cmdPlay");
  desk.RunTo(12, 1, 1);
  ASSERT_TRUE(desk.State().MessagePlaying);
  Report(desk, "No paper");
  ASSERT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
  desk.Advance(10'000);
  EXPECT_FALSE(desk.State().MessagePlaying);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
}

}  // namespace
}  // namespace marlex
