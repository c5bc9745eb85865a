// What every implementation of `Directories` promises.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contracts/devices/file_bench.h"

namespace marlex::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kSongInCyrillic = "\xCF\xE5\xF1\xED\xFF";  // Песня

class DirectoriesContract : public testing::TestWithParam<PcKind> {
 protected:
  std::string Search(const std::string& name) { return Files.Search(Bench->Path(name)); }
  std::vector<std::string> List(const std::string& name, const std::string& pattern = "*") {
    return Files.List(Bench->Path(name), pattern);
  }
  std::vector<std::string> Subdirectories(const std::string& name) {
    return Files.Subdirectories(Bench->Path(name));
  }
  bool HasDirectory(const std::string& name) { return Files.HasDirectory(Bench->Path(name)); }

  const std::unique_ptr<FileBench> Bench = MakeFileBench(GetParam());
  Directories& Files = Bench->Files();
};

INSTANTIATE_TEST_SUITE_P(Pc, DirectoriesContract, kBothPcs, NameOf);

TEST_P(DirectoriesContract, SearchGivesTheNameOfAFileOrDirectory) {
  Bench->Write("music/rock/a.mp3", "");
  EXPECT_EQ(Search("music/rock/a.mp3"), "a.mp3");
  EXPECT_EQ(Search("music/rock"), "rock");
  EXPECT_EQ(Search("music/rock/b.mp3"), "");
  EXPECT_EQ(Search("mus"), "");
  EXPECT_EQ(Search("music/rock/a.mp3/deeper"), "");
  EXPECT_EQ(Files.Search(""), "");
}

TEST_P(DirectoriesContract, SearchOfADirectoryGivesItsFirstRegularFile) {
  Bench->Write("a/deep.mp3", "");
  Bench->Write(".hidden", "");
  EXPECT_EQ(Search(""), "");
  Bench->Write("C.mp3", "");
  Bench->Write("b.mp3", "");
  EXPECT_EQ(Search(""), "b.mp3");
  Bench->Write("ALARM.mp3", "");
  EXPECT_EQ(Search(""), "ALARM.mp3");
  EXPECT_EQ(Search("a/"), "deep.mp3");
  EXPECT_EQ(Search("gone/"), "");
  EXPECT_EQ(Search("b.mp3/"), "");
}

TEST_P(DirectoriesContract, TheFirstFileIsTheFirstOneOfTheList) {
  Files.NamesIn = CodePage::Cyrillic;
  Bench->Write("\xC0.mp3", "");  // А in the code page: before Б, which is UTF-8
  Bench->Write("Б.mp3", "");
  EXPECT_THAT(List(""), ElementsAre("А.mp3", "Б.mp3"));
  EXPECT_EQ(Search(""), "А.mp3");
}

TEST_P(DirectoriesContract, AnExactNameComesBeforeOneInAnotherCase) {
  Bench->Write("March.MP3", "");
  EXPECT_EQ(Search("march.mp3"), "March.MP3");
  Bench->Write("march.mp3", "");
  EXPECT_EQ(Search("march.mp3"), "march.mp3");
  EXPECT_EQ(Search("MARCH.mp3"), "March.MP3") << "the first in sorting order";
}

TEST_P(DirectoriesContract, AnExactDirectoryIsNotLeftForAnother) {
  Bench->Write("A/first.mp3", "");
  Bench->Write("a/second.mp3", "");
  EXPECT_EQ(Search("a/FIRST.mp3"), "");
  EXPECT_EQ(Search("a/SECOND.mp3"), "second.mp3");
  EXPECT_THAT(List("a"), ElementsAre("second.mp3"));
}

TEST_P(DirectoriesContract, TheCaseOfAnyLetterIsIgnored) {
  Bench->Write("ГИМНЫ/Ärger.mp3", "");
  EXPECT_EQ(Search("гимны/ÄRGER.MP3"), "Ärger.mp3");
  EXPECT_EQ(Search("гимны/"), "Ärger.mp3");
  EXPECT_TRUE(HasDirectory("Гимны"));
  EXPECT_THAT(List("Гимны", "ä*.MP3"), ElementsAre("Ärger.mp3"));
}

TEST_P(DirectoriesContract, NamesInACodePageAreFoundAndReadInIt) {
  const std::string song = kSongInCyrillic;
  Bench->Write("Music/" + song + "/" + song + ".mp3", "");
  Files.NamesIn = CodePage::Cyrillic;
  EXPECT_THAT(Subdirectories("MUSIC/"), ElementsAre("Песня"));
  EXPECT_TRUE(HasDirectory("music/песня/"));
  EXPECT_THAT(List("music/Песня", "п*.MP3"), ElementsAre("Песня.mp3"));
  EXPECT_EQ(Search("music/Песня/"), "Песня.mp3");
  EXPECT_EQ(Search("music/Песня/ПЕСНЯ.MP3"), "Песня.mp3");
}

