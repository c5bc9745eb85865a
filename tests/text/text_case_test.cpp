#include "text/text_case.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace marlex {
namespace {

TEST(TextCase, KnowsTheCapitalsOfEveryAlphabetInUse) {
  for (const auto& [capital, small] :
       std::vector<std::array<const char*, 2>>{{"ÀÑØÞ", "àñøþ"},
                                               {"ŸÀĀŐŒŽŁ", "ÿàāőœžł"},
                                               {"ΆΈΉΊΌΎΏΪΫ", "άέήίόύώϊϋ"},
                                               {"ΑΊΘΟΥΣΑΣ", "αίθουσας"},
                                               {"ЀЁЯҐ", "ѐёяґ"}}) {
    EXPECT_TRUE(SameButForCase(capital, small)) << capital;
  }
}

TEST(TextCase, DistinguishesLettersFromTheirNeighbours) {
  EXPECT_TRUE(SameButForCase("aZ09_", "Az09_"));
  EXPECT_FALSE(SameButForCase("@", "`"));
  EXPECT_FALSE(SameButForCase("[", "{"));
  EXPECT_FALSE(SameButForCase("×", "÷"));  // 32 apart as capital and small letters are
  EXPECT_FALSE(SameButForCase("ß", "ÿ"));
  EXPECT_FALSE(SameButForCase("a", "ab"));
}

TEST(TextCase, ABrokenByteEqualsOnlyItself) {
  EXPECT_TRUE(SameButForCase("\xE9", "\xE9"));
  EXPECT_FALSE(SameButForCase("\xE9", "\xC9"));
  EXPECT_FALSE(SameButForCase("\xE9", "é"));
  EXPECT_FALSE(SameButForCase("\xC1\x81", "A"));     // a longer form than needed is no character
  EXPECT_EQ(FirstFolded("\xED\xA0\x80").Bytes, 1U);  // nor is a half of a surrogate pair
  EXPECT_EQ(FirstFolded("\xE2\x82").Bytes, 1U);      // nor one that is cut off
  EXPECT_EQ(FirstFolded("\xE2\x82\xAC").Bytes, 3U);
}

TEST(TextCase, APatternMatchesTheWholeName) {
  EXPECT_TRUE(MatchesPattern("Song.MP3", "*.mp3"));
  EXPECT_TRUE(MatchesPattern("a.mp3.mp3", "*.mp3"));
  EXPECT_TRUE(MatchesPattern(".mp3", "*.mp3"));
  EXPECT_FALSE(MatchesPattern("song.mp3.bak", "*.mp3"));
  EXPECT_FALSE(MatchesPattern("song.mp", "*.mp3"));
  EXPECT_FALSE(MatchesPattern("xmp3", "*.mp3"));
  EXPECT_TRUE(MatchesPattern("", "*"));
  EXPECT_TRUE(MatchesPattern("", ""));
  EXPECT_FALSE(MatchesPattern("a", ""));
  EXPECT_TRUE(MatchesPattern("anything", "**"));
  EXPECT_TRUE(MatchesPattern("abcabd", "*abd"));
  EXPECT_TRUE(MatchesPattern("a[1].mp3", "a[1].*"));
}

TEST(TextCase, AQuestionMarkStandsForOneCharacterOfAnyLength) {
  EXPECT_TRUE(MatchesPattern("Glück", "Gl?ck"));
  EXPECT_TRUE(MatchesPattern("\xFF.wav", "?.wav"));
  EXPECT_FALSE(MatchesPattern("Glck", "Gl?ck"));
  EXPECT_FALSE(MatchesPattern("Glueck", "Gl?ck"));
}

TEST(TextCase, APatternOfManyStarsIsDecidedSoon) {
  EXPECT_FALSE(MatchesPattern(std::string(255, 'a'), "*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b"));
}

TEST(TextCase, NamesHaveOneOrderWhateverTheirCase) {
  std::vector<std::string> names = {"b", "C", "a", "A", "ab", "Ö", "ö2", "B1"};
  std::sort(names.begin(), names.end(), NameComesBefore);
  EXPECT_EQ(names, (std::vector<std::string>{"A", "a", "ab", "b", "B1", "C", "Ö", "ö2"}));
}

}  // namespace
}  // namespace marlex
