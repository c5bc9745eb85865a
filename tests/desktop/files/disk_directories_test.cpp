#include "desktop/files/disk_directories.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "desktop/files/forked_child.h"
#include "desktop/files/temporary_directory.h"

namespace marlex::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

/// Milliseconds of the fastest of a few runs, so that other load on the machine does not count.
template <class Action>
double FastestMs(Action action) {
  constexpr int kRuns = 5;
  double fastest = std::numeric_limits<double>::max();
  for (int run = 0; run < kRuns; ++run) {
    const auto start = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    fastest = std::min(fastest, took.count());
  }
  return fastest;
}

TEST(Directories, SearchGivesTheNameOfAFileOrDirectory) {
  const TemporaryDirectory disk;
  disk.Write("list.lst", "");
  fs::create_directories(disk.Path("music"));
  fs::create_symlink("list.lst", disk.Path("link"));
  fs::create_symlink("gone", disk.Path("dangling"));
  DiskDirectories directories;
  EXPECT_EQ(directories.Search(disk.Path("list.lst")), "list.lst");
  EXPECT_EQ(directories.Search(disk.Path("music")), "music");
  EXPECT_EQ(directories.Search(disk.Path("link")), "link");
  EXPECT_EQ(directories.Search(disk.Path("dangling")), "");
  EXPECT_EQ(directories.Search(disk.Path("LIST.LST")), "list.lst");
  disk.Write("March.MP3", "");
  EXPECT_EQ(directories.Search(disk.Path("march.mp3")), "March.MP3");
  disk.Write("march.mp3", "");
  EXPECT_EQ(directories.Search(disk.Path("march.mp3")), "march.mp3");
  EXPECT_EQ(directories.Search(disk.Path("MARCH.mp3")), "March.MP3");
  EXPECT_EQ(directories.Search(disk.Path("list.lst/deeper")), "");
  EXPECT_EQ(directories.Search(disk.Path(std::string(5000, 'x'))), "");
  EXPECT_EQ(directories.Search(""), "");
}

TEST(Directories, SearchOfADirectoryGivesItsFirstRegularFile) {
  const TemporaryDirectory disk;
  fs::create_directories(disk.Path("a"));
  disk.Write(".hidden", "");
  DiskDirectories directories;
  EXPECT_EQ(directories.Search(disk.Path("")), "");
  disk.Write("C.mp3", "");
  disk.Write("b.mp3", "");
  EXPECT_EQ(directories.Search(disk.Path("")), "b.mp3");
  EXPECT_EQ(directories.Search(disk.Path("a/")), "");
  EXPECT_EQ(directories.Search(disk.Path("gone/")), "");
  EXPECT_EQ(directories.Search(disk.Path("b.mp3/")), "");
}

