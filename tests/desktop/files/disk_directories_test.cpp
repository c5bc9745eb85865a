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

TEST(Directories, ALinkCountsAsWhatItLeadsTo) {
  const TemporaryDirectory disk;
  disk.Write("b.mp3", "");
  fs::create_directories(disk.Path("album.mp3"));
  fs::create_symlink("b.mp3", disk.Path("z.mp3"));
  fs::create_symlink("gone.mp3", disk.Path("dangling.mp3"));
  fs::create_directory_symlink("album.mp3", disk.Path("more"));
  DiskDirectories directories;
  EXPECT_EQ(directories.Search(disk.Path("z.mp3")), "z.mp3");
  EXPECT_EQ(directories.Search(disk.Path("dangling.mp3")), "");
  EXPECT_EQ(directories.List(disk.Path(), "*.mp3"), (Names{"b.mp3", "z.mp3"}));
  EXPECT_EQ(directories.Subdirectories(disk.Path()), (Names{"album.mp3", "more"}));
}

TEST(Directories, APathThatTheSystemRefusesIsMissing) {
  const std::string path(5000, 'x');
  DiskDirectories directories;
  EXPECT_EQ(directories.Search(path), "");
  EXPECT_EQ(directories.List(path, "*"), Names{});
  EXPECT_FALSE(directories.HasDirectory(path));
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

TEST(Directories, APipeIsNotListed) {
  const TemporaryDirectory disk;
  disk.Write("b.mp3", "");
  ASSERT_EQ(::mkfifo(disk.Path("a.mp3").c_str(), 0666), 0);
  DiskDirectories directories;
  EXPECT_EQ(directories.List(disk.Path(), "*.mp3"), Names{"b.mp3"});
  EXPECT_EQ(directories.Search(disk.Path("")), "b.mp3");
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

TEST(Directories, DirectoriesOfTheSystemAreNoDrives) {
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

}  // namespace
}  // namespace marlex::test
