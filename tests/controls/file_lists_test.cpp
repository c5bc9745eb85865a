#include "controls/file_lists.h"

#include <gtest/gtest.h>

#include "simulation/simulated_pc.h"

namespace marlex {
namespace {

/// One list of each kind on a small disk.
struct Lists : Form {
  Lists() : Form("frmTest", "") {
    Pc.Disk.AddDrive("/media/stick");
    Pc.Disk.AddDrive("/media/stick/inner");
    Pc.Disk.AddMp3("/media/stick/Songs/march.mp3", 1000);
    Pc.Disk.AddWav("/media/stick/Songs/gong.wav", 1000);
    Pc.Disk.AddDirectory("/media/stick/Songs/Old");
    Pc.Disk.AddDirectory("/media/stickers");
    Drives.OnClick = [this] { Heard += "drive "; };
    Tree.OnChange = [this] { Heard += "change "; };
    Tree.OnClick = [this] { Heard += "click "; };
    Files.OnClick = [this] { Heard += "file "; };
  }

  SimulatedPc Pc;
  DriveListBox Drives{*this, "Drives", Pc.Disk};
  DirListBox Tree{*this, "Tree", Pc.Disk};
  FileListBox Files{*this, "Files", Pc.Disk};
  std::string Heard;
};

std::vector<std::string> Shown(const ListBox& list) {
  std::vector<std::string> entries;
  for (int row = 0; row < list.ListCount(); ++row) entries.push_back(list.ShownText(row));
  return entries;
}

TEST(FileLists, TheDrivesBeginWithTheHomeSelected) {
  Lists lists;
  lists.Drives.Refresh();
  EXPECT_EQ(Shown(lists.Drives), (std::vector<std::string>{"/home/operator", "/", "/media/stick",
                                                           "/media/stick/inner"}));
  EXPECT_EQ(lists.Drives.Drive(), "/home/operator");
  EXPECT_EQ(lists.Heard, "");
}

TEST(FileLists, ADirectoryLiesOnTheInnermostOfItsDrives) {
  Lists lists;
  lists.Drives.Refresh();
  for (const auto& [directory, drive] : std::vector<std::pair<std::string, std::string>>{
           {"/media/stick/Songs", "/media/stick"},
           {"/media/stick", "/media/stick"},
           {"/media/stick/inner/deep", "/media/stick/inner"},
           {"/media/stickers", "/"},
           {"/", "/"},
           {"/home/operator/Music", "/home/operator"}}) {
    lists.Drives.ShowDriveOf(directory);
    EXPECT_EQ(lists.Drives.Drive(), drive) << directory;
  }
  EXPECT_EQ(lists.Heard, "");
}

TEST(FileLists, ATreeShowsTheWayDownAndWhatIsThere) {
  Lists lists;
  lists.Tree.SetPath("/media/stick/Songs/");
  EXPECT_EQ(Shown(lists.Tree),
            (std::vector<std::string>{"/", "    media", "        stick", "            Songs",
                                      "                Old"}));
  EXPECT_EQ(lists.Tree.Text(), "/media/stick/Songs");
  EXPECT_EQ(lists.Tree.Path(), "/media/stick/Songs");
  EXPECT_EQ(lists.Heard, "change ");
}

TEST(FileLists, OnlyAnotherDirectoryThatIsThereChangesATree) {
  Lists lists;
  lists.Tree.SetPath("/media/stick");
  for (const char* directory :
       {"/media/stick", "/media/stick/", "/gone", "", "media", "/media/stick/Songs/march.mp3"}) {
    lists.Tree.SetPath(directory);
    EXPECT_EQ(lists.Tree.Path(), "/media/stick") << directory;
  }
  EXPECT_EQ(lists.Heard, "change ");
}

TEST(FileLists, ASelectionOpensNothing) {
  Lists lists;
  lists.Tree.SetPath("/media/stick");
  lists.Tree.SetListIndex(0);
  EXPECT_EQ(lists.Tree.Text(), "/");
  EXPECT_EQ(lists.Tree.Path(), "/media/stick");
  EXPECT_EQ(lists.Heard, "change click ");
}

TEST(FileLists, TheDirectoryAboveTheRootIsTheRoot) {
  Lists lists;
  lists.Tree.OpenAbove();
  EXPECT_EQ(lists.Tree.Path(), "");
  lists.Tree.SetPath("/media");
  lists.Tree.OpenAbove();
  EXPECT_EQ(lists.Tree.Path(), "/");
  lists.Tree.OpenAbove();
  EXPECT_EQ(lists.Tree.Path(), "/");
  EXPECT_EQ(lists.Heard, "change change ");
}

TEST(FileLists, FilesFollowTheirDirectoryAndTheirPattern) {
  Lists lists;
  lists.Files.SetPath("/media/stick/Songs/");
  EXPECT_EQ(Shown(lists.Files), (std::vector<std::string>{"gong.wav", "march.mp3"}));
  lists.Files.SetListIndex(1);
  lists.Files.SetPattern("*.MP3");
  EXPECT_EQ(Shown(lists.Files), (std::vector<std::string>{"march.mp3"}));
  EXPECT_EQ(lists.Files.ListIndex(), ListBox::kNoSelection);
  lists.Files.SetPath("/media/gone");
  EXPECT_EQ(lists.Files.ListCount(), 0);
  lists.Files.SetPath("");
  EXPECT_EQ(lists.Files.ListCount(), 0);
}

TEST(FileLists, AllAreEmptyAgainOnceTheirWindowIsUnloaded) {
  Lists lists;
  lists.Load();
  lists.Drives.Refresh();
  lists.Tree.SetPath("/media/stick/Songs");
  lists.Files.SetPattern("*.wav");
  lists.Files.SetPath("/media/stick/Songs");
  lists.Unload();
  EXPECT_EQ(lists.Drives.ListCount() + lists.Tree.ListCount() + lists.Files.ListCount(), 0);
  EXPECT_EQ(lists.Tree.Path(), "");
  lists.Files.SetPath("/media/stick/Songs");
  EXPECT_EQ(lists.Files.ListCount(), 2);
}

TEST(OptionButton, ButtonsOfOneGroupExcludeEachOtherWhateverTheirNames) {
  Form form("frmTest", "");
  OptionButton fast(form, "optFast");
  OptionButton slow(form, "optSlow");
  OptionButton other(form, "optOther");
  fast.Group = slow.Group = "Frame3";
  other.SetValue(true);
  fast.SetValue(true);
  slow.SetValue(true);
  EXPECT_FALSE(fast.Value());
  EXPECT_TRUE(slow.Value());
  EXPECT_TRUE(other.Value());
}

}  // namespace
}  // namespace marlex
