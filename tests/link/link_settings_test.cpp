// The settings dialog gives up the amplifier, takes it back, or changes our level, in the middle of
// the link's work.

#include <gtest/gtest.h>

#include "link/link_desk.h"

namespace marlex {
namespace {

/// Selects an option of the settings dialog and confirms it.
void Choose(LinkDesk& desk, const std::string& option) {
  desk.Click("mnuSettings");
  desk.Click(option);
  desk.Click("cmdOK");
}

constexpr const char* kRouter = "optTolvo_0";
constexpr const char* kOther = "optTolvo_1";
constexpr const char* kHigh = "optPriority_1";

TEST(LinkMeetsSettings, AnIdleAmplifierThatIsGivenUpOpensNoLine) {
  LinkDesk desk;
  ASSERT_TRUE(desk.MuteCheck(0));
  Choose(desk, kOther);
  desk.Advance(1000);
  EXPECT_TRUE(desk.MuteCheck(0));
}

TEST(LinkMeetsSettings, AnIdleAmplifierThatIsGivenUpLeavesTheSpeakersLampsLit) {
  LinkDesk desk;
  desk.Press("cmdCall");
  desk.Advance(1000);
  Choose(desk, kOther);
  EXPECT_EQ(desk.Text("cmdCall2"), "Speak");
  EXPECT_EQ(desk.Main().lblBusy[1].BackColor, kGreen);
}

TEST(LinkMeetsSettings, TheDwellAfterAnAmplifierThatWasGivenUpAsksForNoByte) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(64);
  Choose(desk, kOther);
  desk.Advance(1000);
  Choose(desk, kRouter);
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Journal(), "");
}

TEST(LinkMeetsSettings, AByteThatWaitsGoesOutOnceTheRouterIsChosenAgain) {
  LinkDesk desk;
  desk.Pc.Journal.Only({"send", "lost", "serial"});
  desk.Click("cmdPlay");
  desk.Advance(100);
  Choose(desk, kOther);
  desk.Advance(1000);
  Choose(desk, kRouter);
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "100 serial close\n1100 serial open 1\n1200 send 67\n");
}

TEST(LinkMeetsSettings, AnotherLevelIsComparedWithTheNextStatus) {
  LinkDesk desk;
  desk.Status(64);
  Choose(desk, kHigh);
  EXPECT_EQ(desk.Priority(), "64 held");
  EXPECT_EQ(desk.Label(), "Higher priority call in progress 255 255 255");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Status(64);
  EXPECT_EQ(desk.Priority(), "64");
  EXPECT_EQ(desk.Label(), "Lower priority call in progress 255 255 255");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

}  // namespace
}  // namespace marlex
