#include "simulation/simulated_pc.h"

namespace marlex {
namespace {

using Names = std::vector<std::string>;

TEST(MemoryDisk, SearchNamesAFileOrADirectory) {
  SimulatedPc pc;
  pc.Disk.AddFile("/music/rock/a.mp3");
  EXPECT_EQ(pc.Disk.Search("/music/rock/a.mp3"), "a.mp3");
  EXPECT_EQ(pc.Disk.Search("/music/rock"), "rock");
  EXPECT_EQ(pc.Disk.Search("/music/rock/b.mp3"), "");
  EXPECT_EQ(pc.Disk.Search("/music/rock/A.mp3"), "a.mp3");
  EXPECT_EQ(pc.Disk.Search("/Music/ROCK"), "rock");
  EXPECT_EQ(pc.Disk.Search("/mus"), "");
  EXPECT_EQ(pc.Disk.Search(""), "");
}

TEST(MemoryDisk, SearchWithFinalSeparatorNamesTheFirstFileOfTheDirectory) {
  SimulatedPc pc;
  pc.Disk.AddFile("/music/a/deep.mp3");
  EXPECT_EQ(pc.Disk.Search("/music/"), "");
  pc.Disk.AddFile("/music/b.mp3");
  pc.Disk.AddFile("/music/c.mp3");
  EXPECT_EQ(pc.Disk.Search("/music/"), "b.mp3");
  EXPECT_EQ(pc.Disk.Search("/nowhere/"), "");
  pc.Disk.AddFile("/music/C.mp3");
  pc.Disk.AddFile("/music/Anthem.mp3");
  pc.Disk.AddFile("/music/ALARM.mp3");
  EXPECT_EQ(pc.Disk.Search("/music/"), "ALARM.mp3");
  pc.Disk.AddFile("/music/aid.mp3");
  EXPECT_EQ(pc.Disk.Search("/music/"), "aid.mp3");
}

TEST(MemoryDisk, ListMatchesPatternsWithoutRegardToCaseAndSorts) {
  SimulatedPc pc;
  for (const char* name : {"b.MP3", "a.mp3", "c.wav", "ab.mp3", "sub/d.mp3"}) {
    pc.Disk.AddFile(std::string("/m/") + name);
  }
  EXPECT_EQ(pc.Disk.List("/m", "*.mp3"), (Names{"a.mp3", "ab.mp3", "b.MP3"}));
  EXPECT_EQ(pc.Disk.List("/m/", "?.Mp3"), (Names{"a.mp3", "b.MP3"}));
  EXPECT_EQ(pc.Disk.List("/m", "*"), (Names{"a.mp3", "ab.mp3", "b.MP3", "c.wav"}));
  EXPECT_EQ(pc.Disk.List("/none", "*"), Names{});
}

TEST(MemoryDisk, ListSortsAsAReaderExpectsIt) {
  SimulatedPc pc;
  for (const char* name : {"b.mp3", "Zebra.mp3", "c.mp3", "A.mp3", "C.mp3", "Öl.mp3", "öde.mp3"}) {
    pc.Disk.AddFile(std::string("/m/") + name);
  }
  EXPECT_EQ(pc.Disk.List("/m", "*"),
            (Names{"A.mp3", "b.mp3", "C.mp3", "c.mp3", "Zebra.mp3", "öde.mp3", "Öl.mp3"}));
}

TEST(MemoryDisk, VanishedDirectoryIsAbsentUntilItReturns) {
  SimulatedPc pc;
  pc.Disk.AddFile("/drive/music/a.mp3", "text");
  pc.Disk.Vanish("/drive/");
  EXPECT_EQ(pc.Disk.Search("/drive/music/a.mp3"), "");
  EXPECT_EQ(pc.Disk.Search("/drive/music"), "");
  EXPECT_EQ(pc.Disk.List("/drive/music", "*"), Names{});
  EXPECT_FALSE(pc.Disk.Write("/drive/music/b.txt", ""));
  pc.Disk.Return("/drive");
  EXPECT_EQ(pc.Disk.Read("/drive/music/a.mp3"), "text");
  EXPECT_EQ(pc.Disk.List("/drive/music", "*"), Names{"a.mp3"});
}

TEST(MemoryProfiles, WrittenValueIsReadBackAndStandsInTheFile) {
  SimulatedPc pc;
  EXPECT_EQ(pc.Profiles.GetString("Main", "Key", "/app/Tolvo.ini", 100), "");
  EXPECT_TRUE(pc.Profiles.WriteString("Main", "Key", "value", "/app/Tolvo.ini"));
  EXPECT_EQ(pc.Profiles.GetString("MAIN", "key", "/app/Tolvo.ini", 100), "value");
  EXPECT_EQ(pc.Profiles.GetString("Main", "Key", "/app/Tolvo.ini", 3), "val");
  EXPECT_EQ(pc.Disk.Read("/app/Tolvo.ini"), "[Main]\r\nKey=value\r\n");
}

TEST(MemoryProfiles, FailedWriteLeavesTheOldFileIntact) {
  SimulatedPc pc;
  pc.Disk.AddFile("/app/Tolvo.ini", "[Main]\nKey=old\n");
  pc.Disk.FailWrites("/app/Tolvo.ini");
  EXPECT_FALSE(pc.Profiles.WriteString("Main", "Key", "new", "/app/Tolvo.ini"));
  EXPECT_EQ(pc.Disk.Read("/app/Tolvo.ini"), "[Main]\nKey=old\n");
}

TEST(MemoryProfiles, UnreadableFileReadsEmptyAndIsNotReplaced) {
  SimulatedPc pc;
  pc.Disk.AddFile("/app/Tolvo.ini", "[Main]\nKey=old\n");
  pc.Disk.FailReads("/app/Tolvo.ini");
  EXPECT_EQ(pc.Profiles.GetString("Main", "Key", "/app/Tolvo.ini", 100), "");
  EXPECT_FALSE(pc.Profiles.WriteString("Main", "Key", "new", "/app/Tolvo.ini"));
  pc.Disk.Heal("/app/Tolvo.ini");
  EXPECT_EQ(pc.Profiles.GetString("Main", "Key", "/app/Tolvo.ini", 100), "old");
}

TEST(MemoryProfiles, WriteIntoADirectoryThatIsNotThereFails) {
  SimulatedPc pc;
  EXPECT_FALSE(pc.Profiles.WriteString("Main", "Key", "new", "/nowhere/Tolvo.ini"));
}

TEST(MemoryProfiles, JournalShowsWritesWhenItIsAskedTo) {
  SimulatedPc pc;
  pc.Profiles.WriteString("Main", "Key", "1", "/app/Tolvo.ini");
  EXPECT_EQ(pc.Journal.Text(), "");
  pc.Journal.Unmute("write");
  pc.Profiles.WriteString("Main", "Key", "2", "/app/Tolvo.ini");
  EXPECT_EQ(pc.Journal.Text(), "0 write Tolvo.ini [Main] Key=2\n");
}

TEST(MemoryDisk, SubdirectoriesAreSortedAndHiddenOrVanishedOnesLeftOut) {
  SimulatedPc pc;
  for (const char* path : {"/media/b", "/media/A/deep", "/media/.x", "/media/gone"})
    pc.Disk.AddDirectory(path);
  pc.Disk.AddFile("/media/file");
  pc.Disk.Vanish("/media/gone");
  EXPECT_EQ(pc.Disk.Subdirectories("/media"), (std::vector<std::string>{"A", "b"}));
  EXPECT_EQ(pc.Disk.Subdirectories("/media/"), (std::vector<std::string>{"A", "b"}));
  pc.Disk.FailReads("/media");
  EXPECT_TRUE(pc.Disk.Subdirectories("/media").empty());
  EXPECT_TRUE(pc.Disk.List("/media", "*").empty());
}

TEST(MemoryDisk, TheHomeDirectoryIsTheFirstDrive) {
  SimulatedPc pc;
  pc.Disk.AddDrive("/media/stick");
  pc.Disk.AddDrive("/export");
  EXPECT_EQ(pc.Disk.Drives(),
            (std::vector<std::string>{"/home/operator", "/", "/export", "/media/stick"}));
  EXPECT_TRUE(pc.Disk.HasDirectory("/media/stick/"));
}

}  // namespace
}  // namespace marlex