TEST_P(DirectoriesContract, APathMayMixUtf8AndACodePage) {
  Bench->Write(std::string("Гимны/") + kSongInCyrillic + ".mp3", "");
  Files.NamesIn = CodePage::Cyrillic;
  EXPECT_EQ(Search("Гимны/Песня.mp3"), "Песня.mp3");
}

TEST_P(DirectoriesContract, ListGivesTheMatchingFilesInOrder) {
  for (const char* name : {"b.mp3", "A.MP3", "ö.Mp3", "c.wav", ".d.mp3", "._b.mp3", "e.mp3.part",
                           "C.mp3", "\xFF.mp3", "two\nlines.mp3", "one\rline.mp3"})
    Bench->Write(name, "");
  Bench->MakeDirectory("album.mp3");
  const auto songs = ElementsAre("A.MP3", "b.mp3", "C.mp3", "ö.Mp3", "ÿ.mp3");
  EXPECT_THAT(List("", "*.mp3"), songs);
  EXPECT_THAT(List("", "?.mp3"), songs) << "a question mark is one character, not one byte";
  EXPECT_THAT(List("", "?.wav"), ElementsAre("c.wav"));
  EXPECT_THAT(List("", "*.lst"), IsEmpty());
}

TEST_P(DirectoriesContract, ListSortsAsAReaderExpectsIt) {
  for (const char* name : {"b.mp3", "Zebra.mp3", "c.mp3", "A.mp3", "C.mp3", "Öl.mp3", "öde.mp3"})
    Bench->Write(name, "");
  EXPECT_THAT(List(""),
              ElementsAre("A.mp3", "b.mp3", "C.mp3", "c.mp3", "Zebra.mp3", "öde.mp3", "Öl.mp3"));
}

TEST_P(DirectoriesContract, SubdirectoriesAreSortedAndHiddenOnesLeftOut) {
  for (const char* name : {"b", "A/deep", "c d", ".hidden", "two\nlines", "Ä"})
    Bench->MakeDirectory(name);
  Bench->Write("file", "");
  EXPECT_THAT(Subdirectories(""), ElementsAre("A", "b", "c d", "Ä"));
  EXPECT_THAT(Subdirectories("a"), ElementsAre("deep"));
  EXPECT_THAT(Subdirectories("A/"), ElementsAre("deep"));
}

TEST_P(DirectoriesContract, ListsAreEmptyWhereThereIsNoDirectory) {
  Bench->Write("file", "");
  for (const std::string& path : {std::string(), Bench->Path("gone"), Bench->Path("file")}) {
    EXPECT_THAT(Files.List(path, "*"), IsEmpty()) << path;
    EXPECT_THAT(Files.Subdirectories(path), IsEmpty()) << path;
  }
}

TEST_P(DirectoriesContract, ADirectoryThatCannotBeReadCountsAsEmpty) {
  Bench->Write("locked/deep/a.mp3", "");
  Bench->Write("locked/a.mp3", "");
  EXPECT_TRUE(Bench->WhileUnreadable("locked", [this] {
    return List("LOCKED").empty() && Subdirectories("locked/").empty() &&
           Search("locked/").empty() && Search("locked/A.mp3").empty();
  }));
  EXPECT_THAT(List("LOCKED"), ElementsAre("a.mp3"));
}

TEST_P(DirectoriesContract, ADirectoryIsKnownWithAndWithoutItsSeparator) {
  Bench->MakeDirectory("music");
  Bench->Write("file", "");
  EXPECT_TRUE(HasDirectory("music"));
  EXPECT_TRUE(HasDirectory("MUSIC/"));
  EXPECT_TRUE(Files.HasDirectory("/"));
  EXPECT_FALSE(HasDirectory("file"));
  EXPECT_FALSE(HasDirectory("file/"));
  EXPECT_FALSE(HasDirectory("gone"));
  EXPECT_FALSE(Files.HasDirectory(""));
}

TEST_P(DirectoriesContract, DrivesAreTheHomeDirectoryAndTheMountPoints) {
  Bench->Mount({"/mnt/nas", "/media/My Stick", "/devices", "/mnt/nas", Bench->Home(), "/"});
  EXPECT_THAT(Files.Drives(),
              ElementsAre(Bench->Home(), "/", "/devices", "/media/My Stick", "/mnt/nas"));
}

TEST_P(DirectoriesContract, NamesOfDrivesAreReadLikeAllOthers) {
  Files.NamesIn = CodePage::Cyrillic;
  Bench->Mount({std::string("/media/") + kSongInCyrillic, "/media/two\nlines", "/media/Песня"});
  EXPECT_THAT(Files.Drives(), ElementsAre(Bench->Home(), "/", "/media/Песня"));
}

TEST_P(DirectoriesContract, WithoutAnyMountPointTheRootIsLeft) {
  EXPECT_THAT(Files.Drives(), ElementsAre(Bench->Home(), "/"));
}

}  // namespace
}  // namespace marlex::test
