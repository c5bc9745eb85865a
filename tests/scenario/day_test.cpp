#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "scenario/story.h"

namespace marlex {
namespace {

/// A shop whose music plays from nine to twelve in zones 1 and 2, with songs of 27 minutes.
DeskOptions Shop() {
  constexpr int kSongMs = 27 * 60'000;
  return {.Music = {{"morning", kSongMs}, {"noon", kSongMs}},
          .Messages = {{"welcome", 3000}, {"closing", 2000}, {"offer", 4000}},
          .Sequences = {{.File = "open.sch", .Messages = "welcome", .Hours = "9", .Minutes = "30"},
                        {.File = "offer.sch",
                         .Messages = "offer,welcome",
                         .Hours = "9-10",
                         .Minutes = "45",
                         .Zones = "003000",
                         .Timer = "Between"},
                        {.File = "soon.sch",
                         .Messages = "closing",
                         .Hours = "11",
                         .Minutes = "55",
                         .Zones = "123000"},
                        {.File = "closed.sch",
                         .Messages = "closing,welcome",
                         .Hours = "12",
                         .Minutes = "05",
                         .Zones = "100000"}},
          .StartTime = "09:00",
          .StopTime = "12:00",
          .WeekDays = "1234500",
          .Now = {2024, 1, 1, 8, 59, 50}};
}

TEST(Day, OfAShopFromItsFirstSongToItsLastAnnouncement) {
  Story shop(Shop());
  shop.RunTo(11, 20);
  shop.Note("a call from the fire brigade");
  shop.Status(192);
  shop.RunTo(11, 21);
  EXPECT_EQ(shop.Heard(), "silence");
  shop.Note("and its end");
  shop.Status(0);
  shop.RunTo(11, 55, 2);
  EXPECT_EQ(shop.Heard(), "wav closing.wav at 10000");
  shop.Note("a call into an announcement");
  shop.Status(128);
  EXPECT_EQ(shop.Heard(), "silence");
  shop.Advance(500);
  shop.Note("and its end");
  shop.Status(0);
  shop.RunTo(11, 56);
  EXPECT_EQ(shop.Heard(), "silence");
  shop.RunTo(13, 0);
  EXPECT_EQ(shop.Transcript(),
            "09:00:00.500 song play morning.mp3\n"
            "09:00:00.700 send 67\n"
            "09:27:00.500 song end\n"
            "09:27:00.500 song play noon.mp3\n"
            "09:30:01.029 song pause\n"
            "09:30:01.029 wav play welcome.wav\n"
            "09:30:01.229 send 127\n"
            "09:30:04.029 wav end welcome.wav\n"
            "09:30:04.029 song resume noon.mp3\n"
            "09:30:04.229 send 67\n"
            "09:54:03.500 song end\n"
            "09:54:03.500 wav play offer.wav\n"
            "09:54:07.500 wav end offer.wav\n"
            "09:54:07.500 wav play welcome.wav\n"
            "09:54:10.500 wav end welcome.wav\n"
            "09:54:10.500 song play morning.mp3\n"
            "10:21:10.500 song end\n"
            "10:21:10.500 song play noon.mp3\n"
            "10:48:10.500 song end\n"
            "10:48:10.500 wav play offer.wav\n"
            "10:48:14.500 wav end offer.wav\n"
            "10:48:14.500 wav play welcome.wav\n"
            "10:48:17.500 wav end welcome.wav\n"
            "10:48:17.500 song play morning.mp3\n"
            "11:15:17.500 song end\n"
            "11:15:17.500 song play noon.mp3\n"
            "11:20:00.500 - a call from the fire brigade\n"
            "11:21:00.500 - and its end\n"
            "11:21:00.900 send 67\n"
            "11:42:17.500 song end\n"
            "11:42:17.500 song play morning.mp3\n"
            "11:55:01.029 song pause\n"
            "11:55:01.029 wav play closing.wav\n"
            "11:55:01.229 send 71\n"
            "11:55:02.500 - a call into an announcement\n"
            "11:55:02.500 wav stop closing.wav\n"
            "11:55:03.000 - and its end\n"
            "11:56:00.500 song stop\n"
            "11:56:00.500 song play morning.mp3\n"
            "11:56:00.700 send 67\n"
            "12:00:01.029 song stop\n"
            "12:00:01.029 send 0\n"
            "12:05:00.500 wav play closing.wav\n"
            "12:05:00.700 send 65\n"
            "12:05:02.500 wav end closing.wav\n"
            "12:05:02.500 wav play welcome.wav\n"
            "12:05:05.500 wav end welcome.wav\n"
            "12:05:05.500 send 0\n");
}

TEST(Day, MidnightBuildsTheNewDayAndLetsTheClockStartMusic) {
  Story shop(
      {.Music = {{"night", 3'600'000}},
       .Sequences = {{.File = "mon.sch", .Hours = "23", .Minutes = "58", .Weekdays = "1000000"},
                     {.File = "no.sch", .Hours = "0", .Minutes = "01", .Weekdays = "1000000"},
                     {.File = "tue.sch",
                      .Messages = "closing",
                      .Hours = "0",
                      .Minutes = "00,02",
                      .Weekdays = "0200000",
                      .Zones = "000006"}},
       .StartTime = "00:00",
       .StopTime = "23:59",
       .WeekDays = "1234567",
       .Now = {2024, 1, 1, 23, 56, 30}});
  shop.RunTo(23, 57, 30);
  shop.Click("cmdStop");
  EXPECT_EQ(shop.Rows(),
            (std::vector<std::string>{"00:01  ||123456||welcome", "23:58  ||123456||welcome"}));
  shop.RunTo(0, 3);
  EXPECT_EQ(shop.Rows(),
            (std::vector<std::string>{"00:00  ||000006||closing", "00:02  ||000006||closing"}));
  EXPECT_EQ(shop.Transcript(),
            "23:56:33.500 song play night.mp3\n"
            "23:56:33.700 send 67\n"
            "23:57:30.500 song stop\n"
            "23:57:30.500 send 0\n"
            "23:58:00.500 wav play welcome.wav\n"
            "23:58:00.700 send 127\n"
            "23:58:03.500 wav end welcome.wav\n"
            "23:58:03.500 send 0\n"
            "00:00:00.500 wav play closing.wav\n"
            "00:00:00.700 send 96\n"
            "00:00:02.500 wav end closing.wav\n"
            "00:00:02.500 send 0\n"
            "00:01:00.500 song play night.mp3\n"
            "00:01:00.700 send 67\n"
            "00:02:01.029 song pause\n"
            "00:02:01.029 wav play closing.wav\n"
            "00:02:01.229 send 96\n"
            "00:02:03.029 wav end closing.wav\n"
            "00:02:03.029 song resume night.mp3\n"
            "00:02:03.229 send 67\n");
}

/// Minutes and files of the messages that were played, "12:00 welcome.wav 12:30 closing.wav ".
std::string Played(const Story& story) {
  const std::string begins = " wav play ";
  std::string played;
  std::istringstream lines(story.Transcript());
  for (std::string line; std::getline(lines, line);) {
    const auto place = line.find(begins);
    if (place == std::string::npos) continue;
    played += line.substr(0, 5) + " " + line.substr(place + begins.size()) + " ";
  }
  return played;
}

TEST(Day, OverTheEndOfALeapFebruaryEveryDayHasItsOwnAnnouncements) {
  Story shop({.Music = {{"march"}, {"waltz"}},
              .Sequences = {{.File = "week.sch", .Minutes = "00", .Weekdays = "1234500"},
                            {.File = "sun.sch",
                             .Messages = "closing",
                             .Hours = "10",
                             .Minutes = "30",
                             .Weekdays = "0000007"}},
              .Router = false,
              .StartTime = "09:00",
              .StopTime = "18:00",
              .WeekDays = "1234500",
              .Now = {2024, 2, 24, 0, 0, 0}});  // a Saturday
  std::string transcript;
  for (const std::string day : {"Sat", "Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"}) {
    shop.Begin();
    shop.Advance(24 * 3'600'000);
    transcript += day + ": " + Played(shop) + "\n";
  }
  EXPECT_EQ(transcript,
            "Sat: \n"
            "Sun: 10:30 closing.wav \n"
            "Mon: 12:00 welcome.wav \n"
            "Tue: 12:00 welcome.wav \n"
            "Wed: 12:00 welcome.wav \n"
            "Thu: 12:00 welcome.wav \n"
            "Fri: 12:00 welcome.wav \n"
            "Sat: \n"
            "Sun: 10:30 closing.wav \n");
  const LocalTime now = shop.Pc.Clock.Now();
  EXPECT_EQ(std::to_string(now.Month) + "/" + std::to_string(now.Day), "3/4");
  EXPECT_EQ(shop.Pc.Loop.Waits(), 1);
  EXPECT_EQ(shop.Pc.Dialogs.Boxes.size(), 0u);
}

}  // namespace
}  // namespace marlex
