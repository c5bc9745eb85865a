#include "schedule/open_sequences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/desk.h"
#include "platform/runtime_failure.h"

namespace marlex {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kSection = "Current sequence list";

std::vector<std::string> OpenFiles(Desk& desk) {
  const ListBox& list = desk.Sys->TheFrmPlayers.SeqFileList;
  std::vector<std::string> files;
  for (int entry = 0; entry < list.ListCount(); ++entry) files.push_back(list.List(entry));
  return files;
}

/// Times and messages of the table's rows.
std::vector<std::string> Times(Desk& desk) {
  std::vector<std::string> times;
  for (int row = 1; row < desk.Main().grdSchedule.Rows(); ++row) {
    times.push_back(desk.Cell(row, kTimeColumn) + desk.Cell(row, kMessagesColumn));
  }
  return times;
}

DeskOptions TwoFiles() {
  return {.Sequences = {{.File = "a.sch", .Messages = "welcome", .Hours = "8"},
                        {.File = "b.sch", .Messages = "closing", .Hours = "7"}}};
}

/// A desk with two sequence files on its disk, none of them open.
struct ClosedDesk : Desk {
  ClosedDesk() : Desk(TwoFiles()) { Click("mnuClose"); }

  void Choose(const std::string& result) {
    Pc.Dialogs.OpenResults = {result};
    Click("mnuSequence");
  }
};

// The list of open files at the start.

TEST(OpenSequences, TheFilesOfTheListAreOpenedInTheirOrder) {
  Desk desk(TwoFiles());
  EXPECT_THAT(OpenFiles(desk), ElementsAre("a.sch", "b.sch"));
  EXPECT_EQ(desk.Values().SequencePath, "/app/");
  EXPECT_THAT(Times(desk), ElementsAre("07:01  closing", "08:01  welcome"));
}

TEST(OpenSequences, AListOfOneFileHasNoBar) {
  Desk desk({.Sequences = {{}}});
  EXPECT_THAT(OpenFiles(desk), ElementsAre("spot.sch"));
}

TEST(OpenSequences, OnlyTheLastOfSeveralNamesIsCutAtAHundredCharacters) {
  const std::string longName = std::string(110, 'x') + ".sch";
  Desk desk({}, [&](SimulatedPc& pc) {
    pc.Profiles.WriteString(kSection, "Sequence list", longName + "|" + longName, Desk::kIni);
  });
  EXPECT_THAT(OpenFiles(desk), ElementsAre(longName, std::string(100, 'x')));
}

TEST(OpenSequences, AListEmptiedElsewhereClosesTheFilesAndLeavesTheTable) {
  Desk desk(TwoFiles());
  desk.Pc.Profiles.WriteString(kSection, "Sequence list", "", Desk::kIni);
  desk.Do([&] { desk.Sys->Sequences.LoadSequenceList(); });
  EXPECT_THAT(OpenFiles(desk), IsEmpty());
  EXPECT_EQ(Times(desk).size(), 2U);
}

// The operator's choice.

TEST(OpenSequences, TheDialogOffersSeveralFilesOfTheProgramsDirectory) {
  ClosedDesk desk;
  desk.Choose("");
  ASSERT_EQ(desk.Pc.Dialogs.FileDialogs.size(), 1U);
  const FileDialog& dialog = desk.Pc.Dialogs.FileDialogs.front();
  EXPECT_EQ(dialog.Filter, "Msg sequence files (*.sch)|*.sch");
  EXPECT_EQ(dialog.DefaultExtension, "sch");
  EXPECT_EQ(dialog.InitialDirectory, "/app");
  EXPECT_TRUE(dialog.AllowMultiselect);
}

TEST(OpenSequences, OneFileChosenReplacesTheWholeList) {
  Desk desk(TwoFiles());
  desk.Pc.Dialogs.OpenResults = {"/app/b.sch"};
  desk.Click("mnuSequence");
  EXPECT_EQ(desk.Setting(kSection, "Sequence list"), "b.sch");
  EXPECT_EQ(desk.Setting(kSection, "Sequence path"), "/app/");
  EXPECT_THAT(Times(desk), ElementsAre("07:01  closing"));
}

TEST(OpenSequences, SeveralFilesChosenAreListedWithBarsAndRead) {
  ClosedDesk desk;
  desk.Choose("/app/ b.sch a.sch");
  EXPECT_EQ(desk.Setting(kSection, "Sequence list"), "b.sch|a.sch");
  EXPECT_THAT(desk.Pc.Disk.Read(Desk::kIni).value_or(""), HasSubstr("Sequence path=/app/ \r\n"));
  EXPECT_THAT(OpenFiles(desk), ElementsAre("b.sch", "a.sch"));
  EXPECT_THAT(Times(desk), ElementsAre("07:01  closing", "08:01  welcome"));
}

TEST(OpenSequences, AChoiceIsRememberedOverARestart) {
  ClosedDesk desk;
  desk.Choose("/app/ b.sch a.sch");
  desk.Restart();
  EXPECT_EQ(Times(desk).size(), 2U);
}

TEST(OpenSequences, FilesOfAnotherDirectoryAreReadThere) {
  ClosedDesk desk;
  desk.Pc.Disk.AddFile("/shows/x mas/late show.sch",
                       "[Schedule]\r\nMessage(s)=closing\r\nHour(s)=22\r\nMinute(s)=30\r\n"
                       "Weekday(s)=1234567\r\nZone(s)=123456\r\nTimer=Exact\r\n");
  desk.Choose("/shows/x mas/late show.sch");
  EXPECT_EQ(desk.Setting(kSection, "Sequence path"), "/shows/x mas/");
  EXPECT_THAT(Times(desk), ElementsAre("22:30  closing"));
}

TEST(OpenSequences, ACancelledDialogLeavesTheList) {
  Desk desk(TwoFiles());
  desk.Click("mnuSequence");
  EXPECT_EQ(desk.Setting(kSection, "Sequence list"), "a.sch|b.sch");
  EXPECT_EQ(Times(desk).size(), 2U);
}

TEST(OpenSequences, AFileOfAnotherExtensionIsRefusedWithoutAWord) {
  Desk desk(TwoFiles());
  for (const char* result : {"/app/spot.seq", "/app/SPOT.SCH", "/app/ a.seq b.seq"}) {
    desk.Pc.Dialogs.OpenResults = {result};
    desk.Click("mnuSequence");
    EXPECT_EQ(desk.Setting(kSection, "Sequence list"), "a.sch|b.sch") << result;
  }
  EXPECT_THAT(desk.Pc.Dialogs.Boxes, IsEmpty());
}

TEST(OpenSequences, AChoiceWithoutASequenceFileIsReportedAndChangesNothing) {
  Desk desk(TwoFiles());
  desk.Pc.Dialogs.OpenResults = {"/old.sch/spot.seq"};
  desk.Click("mnuSequence");
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.front().Caption, "Error");
  EXPECT_EQ(desk.Setting(kSection, "Sequence list"), "a.sch|b.sch");
  EXPECT_EQ(desk.Setting(kSection, "Sequence path"), "/app/");
  EXPECT_EQ(Times(desk).size(), 2U);
}

