// What every implementation of `ProfileFiles` promises.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contracts/devices/file_bench.h"
#include "places.h"
#include "text/profile_vectors.h"

namespace marlex::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kLimit = 1499;

class ProfileFilesContract : public testing::TestWithParam<PcKind> {
 protected:
  std::string Get(const std::string& file, const std::string& section, const std::string& key,
                  std::size_t maxCharacters = kLimit) {
    return Profiles.GetString(section, key, Bench->Path(file), maxCharacters);
  }
  Writing Set(const std::string& file, const std::vector<ProfileEntry>& entries) {
    return Profiles.WriteStrings(entries, Bench->Path(file));
  }
  bool Rebuild(const std::string& file, const std::vector<ProfileEntry>& entries) {
    return Profiles.Rebuild(entries, Bench->Path(file));
  }

  const std::unique_ptr<FileBench> Bench = MakeFileBench(GetParam());
  ProfileFiles& Profiles = Bench->Profiles();
};

INSTANTIATE_TEST_SUITE_P(Pc, ProfileFilesContract, kBothPcs, NameOf);

/// Makes the calls of the vector on a bench of its own. False when an answer differs.
bool AnswersAsObserved(FileBench& bench, const std::string& file, const ProfileVector& vector) {
  bool same = true;
  for (const ProfileCall& call : vector.Calls) {
    ProfileFiles& profiles = bench.Profiles();
    const std::string path = bench.Path(file);
    if (call.Writes) {
      same &= profiles.WriteString(call.Section, call.Key, call.Value, path) == call.Succeeds;
    } else {
      same &= profiles.GetString(call.Section, call.Key, path, kLimit) == call.Result;
    }
  }
  return same;
}

TEST_P(ProfileFilesContract, GivesTheObservedAnswersOfThePublishedFunctions) {
  const auto vectors = ReadProfileVectors(MARLEX_SOURCE_DIR "/tests/text/profile-vectors.jsonl");
  ASSERT_EQ(vectors.size(), 202U);
  for (const ProfileVector& vector : vectors) {
    const auto bench = MakeFileBench(GetParam());
    const std::string file = vector.Where == "nodir" ? "gone/file.ini" : "file.ini";
    if (vector.Before) bench->Write(file, *vector.Before);
    const auto answers = [&] { return AnswersAsObserved(*bench, file, vector); };
    EXPECT_TRUE(vector.Where == "readonly" ? bench->WhileUnwritable(file, answers) : answers())
        << vector.Name;
    EXPECT_EQ(bench->Read(file), vector.After.value_or("")) << vector.Name;
    EXPECT_EQ(bench->Entries(), vector.After ? 1 : 0) << vector.Name;
  }
}

TEST_P(ProfileFilesContract, NothingIsCachedBetweenCalls) {
  Bench->Write("a.ini", "[S]\nk=1\n");
  EXPECT_EQ(Get("a.ini", "S", "k"), "1");
  Bench->Write("a.ini", "[S]\nk=2\n");
  EXPECT_EQ(Get("a.ini", "S", "k"), "2");
  Bench->Remove("a.ini");
  EXPECT_EQ(Get("a.ini", "S", "k"), "");
}

TEST_P(ProfileFilesContract, LongValuesAreCutByCharactersOnlyOnReading) {
  for (const std::size_t length : {1499U, 1500U, 3000U}) {
    std::string value;
    for (std::size_t done = 0; done < length; ++done) value += "€";
    ASSERT_EQ(Set("a.ini", {{"S", "k", value}}), Writing::Done);
    EXPECT_EQ(Bench->Read("a.ini"), "[S]\r\nk=" + value + "\r\n");
    EXPECT_EQ(Get("a.ini", "S", "k"), value.substr(0, kLimit * std::string("€").size()));
    EXPECT_EQ(Get("a.ini", "S", "k", 0), "");
  }
}

TEST_P(ProfileFilesContract, NumberedValuesEndAtTheFirstGap) {
  Bench->Write("a.ini", "[S]\nSong:2=\" two \"\nSONG:1= one\nSong:3=\nSong:4=four\n");
  const std::string file = Bench->Path("a.ini");
  EXPECT_THAT(Profiles.GetNumbered("s", "Song:", file, kLimit), ElementsAre("one", " two "));
  EXPECT_THAT(Profiles.GetNumbered("s", "Song:", file, 2), ElementsAre("on", " t"));
  EXPECT_THAT(Profiles.GetNumbered("T", "Song:", file, kLimit), IsEmpty());
  EXPECT_THAT(Profiles.GetNumbered("S", "Song:", Bench->Path("gone.ini"), kLimit), IsEmpty());
}

