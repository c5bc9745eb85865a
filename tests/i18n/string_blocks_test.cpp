#include "i18n/string_blocks.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "i18n/languages.h"
#include "i18n/string_table.h"

namespace marlex {
namespace {

constexpr int kPickWord = 761;  // "Select"; the French block has none

std::map<int, std::string> TextsOf(const std::string& language) {
  std::map<int, std::string> texts;
  for (const auto& [id, text] : StringsOf(language)) texts[id] = text;
  return texts;
}

std::set<int> IdsOf(const std::string& language) {
  std::set<int> ids;
  for (const auto& entry : StringsOf(language)) ids.insert(entry.Id);
  return ids;
}

std::string Found(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::string found;
  for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at)
    found += at->str() + "|";
  return found;
}

class Block : public ::testing::TestWithParam<const char*> {
 protected:
  /// The ids whose texts contain other matches of the pattern than the English ones.
  std::set<int> Different(const char* pattern) const {
    std::set<int> ids;
    const auto english = TextsOf("English");
    for (const auto& [id, text] : TextsOf(GetParam())) {
      if (Found(text, pattern) != Found(english.at(id), pattern)) ids.insert(id);
    }
    return ids;
  }
};

TEST_P(Block, HasTheIdsOfTheEnglishOneAscending) {
  std::set<int> ids = IdsOf("English");
  if (std::string(GetParam()) == "French") ids.erase(kPickWord);
  EXPECT_EQ(IdsOf(GetParam()), ids);
  EXPECT_EQ(StringsOf(GetParam()).size(), ids.size());
  int last = 0;
  for (const StringEntry& entry : StringsOf(GetParam())) {
    EXPECT_GT(entry.Id, last);
    last = entry.Id;
  }
}

TEST_P(Block, HasNoEmptyText) {
  for (const auto& [id, text] : StringsOf(GetParam()))
    EXPECT_NE(text.find_first_not_of(' '), std::string::npos) << id;
}

/// Words that a language shares with English.
std::set<int> SharedWith(const std::string& language) {
  static const std::map<std::string, std::set<int>> shared = {
      {"Dutch", {52, 250, 420, 540, 560, 790}},
      {"French", {220, 410, 560, 790, 1250}},
      {"German", {48, 52, 220, 790, 860}},
      {"Italian", {270, 860}},
      {"Norwegian", {48, 52}},
      {"Spanish", {101, 970}},
      {"Swedish", {48, 52, 220}}};
  const auto found = shared.find(language);
  std::set<int> ids = found == shared.end() ? std::set<int>() : found->second;
  ids.insert({840, 850});  // Com 1, Com 2
  static const std::set<std::string> withAWordForOk = {"Hebrew", "Spanish", "Turkish"};
  if (!withAWordForOk.contains(language)) ids.insert(kStrOk);
  return ids;
}

TEST_P(Block, IsTranslatedButForTheWordsThatBothLanguagesHave) {
  if (std::string(GetParam()) == "English") return;
  const auto english = TextsOf("English");
  std::set<int> same;
  for (const auto& [id, text] : StringsOf(GetParam())) {
    if (text == english.at(id)) same.insert(id);
  }
  EXPECT_EQ(same, SharedWith(GetParam()));
}

TEST_P(Block, BeginsAndEndsItsTextsWithTheBlanksOfTheEnglishOnes) {
  EXPECT_EQ(Different("^ *"), std::set<int>());
  EXPECT_EQ(Different(" *$"), std::set<int>());
}

/// Numbers, addresses and the characters that a field allows are the same in every language.
TEST_P(Block, KeepsNumbersNamesAndAddresses) {
  EXPECT_EQ(Different("[0-9]+([,-][0-9]+)*"), std::set<int>());
  EXPECT_EQ(Different("http://\\S+"), std::set<int>());
  EXPECT_EQ(Different("Hadrik|Tolvo( Marlex)?|MP3"), std::set<int>());
}

/// These two have a sign of their own for a letter that is left out.
TEST_P(Block, WritesTheApostropheOfFrenchAndItalianAsATypesetterDoes) {
  const std::string language = GetParam();
  if (language != "French" && language != "Italian") return;
  for (const auto& [id, text] : TextsOf(language))
    EXPECT_EQ(text.find('\''), std::string::npos) << id << ": " << text;
}

/// A text to which something is appended ends with the same punctuation as in English.
TEST_P(Block, EndsItsTextsWithTheSignsOfTheEnglishOnes) {
  EXPECT_EQ(Different("(:|\\.\\.\\.) ?$"), std::set<int>());
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

/// Above the boxes of the week, a capital and at most two letters more, as calendars have them.
TEST_P(Block, HasAShortNameForEachDayOfTheWeek) {
  const std::string capital = "(?:[A-Z]|[\xC3-\xD7][\x80-\xBF])";
  const std::string letter = "(?:[a-z]|[\xC3-\xD7][\x80-\xBF])";
  const std::regex day(capital + letter + "{0,2}");
  const std::vector<std::string> days = WordsOf(TextsOf(GetParam()).at(871));
  EXPECT_EQ(days.size(), 7u);
  for (const std::string& name : days) EXPECT_TRUE(std::regex_match(name, day)) << name;
}

/// English keeps its agreed letters, of which two are each used for two days.
TEST_P(Block, DistinguishesTheDaysOfTheWeek) {
  const std::vector<std::string> days = WordsOf(TextsOf(GetParam()).at(871));
  const std::size_t names = std::string(GetParam()) == "English" ? 5 : 7;
  EXPECT_EQ(std::set<std::string>(days.begin(), days.end()).size(), names);
}

/// The word on a button that plays or calls is the only sign of its state.
TEST_P(Block, HasDifferentWordsForTheStatesOfAButton) {
  const auto texts = TextsOf(GetParam());
  EXPECT_NE(texts.at(230), texts.at(250));
  EXPECT_EQ((std::set<std::string>{texts.at(260), texts.at(262), texts.at(263)}).size(), 3u);
}

INSTANTIATE_TEST_SUITE_P(Languages, Block,
                         ::testing::Values("English", "French", "German", "Spanish", "Finnish",
                                           "Hungarian", "Greek", "Russian", "Hebrew", "Turkish",
                                           "Dutch", "Norwegian", "Italian", "Swedish"),
                         [](const auto& language) { return std::string(language.param); });

TEST(StringBlocks, EachLanguageOfTheTableHasOne) {
  for (const Language& language : kLanguageTable)
    EXPECT_GT(StringsOf(language.Name).size(), 150u) << language.Name;
  EXPECT_TRUE(StringsOf("Latin").empty());
}

TEST(StringBlocks, TheWordForClosingIsTheirOwn) {
  std::set<std::string> words;
  for (const Language& language : kLanguageTable) words.insert(TextsOf(language.Name).at(600));
  EXPECT_EQ(words.size(), kLanguageTable.size());
}

}  // namespace
}  // namespace marlex