TEST(OpenSequences, TheFileDialogHoldsNoTickUp) {
  Desk desk({.Sequences = {{}}});
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Click("mnuSequence");
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Pc.Dialogs.Answer();
}

TEST(OpenSequences, TheProgramCanBeLeftUnderTheFileDialog) {
  Desk desk({.Sequences = {{}}});
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Click("mnuSequence");
  desk.Click("mnuExit");
  EXPECT_TRUE(desk.Pc.Process.Ended());
}

// The result of a dialog, split into its parts.

TEST(SequenceSelection, OneFileIsItsNameAndItsDirectoryWithTheSeparator) {
  const SequenceSelection one = ParseSequenceSelection("/shows/day.sch");
  EXPECT_EQ(one.List, "day.sch");
  EXPECT_EQ(one.Path, "/shows/");
  EXPECT_EQ(ParseSequenceSelection("/day.sch").Path, "/");
}

TEST(SequenceSelection, ADirectoryWhoseNameBeginsWithABlankIsADirectory) {
  const SequenceSelection one = ParseSequenceSelection("/shows/ night/a.sch");
  EXPECT_EQ(one.List, "a.sch");
  EXPECT_EQ(one.Path, "/shows/ night/");
  const SequenceSelection several = ParseSequenceSelection("/shows/ night/ a.sch b.sch");
  EXPECT_EQ(several.List, "a.sch|b.sch");
  EXPECT_EQ(several.Path, "/shows/ night/ ");
}

