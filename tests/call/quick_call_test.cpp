// A call that is over before anybody could speak, in the middle of an announcement: what is heard,
// and the bytes on the line.

#include <gtest/gtest.h>

#include "call/call_desk.h"

namespace marlex {
namespace {

/// A desk one second before a row of two messages into zone 3; the call goes into zone 4.
DeskOptions WithRow() {
  DeskOptions options = CallDesk::Chimes();
  options.CallRouting = "000100";
  options.Sequences = {{.Messages = "welcome,closing", .Zones = "003000"}};
  options.Now = {2024, 1, 1, 12, 0, 55};
  return options;
}

/// Presses the button for 50 ms. The journal begins at the press and ends when everything is over.
void CallQuickly(CallDesk& desk) {
  desk.Pc.Journal.Clear();
  desk.Press("cmdCall");
  desk.Advance(50);
  desk.Release("cmdCall");
  desk.Advance(20'000);
}

void ExpectRest(CallDesk& desk) {
  EXPECT_FALSE(desk.MicrophoneOpened);
  EXPECT_EQ(desk.Station(), "Call, lamps off");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.LitZones(), "110000");
  EXPECT_EQ(desk.Alive(), kAllAlive);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(QuickCall, InsideAMessageItsPreChimePlaysToTheEndAndTheZonesAreFreed) {
  CallDesk desk(WithRow());
  desk.RunTo(12, 1, 3);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  CallQuickly(desk);
  EXPECT_EQ(desk.Journal(),
            "0 wav stop welcome.wav\n"
            "0 wav play chime.wav\n"
            "200 send 72\n"
            "1000 wav end chime.wav\n"
            "1000 send 0\n"
            "1000 song resume march.mp3\n"
            "1575 wav refuse \n"  // the runner goes over what is left of its list
            "1575 send 0\n");     // and frees the zones, since no music is paused
  ExpectRest(desk);
}

TEST(QuickCall, InTheFadeOfAnAnnouncementItTakesTheMessagesWithIt) {
  CallDesk desk(WithRow());
  while (!desk.State().FadeRunning) desk.Advance(1);
  desk.Advance(100);
  CallQuickly(desk);
  EXPECT_EQ(desk.Journal(),
            "222 song pause\n"
            "222 song resume march.mp3\n"
            "422 send 67\n");
  ExpectRest(desk);
}

}  // namespace
}  // namespace marlex
