#include <gtest/gtest.h>

#include "simulation/simulated_pc.h"

namespace marlex {
namespace {

using Names = std::vector<std::string>;

TEST(MemoryDisk, VanishedDirectoryIsAbsentUntilItReturns) {
  SimulatedPc pc;
  pc.Disk.AddFile("/drive/music/a.mp3", "text");
  pc.Disk.Vanish("/drive/");
  EXPECT_EQ(pc.Disk.Search("/drive/music/a.mp3"), "");
  EXPECT_EQ(pc.Disk.Search("/drive/music"), "");
  EXPECT_EQ(pc.Disk.List("/drive/music", "*"), Names{});
  EXPECT_EQ(pc.Disk.Subdirectories("/"), (Names{"app", "home"}));
  EXPECT_FALSE(pc.Disk.Write("/drive/music/b.txt", ""));
  pc.Disk.Return("/drive");
  EXPECT_EQ(pc.Disk.Read("/drive/music/a.mp3"), "text");
  EXPECT_EQ(pc.Disk.List("/drive/music", "*"), Names{"a.mp3"});
  EXPECT_EQ(pc.Disk.Subdirectories("/"), (Names{"app", "drive", "home"}));
}

TEST(MemoryDisk, WhatIsInADirectoryThatCannotBeReadHasItsExactNameAlone) {
  SimulatedPc pc;
  pc.Disk.AddFile("/faulty/a.mp3");
  pc.Disk.FailReads("/faulty");
  EXPECT_EQ(pc.Disk.Search("/faulty/a.mp3"), "a.mp3");
  EXPECT_EQ(pc.Disk.Search("/faulty/A.mp3"), "");
  EXPECT_FALSE(pc.Disk.Read("/faulty/a.mp3"));
}

TEST(MemoryProfiles, JournalShowsWritesWhenItIsAskedTo) {
  SimulatedPc pc;
  pc.Profiles.WriteString("Main", "Key", "1", "/app/Tolvo.ini");
  EXPECT_EQ(pc.Journal.Text(), "");
  pc.Journal.Unmute("write");
  pc.Profiles.WriteString("Main", "Key", "2", "/app/Tolvo.ini");
  EXPECT_EQ(pc.Journal.Text(), "0 write Tolvo.ini [Main] Key=2\n");
}

}  // namespace
}  // namespace marlex