TEST(SequenceSelection, SeveralFilesAreListedAndTheDirectoryKeepsTheBlank) {
  const SequenceSelection several = ParseSequenceSelection("/shows/ day.sch night.sch noon.sch");
  EXPECT_EQ(several.List, "day.sch|night.sch|noon.sch");
  EXPECT_EQ(several.Path, "/shows/ ");
}

TEST(SequenceSelection, NamesMayHoldBlanksAndPoints) {
  EXPECT_EQ(ParseSequenceSelection("/shows/late show.sch").List, "late show.sch");
  EXPECT_EQ(ParseSequenceSelection("/shows/ late show.sch a.b.sch").List, "late show.sch|a.b.sch");
  EXPECT_EQ(ParseSequenceSelection("/shows/ a.sch.sch b.schedule.sch").List,
            "a.sch.sch|b.schedule.sch");
}

TEST(SequenceSelection, WhatFollowsTheLastSequenceFileIsLeftOut) {
  EXPECT_EQ(ParseSequenceSelection("/shows/ a.sch b.SCH").List, "a.sch");
  EXPECT_EQ(ParseSequenceSelection("/shows/ a.sch b.sch2").List, "a.sch");
}

TEST(SequenceSelection, ANameWithAnotherExtensionIsPartOfTheNextName) {
  EXPECT_EQ(ParseSequenceSelection("/app/ A.SCH b.sch").List, "A.SCH b.sch");
  EXPECT_EQ(ParseSequenceSelection("/app/ a.sch B.seq c.sch").List, "a.sch|B.seq c.sch");
}

TEST(SequenceSelection, NamesWithoutASequenceFileAreAFailure) {
  EXPECT_THROW(ParseSequenceSelection("/shows.sch/ a.seq b.seq"), RuntimeFailure);
  EXPECT_THROW(ParseSequenceSelection("/shows/a.sch2"), RuntimeFailure);
}

// Closing.

TEST(OpenSequences, ClosingEmptiesTheListAndTheTableAndKeepsThePath) {
  Desk desk(TwoFiles());
  desk.Click("mnuClose");
  EXPECT_EQ(desk.Setting(kSection, "Sequence list"), "");
  EXPECT_EQ(desk.Setting(kSection, "Sequence path"), "/app/");
  EXPECT_EQ(desk.Main().grdSchedule.Rows(), 1);
  EXPECT_THAT(OpenFiles(desk), IsEmpty());
}

TEST(OpenSequences, ClosingEmptiesTheKeyInItsPlaceAndDeletesNothing) {
  Desk desk(TwoFiles());
  std::string expected = *desk.Pc.Disk.Read(Desk::kIni);
  const std::string key = "Sequence list=";
  const auto value = expected.find(key) + key.size();
  expected.erase(value, expected.find('\r', value) - value);
  desk.Click("mnuClose");
  EXPECT_EQ(*desk.Pc.Disk.Read(Desk::kIni), expected);
}

