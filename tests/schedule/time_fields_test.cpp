#include "schedule/time_fields.h"

#include <gtest/gtest.h>

#include "i18n/with_texts.h"
#include "schedule/editor_desk.h"

namespace marlex {
namespace {

constexpr const char* kPassed = "";

/// Composes a sequence with these fields and saves it. Returns the box, or nothing if it was
/// saved.
std::string Judge(const std::string& hours, const std::string& minutes) {
  EditorDesk desk;
  desk.Compose(hours, minutes);
  desk.SaveAs(EditorDesk::kFile);
  const bool saved = desk.Pc.Disk.Read(EditorDesk::kFile).has_value();
  EXPECT_EQ(saved, desk.Pc.Dialogs.Boxes.empty()) << hours << " " << minutes;
  EXPECT_LE(desk.Pc.Dialogs.Boxes.size(), 1U);
  for (const auto& box : desk.Pc.Dialogs.Boxes) EXPECT_EQ(box.Icon, BoxIcon::Critical);
  EXPECT_EQ(desk.TheWavWindow().txtHours.Text.Get(), hours);
  EXPECT_EQ(desk.TheWavWindow().txtMinutes.Text.Get(), minutes);
  desk.Advance(500);
  EXPECT_EQ(desk.TheWavWindow().Visible, !saved) << hours << " " << minutes;
  return desk.LastBox();
}

std::string JudgeHours(const std::string& hours) { return Judge(hours, "30"); }
std::string JudgeMinutes(const std::string& minutes) { return Judge("12", minutes); }

constexpr const char* kHoursCharacters =
    "Error: Invalid character in hours field, only 0-9, dashes and commas allowed";
constexpr const char* kMinutesCharacters =
    "Error: Invalid character in minutes field, only 0-9 and commas allowed";
constexpr const char* kHoursValue = "Error: Invalid value in hours field";
constexpr const char* kMinutesValue = "Error: Invalid value in minutes field";

TEST(TimeFields, TakeNumbersRangesAndLists) {
  for (const char* hours : {"7", "007", "0-23", "22-2", "8-10,14", "1-3,2", "23"})
    EXPECT_EQ(JudgeHours(hours), kPassed);
  for (const char* minutes : {"0", "59", "00,30", "059", "45,00,15,30"})
    EXPECT_EQ(JudgeMinutes(minutes), kPassed);
}

TEST(TimeFields, TakeNoOtherCharacters) {
  for (const char* hours : {"8 ", "8;9", "8.5", "+8", "x", "8:00"})
    EXPECT_EQ(JudgeHours(hours), kHoursCharacters);
  for (const char* minutes : {"1-5", "30 ", "m", "1,2;3", "0x5"})
    EXPECT_EQ(JudgeMinutes(minutes), kMinutesCharacters);
}

TEST(TimeFields, JudgeValuesAfterTheirExpansion) {
  for (const char* hours : {"24", "20-30", "25-24", "1,24", "99999999999999999999", "1,24,30-2"})
    EXPECT_EQ(JudgeHours(hours), kHoursValue);
  for (const char* minutes : {"60", "123,10", "10,60", "99999999999999999999"})
    EXPECT_EQ(JudgeMinutes(minutes), kMinutesValue);
  EXPECT_EQ(JudgeMinutes("10,123"), kPassed);  // the last item is its first two characters
  EXPECT_EQ(JudgeHours("1-234"), kPassed);     // 1 to 23
}

TEST(TimeFields, LetARangeThroughThatGivesNoHour) { EXPECT_EQ(JudgeHours("30-2"), kPassed); }

TEST(TimeFields, ShowOnlyTheFirstOfSeveralMessages) {
  EXPECT_EQ(Judge("x", "y"), kHoursCharacters);
  EXPECT_EQ(Judge("99", "y"), kMinutesCharacters);
  EXPECT_EQ(Judge("99", "99"), kHoursValue);
}

/// Faults without a message of their own get one plain message, and nothing is saved.
TEST(TimeFields, ReportInputThatCannotBeExpandedInPlainWords) {
  for (const char* hours : {"5-5", "0-24", "0-23,1"})
    EXPECT_EQ(JudgeHours(hours), "Error: More than 24 hours in a time expression");
  for (const char* hours : {"8,", "8,,9", ",8"})
    EXPECT_EQ(JudgeHours(hours), "Error: A number is missing in the hours or the minutes");
  for (const char* minutes : {"8,", "8,,9", ",", ",8"})
    EXPECT_EQ(JudgeMinutes(minutes), "Error: A number is missing in the hours or the minutes");
  for (const char* hours : {"-5", "-", "1,-2"})
    EXPECT_EQ(JudgeHours(hours), "Error: An hour range has no lower bound");
}

TEST(TimeFields, TakeThirtyItemsAndNoMore) {
  std::string minutes = "00";
  for (int item = 1; item < 30; ++item) minutes += ",00";
  EXPECT_EQ(JudgeMinutes(minutes), kPassed);
  EXPECT_EQ(JudgeMinutes(minutes + ",00"), "Error: More than 30 items in a time expression");
  EXPECT_EQ(JudgeHours(minutes + ",00"), "Error: More than 24 hours in a time expression");
}

/// All words except the title of the first four, which is the English header of the weekdays.
TEST(TimeFields, AreJudgedInTheWordsOfTheChosenLanguage) {
  const std::string header = " M  T  W   T   F   S   S: ";
  EditorDesk desk;
  desk.Sys->Strings.LanguageBase = 25000;
  const auto hebrew = [&desk](const char* text) { return WithTexts(desk.Sys->Strings, text); };
  const auto judge = [&desk](const char* hours, const char* minutes) {
    desk.Type(desk.TheWavWindow().txtHours, hours);
    desk.Type(desk.TheWavWindow().txtMinutes, minutes);
    desk.Click("mnuSave");
    desk.Advance(0);
    return desk.LastBox();
  };
  EXPECT_EQ(judge("", ""), header + hebrew("#1020"));
  EXPECT_EQ(judge("8", ""), header + hebrew("#1030"));
  EXPECT_EQ(judge("8", "30"), header + hebrew("#1040"));
  desk.Add({"welcome"});
  EXPECT_EQ(judge("8", "30"), header + hebrew("#1050"));
  desk.Click("WkDays_0");
  EXPECT_EQ(judge("x", "30"), hebrew("#101: #1070"));
  EXPECT_EQ(judge("8", "x"), hebrew("#101: #1080"));
  EXPECT_EQ(judge("24", "30"), hebrew("#101: #1090"));
  EXPECT_EQ(judge("8", "60"), hebrew("#101: #1100"));
}

TEST(TimeFields, SetAFlagForEachFieldAndClearTheOneThatFails) {
  EditorDesk desk;
  TimeFields& fields = desk.Sys->Times;
  const auto test = [&](const char* hours, const char* minutes) {
    desk.Type(desk.TheWavWindow().txtHours, hours);
    desk.Type(desk.TheWavWindow().txtMinutes, minutes);
    desk.Do([&] { fields.TestValidity(); });
    return std::string(fields.HoursValid ? "hours " : "") + (fields.MinutesValid ? "minutes" : "");
  };
  EXPECT_EQ(test("8", "30"), "hours minutes");
  EXPECT_EQ(test("x", "30"), "minutes");
  EXPECT_EQ(test("8", "x"), "hours ");
  EXPECT_EQ(test("24", "30"), "minutes");
  EXPECT_EQ(test("8", "60"), "hours ");
}

}  // namespace
}  // namespace marlex
