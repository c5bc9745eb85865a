#include "text/profile_text.h"

#include <gtest/gtest.h>

#include <string>

#include "places.h"
#include "text/profile_vectors.h"

namespace marlex::test {
namespace {

constexpr std::size_t kLimit = 1499;

std::string Get(std::string_view text, std::string_view section, std::string_view key) {
  return ProfileValue(text, section, key, kLimit);
}

std::string Times(int count, std::string_view piece) {
  std::string text;
  for (int done = 0; done < count; ++done) text += piece;
  return text;
}

TEST(ProfileText, GivesTheObservedAnswersOfThePublishedFunctions) {
  int compared = 0;
  for (const ProfileVector& vector :
       ReadProfileVectors(MARLEX_SOURCE_DIR "/tests/text/profile-vectors.jsonl")) {
    if (!vector.Where.empty()) continue;  // these need a file system
    SCOPED_TRACE(vector.Name);
    std::string text = vector.Before.value_or("");
    for (const ProfileCall& call : vector.Calls) {
      if (call.Writes) {
        text = WithProfileValue(text, call.Section, call.Key, call.Value);
      } else {
        EXPECT_EQ(Get(text, call.Section, call.Key), call.Result)
            << call.Section << " / " << call.Key;
      }
    }
    EXPECT_EQ(text, vector.After.value_or(""));
    ++compared;
  }
  EXPECT_EQ(compared, 200);
}

TEST(ProfileText, CutsAValueByCharactersAndNeverInsideOne) {
  for (const std::string_view character : {"x", "ö", "€", "🔔", "\xE9"}) {
    for (const int length : {1499, 1500, 3000}) {
      const std::string text = "[S]\nk=" + Times(length, character) + "\nj=1\n";
      EXPECT_EQ(Get(text, "S", "k"), Times(1499, character));
      EXPECT_EQ(Get(text, "S", "j"), "1");
    }
  }
  EXPECT_EQ(ProfileValue("[S]\nk=aö€🔔z", "S", "k", 4), "aö€🔔");
  EXPECT_EQ(ProfileValue("[S]\nk=aö", "S", "k", 0), "");
}

TEST(ProfileText, MatchesNamesWithoutRegardToCaseInOtherAlphabetsToo) {
  const std::string text = "[GLÜCK]\nÆRØ=1\nПРИВЕТ=2\nΩΜΕΓΑ=3\nŻÓŁW=4\nЁЖ=5\n";
  EXPECT_EQ(Get(text, "glück", "ærø"), "1");
  EXPECT_EQ(Get(text, "Glück", "Привет"), "2");
  EXPECT_EQ(Get(text, "glück", "ωμεγα"), "3");
  EXPECT_EQ(Get(text, "glück", "żółw"), "4");
  EXPECT_EQ(Get(text, "glück", "ёж"), "5");
  EXPECT_EQ(Get(text, "gluck", "ærø"), "");
}

TEST(ProfileText, KeepsTheLineEndsOfTheFile) {
  EXPECT_EQ(WithProfileValue("[A]\na=1\n[B]\nb=2\n", "A", "n", "9"), "[A]\na=1\nn=9\n[B]\nb=2\n");
  EXPECT_EQ(WithProfileValue("[A]\na=1\n", "B", "b", "9"), "[A]\na=1\n[B]\nb=9\n");
  EXPECT_EQ(WithProfileValue("[A]\r\na=1\r\n", "B", "b", "9"), "[A]\r\na=1\r\n[B]\r\nb=9\r\n");
  EXPECT_EQ(WithProfileValue("[A]\ra=1\r", "A", "b", "9"), "[A]\ra=1\rb=9\r");
  EXPECT_EQ(WithProfileValue("[A]\n\n[B]\r\nb=1\r\n", "B", "b", "9"), "[A]\n\n[B]\r\nb=9\r\n");
}

TEST(ProfileText, EndsALastLineWithoutLineEndBeforeItAddsAnother) {
  EXPECT_EQ(WithProfileValue("[A]\na=1", "A", "b", "2"), "[A]\na=1\nb=2\n");
  EXPECT_EQ(WithProfileValue("[A]\na=1", "B", "b", "2"), "[A]\na=1\n[B]\nb=2\n");
  EXPECT_EQ(WithProfileValue("[A]", "B", "b", "2"), "[A]\r\n[B]\r\nb=2\r\n");
  EXPECT_EQ(WithProfileValue("[A]\na=1", "A", "a", "2"), "[A]\na=2");
}

TEST(ProfileText, PutsANewKeyAboveTheBlankLinesThatEndItsSection) {
  EXPECT_EQ(WithProfileValue("[A]\na=1\n; note\n\n \n[B]\n", "A", "b", "2"),
            "[A]\na=1\n; note\nb=2\n\n \n[B]\n");
  EXPECT_EQ(WithProfileValue("[A]\n\n", "A", "b", "2"), "[A]\nb=2\n\n");
}

TEST(ProfileText, LeavesAllElseByteForByte) {
  const std::string head = "\xEF\xBB\xBF; top \xFF\xC3\n\n  [ S ]  \r\n\tstray\n# odd = \"1\"\n";
  const std::string tail = "\n\n;k=3\nk=4\n[t]\nk=\xED\xA0\x80\xF5\n\r\n  ";
  EXPECT_EQ(WithProfileValue(head + "  K = 1 " + tail, "s", "k", "2"), head + "  K =2" + tail);
}

TEST(ProfileText, FindsTheFirstSectionAfterAByteOrderMark) {
  EXPECT_EQ(Get("\xEF\xBB\xBF[S]\nk=1\n", "S", "k"), "1");
  EXPECT_EQ(WithProfileValue("\xEF\xBB\xBF", "S", "k", "1"), "\xEF\xBB\xBF[S]\r\nk=1\r\n");
}

TEST(ProfileText, WritesAnEmptyValueInsteadOfDeletingTheKey) {
  EXPECT_EQ(WithProfileValue("[S]\nk=1\nj=2\n", "S", "k", ""), "[S]\nk=\nj=2\n");
}

TEST(ProfileText, FindsAgainWhateverNameItWrote) {
  for (const std::string_view name :
       {"[k]", "a]b", "a[b", "]", "[", " x ", "ö", "\xE9\xFF", "\"q\"", "a=b"}) {
    const std::string once = WithProfileValue("[S]\nk=1\n", name, "k", "1");
    EXPECT_EQ(Get(once, name, "k"), "1") << name;
    EXPECT_EQ(WithProfileValue(once, name, "k", "1"), once) << name;
  }
}

TEST(ProfileText, WritingAValueTwiceChangesNothingMore) {
  for (const std::string_view value : {"", " a ", "\"q\"", "'", "a=b", ";", "[x]", "\xFF", "ö"}) {
    const std::string once = WithProfileValue("[S]\nk = old  \n", "S", "k", value);
    EXPECT_EQ(WithProfileValue(once, "S", "k", value), once) << value;
  }
}

using Values = std::vector<std::string>;

Values ValuesOneAfterTheOther(std::string_view text, std::size_t maxCharacters) {
  Values values;
  while (true) {
    const std::string value =
        ProfileValue(text, "S", "k:" + std::to_string(values.size() + 1), maxCharacters);
    if (value.empty()) return values;
    values.push_back(value);
  }
}

TEST(ProfileText, NumberedValuesAreThoseOfTheirKeysOneAfterTheOther) {
  constexpr std::size_t kMost = 4;
  const auto numbered = [](std::string_view text) {
    Values values = NumberedProfileValues(text, " s ", "k:", kMost);
    EXPECT_EQ(values, ValuesOneAfterTheOther(text, kMost)) << testing::PrintToString(text);
    return values;
  };
  EXPECT_EQ(numbered("[S]\nk:1=a\nk:2= b \nk:3='c'\n"), (Values{"a", "b", "c"}));
  EXPECT_EQ(numbered("[S]\nK:3=c\n k:1 =a\nk:2=b\nk:2=again"), (Values{"a", "b", "c"}));
  EXPECT_EQ(numbered("[S]\nk:1=a\nk:2=b\nk:4=d\n"), (Values{"a", "b"}));
  EXPECT_EQ(numbered("[S]\nk:1=a\nk:2=\nk:3=c\n"), (Values{"a"}));
  EXPECT_EQ(numbered("[S]\nk:01=a\nk:=b\nk:x1=c\n"), Values{});
  EXPECT_EQ(numbered("[S]\n;k:1=a\nk:1\nk:1=ärger\n"), (Values{"ärge"}));
  EXPECT_EQ(numbered("[T]\nk:1=t\n[S]\nk:1=a\n[s]\nk:2=b\n"), (Values{"a"}));
  EXPECT_EQ(numbered(""), Values{});
}

TEST(ProfileText, AMillionLineEndsInARowAreWalkedOnce) {
  const std::string text = std::string(1'000'000, '\r') + "[S]\rk=v\r";
  EXPECT_EQ(Get(text, "S", "k"), "v");
  EXPECT_EQ(Get(std::string(1'000'000, '\r') + "\n[S]\nk=v", "S", "k"), "v");
}

TEST(ProfileText, ANewTextIsWhatOneValueAfterTheOtherMakes) {
  const std::vector<ProfileEntry> entries = {{"Last played", "Last song", "0"},
                                             {"Playlist", "Song:1", "march"},
                                             {"Playlist", "Song:2", ""},
                                             {"Background music", "Start time", " 08:00"}};
  std::string text;
  for (const auto& [section, key, value] : entries)
    text = WithProfileValue(text, section, key, value);
  EXPECT_EQ(NewProfileText(entries), text);
  EXPECT_EQ(NewProfileText({}), "");
}

/// Every text of up to five of these characters passes through all rules: none is cut short, and a
/// value reads as it was set.
TEST(ProfileText, AnyTextIsAFileToWhichAValueCanBeAdded) {
  constexpr std::string_view kLetters = "[]S=k;\r\n \xC3";
  constexpr int kTexts = 11 * 11 * 11 * 11 * 11;
  for (int number = 0; number < kTexts; ++number) {
    std::string text;
    for (int rest = number; rest > 0; rest /= 11) {
      if (rest % 11 > 0) text += kLetters[static_cast<std::size_t>(rest % 11 - 1)];
    }
    const std::string written = WithProfileValue(text, "S", "k", "v");
    ASSERT_EQ(Get(written, "S", "k"), "v") << testing::PrintToString(text);
    ASSERT_EQ(WithProfileValue(written, "S", "k", "v"), written) << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace marlex::test