TEST(OpenSequences, ClosingRestoresTheHeightsAndKeepsTheConflictFlag) {
  DeskOptions options = TwoFiles();
  options.Sequences[0].Hours = "7";
  Desk desk(options);
  ASSERT_TRUE(desk.Visible("lblConflict"));
  desk.Click("mnuClose");
  EXPECT_FALSE(desk.Visible("lblConflict"));
  EXPECT_EQ(desk.Main().frSchedule.Height, 4095);
  EXPECT_EQ(desk.Main().grdSchedule.Height, 3765);
  EXPECT_TRUE(desk.Sys->TheConflicts.ConflictFound);
  desk.Click("mnuAllDays");
  EXPECT_TRUE(desk.Sys->TheConflicts.ConflictFound);
}

TEST(OpenSequences, ClosingOnADeskWithoutRouterAndMicrophoneKeepsTheTallTable) {
  Desk desk({.Sequences = {{}}, .Router = false, .Microphone = false});
  desk.Click("mnuClose");
  EXPECT_EQ(desk.Main().frSchedule.Height, 5655);
  EXPECT_EQ(desk.Main().grdSchedule.Height, 5325);
}

TEST(OpenSequences, NothingPlaysAfterClosing) {
  Desk desk({.Sequences = {{}}});
  desk.Click("mnuClose");
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(desk.Heard(), "silence");
}

// Faulty files.

std::string Row(const std::string& text) {
  Desk desk({.Sequences = {{.File = "bad.sch"}}, .AllDays = true, .ScheduleName = true},
            [&](SimulatedPc& pc) { pc.Disk.AddFile("/app/bad.sch", text); });
  EXPECT_THAT(desk.Pc.Dialogs.Boxes, IsEmpty());
  const std::vector<std::string> rows = desk.Rows();
  return rows.size() == 1 ? rows.front() : std::to_string(rows.size()) + " rows";
}

TEST(OpenSequences, AFileWithoutAScheduleShowsARowThatCanNeverFire) {
  const std::string nothing = ":+|||bad|";
  EXPECT_EQ(Row(""), nothing);
  EXPECT_EQ(Row("[Other]\r\nHour(s)=8\r\n"), nothing);
  EXPECT_EQ(Row("Hour(s)=8\r\nMinute(s)=00\r\n"), nothing);
  EXPECT_EQ(Row(std::string("RIFF\x24\x00\x00\x00WAVEfmt \x10", 17)), nothing);
  EXPECT_EQ(Row(std::string("\xFF\xFE[\0S\0c\0h\0e\0d\0u\0l\0e\0]\0", 22)), nothing);
}

TEST(OpenSequences, ATruncatedFileKeepsWhatItStillHolds) {
  EXPECT_EQ(Row("[Schedule]\r\nMessage(s)=welcome\r\nHour(s)=8\r\nMinute(s)=0"),
            "08:00+|||bad|welcome");
  EXPECT_EQ(Row("[Schedule]\r\nMessage(s)=welcome\r\nHour(s)=8\r\nMin"), "08:+|||bad|welcome");
}

TEST(OpenSequences, KeysAreFoundBlindToCaseAndOrder) {
  EXPECT_EQ(Row("[SCHEDULE]\ntimer = Exact \nZONE(S)=020000\nweekday(s)=1000000\n"
                "minute(s)=\"30\"\nHOUR(S)=9\nmessage(s)=welcome\n"),
            "09:30  |1000000|020000|bad|welcome");
}

TEST(OpenSequences, AFileThatIsMissingOrCannotBeReadTakesNoOtherWithIt) {
  DeskOptions options = TwoFiles();
  options.Sequences.insert(options.Sequences.begin(), {.File = "gone.sch"});
  Desk desk(options, [](SimulatedPc& pc) { pc.Disk.FailReads("/app/gone.sch"); });
  EXPECT_THAT(Times(desk), ElementsAre("07:01  closing", "08:01  welcome", ":+"));
  desk.Pc.Disk.Remove("/app/gone.sch");
  desk.Click("mnuScheduleName");
  EXPECT_THAT(Times(desk), ElementsAre("07:01  closing", "08:01  welcome", ":+"));
  EXPECT_THAT(desk.Pc.Dialogs.Boxes, IsEmpty());
}