TEST_P(ProfileFilesContract, AWriteSaysWhetherItChangedAnything) {
  EXPECT_EQ(Set("a.ini", {{"S", "k", "1"}, {"S", "j", "2"}}), Writing::Done);
  EXPECT_EQ(Set("a.ini", {{"s", "K", "1"}, {"S", "j", "2"}}), Writing::Unchanged);
  EXPECT_EQ(Set("a.ini", {{"S", "k", "1"}, {"S", "j", "3"}}), Writing::Done);
  EXPECT_EQ(Bench->Read("a.ini"), "[S]\r\nk=1\r\nj=3\r\n");
}

TEST_P(ProfileFilesContract, WhatIsThereAlreadyNeedsNoRightToWrite) {
  Bench->Write("a.ini", "[S]\nk=1\n");
  EXPECT_TRUE(Bench->WhileUnwritable("a.ini", [this] {
    return Set("a.ini", {{"S", "k", "1"}}) == Writing::Unchanged &&
           Set("a.ini", {{"S", "k", "2"}}) == Writing::Failed;
  }));
}

TEST_P(ProfileFilesContract, ValuesAreWrittenInTheirOrder) {
  EXPECT_EQ(Set("a.ini", {{"S", "k", "1"}, {"T", "k", "2"}, {"S", "k", "3"}}), Writing::Done);
  EXPECT_EQ(Bench->Read("a.ini"), "[S]\r\nk=3\r\n[T]\r\nk=2\r\n");
}

TEST_P(ProfileFilesContract, WithoutValuesAMissingFileIsCreatedEmpty) {
  EXPECT_EQ(Set("a.ini", {}), Writing::Done);
  EXPECT_EQ(Bench->Entries(), 1);
  EXPECT_EQ(Set("a.ini", {}), Writing::Unchanged);
}

TEST_P(ProfileFilesContract, BytesOfACodePagePassThrough) {
  Bench->Write("a.ini", "[S]\nk=\xCF\xE5\nj=1\n");
  EXPECT_EQ(Get("a.ini", "S", "k"), "\xCF\xE5");
  EXPECT_EQ(Set("a.ini", {{"S", "j", "2"}}), Writing::Done);
  EXPECT_EQ(Bench->Read("a.ini"), "[S]\nk=\xCF\xE5\nj=2\n");
}

TEST_P(ProfileFilesContract, AFileInUtf16StaysInUtf16) {
  Bench->Write("a.ini", std::string("\xFF\xFE[\0S\0]\0\n\0k\0=\0\x17\x04\n\0", 18));
  EXPECT_EQ(Get("a.ini", "S", "k"), "З");
  EXPECT_EQ(Set("a.ini", {{"S", "k", "я😀"}}), Writing::Done);
  EXPECT_EQ(Bench->Read("a.ini"),
            std::string("\xFF\xFE[\0S\0]\0\n\0k\0=\0\x4F\x04\x3D\xD8\x00\xDE\n\0", 22));
  EXPECT_EQ(Get("a.ini", "S", "k"), "я😀");
}

TEST_P(ProfileFilesContract, AFileThatIsNotTextIsLeftAlone) {
  const std::string noise("RIFF\0\0\0\0[S]\nk=1\n", 16);
  Bench->Write("a.ini", noise);
  EXPECT_EQ(Get("a.ini", "S", "k"), "");
  EXPECT_THAT(Profiles.GetNumbered("S", "k", Bench->Path("a.ini"), kLimit), IsEmpty());
  EXPECT_EQ(Set("a.ini", {{"S", "k", "1"}}), Writing::Failed);
  EXPECT_EQ(Bench->Read("a.ini"), noise);
  EXPECT_TRUE(Rebuild("a.ini", {{"S", "k", "1"}}));
  EXPECT_EQ(Get("a.ini", "S", "k"), "1");
}

TEST_P(ProfileFilesContract, AFileThatCannotBeReadIsEmptyAndNotReplaced) {
  Bench->Write("a.ini", "[S]\nk=old\n");
  EXPECT_TRUE(Bench->WhileUnreadable("a.ini", [this] {
    return Get("a.ini", "S", "k").empty() && Set("a.ini", {{"S", "k", "new"}}) == Writing::Failed;
  }));
  EXPECT_EQ(Bench->Read("a.ini"), "[S]\nk=old\n");
}

