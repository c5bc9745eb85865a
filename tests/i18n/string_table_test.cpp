#include "i18n/string_table.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>

#include "i18n/string_blocks.h"
#include "places.h"
#include "platform/runtime_failure.h"

namespace marlex {
namespace {

constexpr int kFirstOwnText = 1400;  // after the agreed ones

TEST(EnglishStrings, AreAllThereInAscendingOrder) {
  const auto& strings = StringsOf("English");
  EXPECT_EQ(strings.size(), 193u);
  EXPECT_EQ(strings.front().Id, 10);
  EXPECT_EQ(strings.back().Id, kStrClockJumped);
  for (std::size_t i = 1; i < strings.size(); ++i) {
    EXPECT_LT(strings[i - 1].Id, strings[i].Id);
    EXPECT_FALSE(strings[i].Text.empty()) << strings[i].Id;
  }
}

/// The agreed texts, one per line: the id, a tab, the text with its blanks.
std::map<int, std::string> AgreedStrings() {
  std::ifstream file(MARLEX_SOURCE_DIR "/tests/i18n/english.tsv");
  std::map<int, std::string> strings;
  for (std::string line; std::getline(file, line);) {
    const std::size_t tab = line.find('\t');
    strings[std::stoi(line)] = line.substr(tab + 1);
  }
  return strings;
}

TEST(EnglishStrings, AreTheAgreedOnesLetterByLetter) {
  const std::map<int, std::string> agreed = AgreedStrings();
  EXPECT_EQ(agreed.size(), 158u);
  std::set<int> ids;
  for (const auto& [id, text] : StringsOf("English")) {
    if (id >= kFirstOwnText) continue;
    ids.insert(id);
    const auto found = agreed.find(id);
    EXPECT_EQ(text, found == agreed.end() ? "(none agreed)" : found->second) << id;
  }
  for (const auto& [id, text] : agreed) EXPECT_TRUE(ids.contains(id)) << id << " " << text;
}

TEST(EnglishStrings, HaveTheIdsThatAreNoMultiplesOfTenWhereTheTableHasThem) {
  std::string ids;
  for (const StringEntry& entry : StringsOf("English")) {
    if (entry.Id % 10 != 0) ids += std::to_string(entry.Id) + " ";
  }
  EXPECT_EQ(ids,
            "12 14 16 18 22 24 26 28 32 34 36 38 42 44 46 48 52 56 58 62 101 181 182 262 263 341 "
            "342 343 761 871 881 882 883 ");
}

TEST(EnglishStrings, KeepTheBlanksAtTheirEndsAndNoOthersHaveAny) {
  std::string texts;
  for (const auto& [id, text] : StringsOf("English")) {
    if (text.front() == ' ' || text.back() == ' ')
      texts += std::to_string(id) + "[" + std::string(text) + "]\n";
  }
  EXPECT_EQ(texts,
            "180[ Message time schedule ]\n"
            "570[Surf to http://www.tolvo.example ]\n"
            "871[ M  T  W   T   F   S   S]\n"
            "1110[Could not find directory ]\n"
            "1200[Could not find music directory: ]\n"
            "1210[Could not find message directory: ]\n"
            "1470[The settings cannot be saved: ]\n"
            "1510[The file cannot be saved: ]\n"
            "1660[Too few digits for the days or zones: ]\n");
}

TEST(StringTable, ATextIsThatOfTheLanguage) {
  StringTable strings;
  EXPECT_EQ(strings.LoadString(600), "Close");
  strings.LanguageBase = 2000;
  EXPECT_EQ(strings.LoadString(600), "Chiudi");
  EXPECT_EQ(strings.LoadEnglish(600), "Close");
}

TEST(StringTable, CodeFindsTheTextsThatItAsksForByName) {
  const StringTable strings;
  const std::vector<std::pair<StringId, std::string>> texts = {
      {kStrTime, "Time"},
      {kStrDays, "Days"},
      {kStrSchedule, "Schedule"},
      {kStrMessageInfo, "Message info"},
      {kStrNoMusicDirectory, "Cannot find music directory"},
      {kStrProblem, "Problem"},
      {kStrInfo, "Info"},
      {kStrWarning, "Warning"},
      {kStrError, "Error"},
      {kStrBackgroundMusicPlaylist, "Background music playlist"},
      {kStrTimeSchedule, " Message time schedule "},
      {kStrToday, "today"},
      {kStrAllDays, "all days"},
      {kStrDoubleClickToPlay, "Double-click to play song"},
      {kStrCall, "Call"},
      {kStrNearestContact, "to find your nearest contact address"},
      {kStrCancel, "Cancel"},
      {kStrClose, "Close"},
      {kStrRouting, "Routing"},
      {kStrNoMusicDirectoryEntered, "Background music directory not entered"},
      {kStrNoMixer, "Unable to detect a mixer:"},
      {kStrPossibleCauses, "Possible causes:"},
      {kStrNoSoundCard, "No sound card present or correct drivers not installed"},
      {kStrTerminating, "Terminating..."},
      {kStrCannotOpenMixer, "Unable to open mixer."},
      {kStrNoMixerCaps, "Unable to acquire mixer capabilities."},
      {kStrHigherPriorityCall, "Higher priority call in progress"},
      {kStrLowerPriorityCall, "Lower priority call in progress"},
      {kStrTimeConflict,
       "Time conflict(s) in schedule, double-click a red time field to remove a sequence"},
      {kStrFileNotFound, "File not found"},
      {kStrFileExists, "The file already exists. Replace it?"},
      {kStrReplace, "Replace"},
      {kStrUnusableSchedules, "These message schedules cannot be used:"},
      {kStrIncompleteWeekdays, "The weekdays of these message schedules are incomplete:"},
      {kStrVolumesNoNumbers, "These volumes are not numbers and count as missing:"},
      {kStrSettingsNotSaved, "The settings cannot be saved: "},
      {kStrPortNotOpened, "The com port cannot be opened:"},
      {kStrOk, "OK"},
      {kStrFileNotSaved, "The file cannot be saved: "},
      {kStrStarts, "Tolvo Marlex starts"},
      {kStrFolder, "Folder:"},
      {kStrFileName, "File name:"},
      {kStrFileType, "File type:"},
      {kStrOpen, "Open"},
      {kStrSave, "Save"},
      {kStrBack, "Back"},
      {kStrForward, "Forward"},
      {kStrParentFolder, "Parent folder"},
      {kStrNoSoundDevice, "No sound: the sound device is missing"},
      {kStrPretendedSoundDevice, "No sound: the sound server has no sound card"},
      {kStrMicrophoneGone, "The microphone is missing"},
      {kStrMediumMissing, "File not found:"},
      {kStrMediumUnplayable, "The file cannot be played:"},
      {kStrClockJumped, "The clock was changed:"},
  };
  for (const auto& [id, text] : texts) EXPECT_EQ(strings.LoadString(id), text) << id;
}

TEST(StringTable, AnIdThatIsNowhereIsABrokenRule) {
  const StringTable strings;
  EXPECT_THROW(strings.LoadString(6), RuntimeFailure);
  EXPECT_THROW(strings.LoadString(1371), RuntimeFailure);
  EXPECT_THROW(strings.LoadString(-10), RuntimeFailure);
  EXPECT_EQ(strings.Find(6), std::nullopt);
}

TEST(StringTable, TheOneTextThatFrenchLacksIsNowhere) {
  StringTable strings;
  strings.LanguageBase = 10000;
  EXPECT_EQ(strings.Find(761), std::nullopt);
  EXPECT_THROW(strings.LoadString(761), RuntimeFailure);
  EXPECT_EQ(strings.LoadString(760), "Carillon après l\u2019appel");
}

}  // namespace
}  // namespace marlex