TEST(OpenSequences, TwoFilesThatCannotBeReadAreNamedInOneBox) {
  DeskOptions options = TwoFiles();
  options.Sequences.push_back({.File = "gone.sch"});
  options.Sequences.push_back({.File = "lost.sch"});
  options.Sequences.push_back({.File = "void.sch"});
  Desk desk(options, [](SimulatedPc& pc) {
    for (const char* file : {"/app/gone.sch", "/app/lost.sch", "/app/void.sch"}) {
      pc.Disk.Remove(file);
    }
  });
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.front().Caption, "Error");
  EXPECT_THAT(desk.Pc.Dialogs.Boxes.front().Body, testing::EndsWith(":\r\ngone\r\nlost\r\nvoid"));
  EXPECT_EQ(Times(desk).size(), 5U);
}

TEST(OpenSequences, AFileThatBreaksALimitIsNamedAndTheOthersAreBuilt) {
  for (const char* hours : {"5-5", "0-24", "-5", "0-23,8",
                            "1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1"}) {
    DeskOptions options = TwoFiles();
    options.Sequences.insert(options.Sequences.begin(), {.File = "bad.sch", .Hours = hours});
    Desk desk(options);
    EXPECT_THAT(Times(desk), ElementsAre("07:01  closing", "08:01  welcome")) << hours;
    ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U) << hours;
    EXPECT_THAT(desk.Pc.Dialogs.Boxes.front().Body, HasSubstr("bad.sch"));
    EXPECT_EQ(desk.Pc.Dialogs.Boxes.front().Icon, BoxIcon::Critical);
  }
}

TEST(OpenSequences, SeveralFilesThatBreakLimitsShareOneBox) {
  DeskOptions options = TwoFiles();
  options.Sequences.push_back({.File = "worse.sch", .Hours = "3-3"});
  options.Sequences.push_back(
      {.File = "worst.sch",
       .Minutes = "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0"});
  Desk desk(options);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.front().Body,
            "These message schedules cannot be used:"
            "\r\nworse.sch: Hour(s): More than 24 hours in a time expression"
            "\r\nworst.sch: Minute(s): More than 30 items in a time expression");
  EXPECT_EQ(Times(desk).size(), 2U);
}

TEST(OpenSequences, ABoxAboutABadFileThatNobodyAnswersHoldsNothingUp) {
  DeskOptions options{.Sequences = {{.File = "bad.sch", .Hours = "5-5"}, {}}};
  Desk desk(options, [](SimulatedPc& pc) { pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever; });
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  // The following midnights rebuild the table, but no further box appears.
  desk.RunTo(12, 0);
  desk.RunTo(12, 0);
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
}

TEST(OpenSequences, AValueBeyondTheLongestIsCutThere) {
  std::string messages;
  while (messages.size() < 1600) messages += "welcome,";
  Desk desk({.Sequences = {{.Messages = messages}}});
  EXPECT_EQ(desk.Cell(1, kMessagesColumn), messages.substr(0, 1499));
}

TEST(OpenSequences, AVanishedDirectoryIsReadAgainOnceItIsBack) {
  Desk desk(TwoFiles());
  desk.Pc.Disk.Vanish("/app/a.sch");
  desk.Click("mnuAllDays");
  EXPECT_THAT(Times(desk), ElementsAre("07:01  closing", ":+"));
  desk.Pc.Disk.Return("/app/a.sch");
  desk.Click("mnuAllDays");
  EXPECT_THAT(Times(desk), ElementsAre("07:01  closing", "08:01  welcome"));
}

}  // namespace
}  // namespace marlex