TEST_P(ProfileFilesContract, AfterAFailureTheOldFileIsUnchanged) {
  Bench->Write("a.ini", "[S]\nk=old\n");
  EXPECT_TRUE(Bench->WhileUnwritable("a.ini", [this] {
    return Set("a.ini", {{"S", "j", "1"}, {"S", "k", "new"}}) == Writing::Failed &&
           !Rebuild("a.ini", {{"S", "k", "new"}}) && Get("a.ini", "S", "k") == "old";
  }));
  EXPECT_EQ(Bench->Read("a.ini"), "[S]\nk=old\n");
  EXPECT_EQ(Bench->Entries(), 1);
}

TEST_P(ProfileFilesContract, NoFileIsCreatedInADirectoryThatCannotBeWritten) {
  Bench->Write("locked/a.ini", "[S]\nk=old\n");
  EXPECT_TRUE(Bench->WhileUnwritable("locked", [this] {
    return Set("locked/b.ini", {{"S", "k", "1"}}) == Writing::Failed &&
           !Rebuild("locked/b.ini", {{"S", "k", "1"}});
  }));
  EXPECT_EQ(Bench->Entries("locked"), 1);
}

TEST_P(ProfileFilesContract, WritingFailsWhereThereIsNoFileToBe) {
  Bench->Write("file", "");
  Bench->MakeDirectory("directory");
  for (const char* name : {"file/a.ini", "file/", "gone/a.ini", "directory", "directory/", ""}) {
    EXPECT_EQ(Get(name, "S", "k"), "") << name;
    EXPECT_EQ(Set(name, {{"S", "k", "1"}}), Writing::Failed) << name;
    EXPECT_FALSE(Rebuild(name, {{"S", "k", "1"}})) << name;
  }
  EXPECT_EQ(Profiles.WriteStrings({{"S", "k", "1"}}, ""), Writing::Failed);
  EXPECT_FALSE(Profiles.Rebuild({{"S", "k", "1"}}, ""));
  EXPECT_EQ(Bench->Entries(), 2);
  EXPECT_EQ(Bench->Entries("directory"), 0);
}

TEST_P(ProfileFilesContract, AFileIsFoundInAnyCaseAndKeepsItsName) {
  Bench->Write("Музыка/DAY.LST", "[S]\nk=1\n");
  EXPECT_EQ(Get("МУЗЫКА/day.lst", "S", "k"), "1");
  EXPECT_EQ(Set("музыка/Day.lst", {{"S", "k", "2"}}), Writing::Done);
  EXPECT_EQ(Bench->Read("Музыка/DAY.LST"), "[S]\nk=2\n");
  EXPECT_EQ(Bench->Entries("Музыка"), 1);
  EXPECT_EQ(Bench->Entries(), 1);
}

TEST_P(ProfileFilesContract, ANewFileIsCreatedInTheDirectoryThatIsFound) {
  Bench->MakeDirectory("Music");
  EXPECT_EQ(Set("MUSIC/day.lst", {{"S", "k", "1"}}), Writing::Done);
  EXPECT_TRUE(Rebuild("music/night.lst", {{"S", "k", "2"}}));
  EXPECT_EQ(Bench->Entries(), 1);
  EXPECT_EQ(Bench->Read("Music/day.lst"), "[S]\r\nk=1\r\n");
  EXPECT_EQ(Bench->Read("Music/night.lst"), "[S]\r\nk=2\r\n");
}

TEST_P(ProfileFilesContract, ARebuiltFileHasExactlyItsNameAndTheseEntries) {
  Bench->Write("DAY.LST", "[S]\nk=1\n; a comment\n");
  EXPECT_TRUE(Rebuild("Day.lst", {{"S", "k", "2"}, {"T", "j", "3"}}));
  EXPECT_EQ(Bench->Read("DAY.LST"), "[S]\nk=1\n; a comment\n");
  EXPECT_EQ(Bench->Read("Day.lst"), "[S]\r\nk=2\r\n[T]\r\nj=3\r\n");
  EXPECT_TRUE(Rebuild("DAY.LST", {}));
  EXPECT_EQ(Bench->Read("DAY.LST"), "");
  EXPECT_EQ(Bench->Entries(), 2);
}

}  // namespace
}  // namespace marlex::test
