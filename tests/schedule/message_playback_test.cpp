#include "schedule/message_playback.h"

#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

TEST(MessagePlayback, ARowAtSetTimeFadesTheMusicAnnouncesIntoItsZonesAndGivesTheMusicBack) {
  Desk desk(
      {.Music = {{"march"}}, .Sequences = {{.Messages = "welcome,closing", .Zones = "003000"}}});
  desk.Click("cmdPlay");
  desk.RunTo(12, 0, 59);
  desk.Pc.Journal.Clear();
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(),
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "1729 send 68\n"
            "4529 wav end welcome.wav\n"
            "4529 wav play closing.wav\n"
            "6529 wav end closing.wav\n"
            "6529 song resume march.mp3\n"
            "6729 send 67\n");
}

}  // namespace
}  // namespace marlex