TEST(Directories, TheFirstOfTwentyThousandFilesIsFoundWithoutSortingThem) {
  constexpr int kFiles = 20'000;
  const TemporaryDirectory disk;
  for (int file = 0; file < kFiles; ++file) {
    const int mixed = static_cast<int>(file * 7919LL % kFiles);
    disk.Write("Various artists - Song " + std::to_string(100'000 + mixed) + ".mp3", "");
  }
  DiskDirectories directories;
  const std::string first = "Various artists - Song 100000.mp3";
  const double searchMs = FastestMs([&] { EXPECT_EQ(directories.Search(disk.Path("")), first); });
  const double listMs =
      FastestMs([&] { EXPECT_EQ(directories.List(disk.Path(), "*.mp3").size(), kFiles); });
  RecordProperty("search_ms", static_cast<int>(searchMs));
  RecordProperty("list_ms", static_cast<int>(listMs));
  EXPECT_LT(searchMs, 0.75 * listMs);
}

TEST(Directories, ListGivesTheMatchingRegularFilesInOrder) {
  const TemporaryDirectory disk;
  for (const char* name :
       {"b.mp3", "A.MP3", "ö.Mp3", "c.wav", ".d.mp3", "._b.mp3", "e.mp3.part", "C.mp3"}) {
    disk.Write(name, "");
  }
  disk.Write("\xFF.mp3", "");
  disk.Write("two\nlines.mp3", "");
  fs::create_directories(disk.Path("album.mp3"));
  fs::create_symlink("b.mp3", disk.Path("z.mp3"));
  fs::create_symlink("gone.mp3", disk.Path("dangling.mp3"));
  ASSERT_EQ(::mkfifo(disk.Path("pipe.mp3").c_str(), 0666), 0);
  DiskDirectories directories;
  const Names songs = {"A.MP3", "b.mp3", "C.mp3", "z.mp3", "ö.Mp3", "ÿ.mp3"};
  EXPECT_EQ(directories.List(disk.Path(), "*.mp3"), songs);
  EXPECT_EQ(directories.List(disk.Path(""), "*.mp3"), songs);
  EXPECT_EQ(directories.List(disk.Path(), "?.wav"), Names{"c.wav"});
  EXPECT_EQ(directories.List(disk.Path(), "*.lst"), Names{});
}

TEST(Directories, ArePassedThroughWithoutRegardToCase) {
  const TemporaryDirectory disk;
  fs::create_directories(disk.Path("Music/\xCF\xE5\xF1\xED\xFF"));
  disk.Write("Music/\xCF\xE5\xF1\xED\xFF/A.mp3", "");
  DiskDirectories directories;
  directories.NamesIn = CodePage::Cyrillic;
  EXPECT_EQ(directories.Subdirectories(disk.Path("MUSIC/")), Names{"Песня"});
  EXPECT_TRUE(directories.HasDirectory(disk.Path("music/песня/")));
  EXPECT_EQ(directories.List(disk.Path("music/Песня"), "*.MP3"), Names{"A.mp3"});
  EXPECT_EQ(directories.Search(disk.Path("music/Песня/")), "A.mp3");
  EXPECT_EQ(directories.Search(disk.Path("music/Песня/a.MP3")), "A.mp3");
}

TEST(Directories, ListIsEmptyWhereNothingCanBeRead) {
  const TemporaryDirectory disk;
  disk.Write("file", "");
  DiskDirectories directories;
  for (const std::string& path :
       {std::string(), disk.Path("gone"), disk.Path("file"), std::string(5000, 'x')}) {
    EXPECT_EQ(directories.List(path, "*"), Names{});
  }
}

TEST(Directories, ADirectoryThatMayNotBeEnteredCountsAsEmpty) {
  const TemporaryDirectory disk;
  ASSERT_EQ(::chmod(disk.Path().c_str(), 0755), 0);
  fs::create_directories(disk.Path("locked"));
  disk.Write("locked/a.mp3", "");
  ASSERT_EQ(::chmod(disk.Path("locked").c_str(), 0), 0);
  EXPECT_TRUE(TrueInAChild([&] {
    DiskDirectories directories;
    return BecomeNobody() && directories.List(disk.Path("locked"), "*").empty() &&
           directories.Search(disk.Path("locked/")).empty() &&
           directories.Search(disk.Path("locked/a.mp3")).empty();
  }));
  ASSERT_EQ(::chmod(disk.Path("locked").c_str(), 0755), 0);
}

TEST(Directories, SubdirectoriesAreSortedAndHiddenOnesLeftOut) {
  const TemporaryDirectory disk;
  for (const char* name : {"b", "A", "c d", ".hidden"}) fs::create_directories(disk.Path(name));
  disk.Write("file", "");
  fs::create_directory_symlink("b", disk.Path("z"));
  fs::create_symlink("gone", disk.Path("dangling"));
  DiskDirectories directories;
  EXPECT_EQ(directories.Subdirectories(disk.Path("")), (Names{"A", "b", "c d", "z"}));
  EXPECT_EQ(directories.Subdirectories(disk.Path("file")), Names{});
  EXPECT_EQ(directories.Subdirectories(disk.Path("gone")), Names{});
}

TEST(Directories, ADirectoryIsKnownWithAndWithoutItsSeparator) {
  const TemporaryDirectory disk;
  fs::create_directories(disk.Path("music"));
  disk.Write("file", "");
  DiskDirectories directories;
  EXPECT_TRUE(directories.HasDirectory(disk.Path("music")));
  EXPECT_TRUE(directories.HasDirectory(disk.Path("music/")));
  EXPECT_TRUE(directories.HasDirectory("/"));
  EXPECT_FALSE(directories.HasDirectory(disk.Path("file")));
  EXPECT_FALSE(directories.HasDirectory(disk.Path("gone")));
  EXPECT_FALSE(directories.HasDirectory(""));
}

TEST(Directories, TheDrivesAreTheHomeDirectoryAndTheMountedFileSystems) {
  const TemporaryDirectory disk;
  const std::string table = disk.Write("mounts",
                                       "/dev/sda1 / ext4 rw 0 0\n"
                                       "proc /proc proc rw 0 0\n"
                                       "tmpfs /run tmpfs rw 0 0\n"
                                       "/dev/sda2 /boot/efi vfat rw 0 0\n"
                                       "/dev/sdb1 /run/media/anna/My\\040Stick vfat rw 0 0\n"
                                       "nas:/music /mnt/nas nfs rw 0 0\n"
                                       "/dev/sda1 / ext4 rw 0 0\n"
                                       "/dev/sda3 /devices ext4 rw 0 0\n");
  Names drives = DiskDirectories(table).Drives();
  ASSERT_FALSE(drives.empty());
  EXPECT_TRUE(fs::equivalent(drives.front(), std::getenv("HOME"))) << drives.front();
  drives.erase(drives.begin());
  EXPECT_EQ(drives, (Names{"/", "/devices", "/mnt/nas", "/run/media/anna/My Stick"}));
}

TEST(Directories, TheNamesOfDrivesAreReadLikeAllOthers) {
  const TemporaryDirectory disk;
  DiskDirectories directories(disk.Write("mounts",
                                         "/dev/sdb1 /media/\xCF\xE5\xF1\xED\xFF vfat rw 0 0\n"
                                         "/dev/sdc1 /media/two\\012lines vfat rw 0 0\n"
                                         "/dev/sdd1 /media/Песня vfat rw 0 0\n"));
  directories.NamesIn = CodePage::Cyrillic;
  Names drives = directories.Drives();
  drives.erase(drives.begin());
  EXPECT_EQ(drives, (Names{"/", "/media/Песня"}));
}

TEST(Directories, WithoutATableOfMountsTheRootIsLeft) {
  const Names drives = DiskDirectories("/gone").Drives();
  ASSERT_EQ(drives.size(), 2u);
  EXPECT_EQ(drives.back(), "/");
}

}  // namespace
}  // namespace marlex::test
