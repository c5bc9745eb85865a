#include "platform/sound_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "desk/desk.h"

namespace marlex {
namespace {

TEST(SoundNames, BeginWithTheGivenOneAndGoThroughAllSpellingsOfTheExtension) {
  for (const std::string path : {"/m/A.b.mp3", "/m/A.b.MP3", "/m/A.b.Mp3", "/m/A.b.wAv"}) {
    const auto spellings = SoundFileSpellings(path);
    EXPECT_EQ(spellings.front(), path);
    const std::set<std::string> different(spellings.begin(), spellings.end());
    EXPECT_EQ(different.size(), spellings.size());
    const bool song = path.find("3") != std::string::npos;
    EXPECT_EQ(different.size(), song ? 4U : 8U);
    for (const std::string& spelling : different) EXPECT_EQ(spelling.substr(0, 7), "/m/A.b.");
  }
}

TEST(SoundNames, LeaveAllOtherFilesAlone) {
  for (const std::string path : {"/app/Day.lst", "/app/x.sch", "mp3", "", "/m/a.mp33"})
    EXPECT_EQ(SoundFileSpellings(path), std::vector<std::string>{path});
}

TEST(SoundNames, OfAnyCaseAreHeard) {
  Desk desk({.Music = {{"waltz"}}, .PreChime = "DING"}, [](SimulatedPc& pc) {
    pc.Disk.Remove("/music/waltz.mp3");
    pc.Disk.AddMp3("/music/waltz.MP3", 60'000);
    pc.Disk.AddWav("/messages/DING.WAV", 1000);
  });
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  desk.Press("cmdCall");
  desk.Advance(700);
  EXPECT_EQ(desk.Heard(), "wav DING.wav at 10000");
}

}  // namespace
}  // namespace marlex
