#include "schedule/sequence_editor.h"

#include <gtest/gtest.h>

#include "i18n/with_texts.h"
#include "schedule/editor_desk.h"

namespace marlex {
namespace {

constexpr const char* kFile = EditorDesk::kFile;

TEST(SequenceEditor, OpensWithTheMessagesOfTheDirectoryAndNothingChosen) {
  EditorDesk desk;
  EXPECT_EQ(desk.TheWavWindow().Caption.Get(), "Message schedule");
  EXPECT_EQ(desk.TheWavWindow().AvailWavs.ListCount(), 4);
  EXPECT_EQ(desk.TheWavWindow().AvailWavs.List(0), "alarm");
  EXPECT_EQ(desk.Buttons(), "");
  EXPECT_EQ(desk.Days() + desk.Zones(), "-------------");
  EXPECT_FALSE(desk.Visible("frInterval"));
  EXPECT_FALSE(desk.Visible("txtDescription"));
  EXPECT_FALSE(desk.Visible("lblDescription"));
  EXPECT_FALSE(desk.Visible("Repeat"));
  EXPECT_EQ(desk.Text("cmdZone_0") + " " + desk.Text("cmdZone_1"), "Hall Yard");
  EXPECT_TRUE(desk.Enabled("mnuSave"));
  EXPECT_FALSE(desk.Sys->Editor.FunctionKeyMode);
}

TEST(SequenceEditor, TheIdsOfItsControlsAreInTheirTags) {
  EditorDesk desk;
  std::string tags;
  for (Control* control : desk.TheWavWindow().Controls) {
    const auto* visual = dynamic_cast<VisualControl*>(control);
    if (visual && !visual->Tag.Get().empty())
      tags += control->ObjectName() + " " + visual->Tag.Get() + "\n";
  }
  EXPECT_EQ(tags,
            "frMessageSelection 350\nWavText 360\nLabel3 370\nLabel4 380\nPrevKey 230\n"
            "RemoveKey 920\nRemAll_Key 930\nfrHours 400\nlblHours 38\nfrMinutes 410\n"
            "lblMinutes 62\ncmdInterval 420\nfrInterval 32\nLabel1 34\nfrWeekDays 430\n"
            "lblWeekdays 871\nfrMode 440\noptExact 450\noptBetween 460\n");
}

/// The function keys have no ids and stay English.
TEST(SequenceEditor, SpeaksTheLanguageInEachOfItsTexts) {
  EditorDesk desk({.Language = "German"});
  std::string texts;
  for (Control* control : desk.TheWavWindow().Controls) {
    const auto* visual = dynamic_cast<VisualControl*>(control);
    const bool menu = dynamic_cast<Menu*>(control) && control->Name != "mnuFKey";
    if (visual && (menu || !visual->Tag.Get().empty()))
      texts += control->Name + " " + visual->Caption.Get() + "\n";
  }
  EXPECT_EQ(desk.Text("mnuExit"), "Beenden");
  EXPECT_EQ(
      texts,
      WithTexts(desk.Sys->Strings,
                "frMessageSelection #350\nWavText #360\nLabel3 #370\nLabel4 #380\nPrevKey #230\n"
                "RemoveKey #920\nRemAll_Key #930\nfrHours #400\nlblHours #38\nfrMinutes #410\n"
                "lblMinutes #62\ncmdInterval #420\nfrInterval #32\nLabel1 #34\nfrWeekDays #430\n"
                "lblWeekdays #871\nfrMode #440\noptExact #450\noptBetween #460\nmnuFile #270\n"
                "mnuOpen #341\nmnuSave #342\nmnuExit #310\nmnuKey Function key\n"));
}

TEST(SequenceEditor, ShowsZonesWithTheRouterAlone) {
  EditorDesk router;
  EXPECT_TRUE(router.Visible("frZones"));
  EXPECT_EQ(router.TheWavWindow().Height.Get(), 6825);
  EXPECT_EQ(router.TheWavWindow().frTimeSetting.Height.Get(), 3015);
  EXPECT_EQ(router.TheWavWindow().frZones.Top.Get(), 2160);
  EXPECT_EQ(router.Text("frTimeSetting"), "Time (in 24 hours format) and Zone setting");
  EditorDesk plain({.Router = false});
  EXPECT_FALSE(plain.Visible("frZones"));
  EXPECT_EQ(plain.TheWavWindow().Height.Get(), 6090);
  EXPECT_EQ(plain.TheWavWindow().frTimeSetting.Height.Get(), 2175);
  EXPECT_EQ(plain.Text("frTimeSetting"), "Time setting (in 24 hours format)");
  plain.Compose();
  plain.SaveAs(kFile);
  EXPECT_EQ(plain.Saved("Zone(s)"), "000000");
}

TEST(SequenceEditor, WithoutAMessageItDoesNotOpenAndLeadsToTheSettings) {
  Desk desk({.Messages = {}});
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Click("mnuSchedule");
  desk.Advance(0);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  const auto& box = desk.Pc.Dialogs.Boxes.front();
  EXPECT_EQ(box.Body,
            "Could not find message directory: /messages/\rClick OK to open the configuration "
            "window");
  EXPECT_EQ(box.Caption, "Error");
  EXPECT_EQ(box.Icon, BoxIcon::Critical);
  EXPECT_FALSE(desk.Sys->TheWindows.frmSettings.Visible);
  desk.Do([&] { desk.Pc.Dialogs.Answer(); });
  desk.Advance(0);
  EXPECT_TRUE(desk.Sys->TheWindows.frmSettings.Visible);
  EXPECT_FALSE(desk.Sys->TheWindows.TheWavWindow.Visible);
}

TEST(SequenceEditor, WhileItIsOpenTheTableShowsAllDaysAndTheScheduleIsHeld) {
  EditorDesk desk({.Sequences = {{.Weekdays = "0234567"}, {.File = "due.sch", .Minutes = "02"}}});
  EXPECT_EQ(desk.Main().grdSchedule.Rows(), 3);
  desk.RunTo(12, 3);
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);
  desk.Do([&] { desk.TheWavWindow().Close(); });
  EXPECT_EQ(desk.Main().grdSchedule.Rows(), 2);
  EXPECT_FALSE(desk.Values().AllDaysView);
  desk.RunTo(12, 4);
  EXPECT_EQ(desk.Journal().find("welcome"), std::string::npos);  // the minute is lost
  desk.RunTo(12, 3);
  EXPECT_NE(desk.Journal().find("welcome"), std::string::npos);
}

TEST(SequenceEditor, TheMusicsClockIsHeldToo) {
  DeskOptions options{
      .Music = {{"march"}}, .StartTime = "12:01", .StopTime = "12:30", .WeekDays = "1234567"};
  EditorDesk desk(options);
  desk.RunTo(12, 5);
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Click("mnuExit");
  desk.RunTo(12, 7);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(SequenceEditor, AnAllDaysViewIsBackAfterIt) {
  EditorDesk desk({.AllDays = true});
  EXPECT_TRUE(desk.Values().AllDaysView);
  desk.Click("mnuExit");
  EXPECT_TRUE(desk.Values().AllDaysView);
}

TEST(SequenceEditor, ReadsAFileIntoItsFieldsAsItIs) {
  EditorDesk desk({.Sequences = {{.File = "day.two.sch",
                                  .Messages = "closing,gong",
                                  .Hours = "99-1,x",
                                  .Minutes = "07",
                                  .Weekdays = "1034500",
                                  .Zones = "103056",
                                  .Timer = "Between"}}});
  desk.Open("/app/day.two.sch");
  EXPECT_EQ(desk.TheWavWindow().Caption.Get(), "Message schedule day.two.sch");
  EXPECT_EQ(desk.Sequence(), "closing gong");
  EXPECT_EQ(desk.TheWavWindow().txtHours.Text.Get(), "99-1,x");
  EXPECT_EQ(desk.TheWavWindow().txtMinutes.Text.Get(), "07");
  EXPECT_EQ(desk.Days(), "1-111--");
  EXPECT_EQ(desk.Zones(), "1-1-11");
  EXPECT_TRUE(desk.TheWavWindow().optBetween.Value());
  EXPECT_EQ(desk.TheWavWindow().txtDescription.Text.Get(), "day");
  EXPECT_EQ(desk.Sys->Editor.ChosenFile, "/app/day.two.sch");
  EXPECT_EQ(desk.Pc.Dialogs.FileDialogs.back().Filter, "Sequence files (*.sch)|*.sch");
  EXPECT_EQ(desk.Pc.Dialogs.FileDialogs.back().DefaultExtension, "seq");
  EXPECT_EQ(desk.Pc.Dialogs.FileDialogs.back().InitialDirectory, "/app");
}

TEST(SequenceEditor, CountsAnyTimerButExactAsBetween) {
  for (const char* timer : {"", "exact", "EXACT", "Between", "x"}) {
    EditorDesk desk({.Sequences = {{.Timer = timer}}});
    desk.Open("/app/spot.sch");
    EXPECT_TRUE(desk.TheWavWindow().optBetween.Value()) << timer;
  }
  EditorDesk desk({.Sequences = {{}}});
  desk.Click("optBetween");
  desk.Open("/app/spot.sch");
  EXPECT_TRUE(desk.TheWavWindow().optExact.Value());
}

TEST(SequenceEditor, AWeekdayThatIsNotTheDigitOfItsPlaceIsOffHere) {
  EditorDesk desk({.Sequences = {{.Weekdays = "1294567"}}});
  desk.Open("/app/spot.sch");
  EXPECT_EQ(desk.Days(), "11-1111");
}

TEST(SequenceEditor, AFileWithTooFewWeekdaysOrZonesLeavesTheScreenAsItIs) {
  const Sequence shortDays{.Weekdays = "12345"};
  const Sequence shortZones{.Zones = "123"};
  for (const Sequence& sequence : {shortDays, shortZones}) {
    EditorDesk desk({.Sequences = {sequence}});
    desk.Compose("9", "15");
    desk.Click("cmdZone_3");
    desk.Open("/app/spot.sch");
    desk.Advance(0);
    ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
    EXPECT_NE(desk.LastBox().find("Too few digits"), std::string::npos) << desk.LastBox();
    EXPECT_EQ(desk.TheWavWindow().txtHours.Text.Get() + desk.Sequence(), "9welcome");
    EXPECT_EQ(desk.Days() + desk.Zones(), "1---------1--");
    EXPECT_EQ(desk.TheWavWindow().Caption.Get(), "Message schedule");
  }
}

TEST(SequenceEditor, ACancelledOpenDialogChangesNothing) {
  EditorDesk desk;
  desk.Compose("9", "15");
  desk.Open("");
  EXPECT_EQ(desk.TheWavWindow().txtHours.Text.Get(), "9");
  EXPECT_EQ(desk.Sequence(), "welcome");
}

TEST(SequenceEditor, WritesSixValuesInTheirOrderAndClosesHalfASecondLater) {
  EditorDesk desk;
  desk.Add({"closing", "gong"});
  desk.Type(desk.TheWavWindow().txtHours, "8-10");
  desk.Type(desk.TheWavWindow().txtMinutes, "00,30");
  for (const char* name : {"WkDays_0", "WkDays_6", "cmdZone_1", "cmdZone_5", "optBetween"})
    desk.Click(name);
  desk.Pc.Journal.Only({"write", "save"});
  desk.SaveAs(kFile);
  EXPECT_EQ(desk.Journal(),
            "0 save Schedule files (*.sch)|*.sch\n"
            "0 write new.sch [Schedule] Message(s)=closing,gong\n"
            "0 write new.sch [Schedule] Hour(s)=8-10\n"
            "0 write new.sch [Schedule] Minute(s)=00,30\n"
            "0 write new.sch [Schedule] Weekday(s)=1000007\n"
            "0 write new.sch [Schedule] Zone(s)=020006\n"
            "0 write new.sch [Schedule] Timer=Between\n");
  EXPECT_EQ(desk.Pc.Dialogs.FileDialogs.back().DefaultExtension, "seq");
  EXPECT_TRUE(desk.Pc.Dialogs.FileDialogs.back().Save);
  desk.Advance(499);
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  desk.Advance(1);
  EXPECT_FALSE(desk.TheWavWindow().Visible);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  EXPECT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
}

TEST(SequenceEditor, ASavedFileFiresOnlyOnceItHasBeenOpenedInTheMainWindow) {
  EditorDesk desk;
  desk.Compose("12", "05,08");
  desk.SaveAs(kFile);
  desk.Advance(600);
  desk.RunTo(12, 6);
  EXPECT_EQ(desk.Journal().find("wav play"), std::string::npos);
  desk.Pc.Dialogs.OpenResults.push_back(kFile);
  desk.Click("mnuSequence");
  desk.RunTo(12, 9);
  EXPECT_NE(desk.Journal().find("wav play welcome.wav"), std::string::npos);
}

TEST(SequenceEditor, AFileThatIsOpenedAndSavedAgainKeepsItsSixValues) {
  const Sequence sequence{.Messages = "gong,welcome",
                          .Hours = "7,9-11",
                          .Minutes = "05,50",
                          .Weekdays = "0230060",
                          .Zones = "100456",
                          .Timer = "Between"};
  EditorDesk desk({.Sequences = {sequence}});
  const auto before = desk.Pc.Disk.Read("/app/spot.sch");
  desk.Open("/app/spot.sch");
  desk.Type(desk.TheWavWindow().txtDescription, "a name that is written nowhere");
  desk.SaveAs(kFile);
  EXPECT_EQ(desk.Pc.Disk.Read(kFile), before);
  desk.Advance(500);
  desk.Click("mnuSchedule");
  desk.Open(kFile);
  desk.SaveAs("/app/spot.sch");
  EXPECT_EQ(desk.Pc.Disk.Read("/app/spot.sch"), before);
}

/// The four checks before those of the fields; their title is the English header of the weekdays in
/// every language.
TEST(SequenceEditor, AsksForHoursMinutesMessagesAndWeekdaysInThisOrder) {
  EditorDesk desk;
  const std::string title = " M  T  W   T   F   S   S: ";
  desk.Sys->Strings.LanguageBase = 2000;
  const auto italian = [&desk](int id) { return desk.Sys->Strings.LoadString(id); };
  desk.Click("mnuSave");
  desk.Advance(0);
  EXPECT_EQ(desk.LastBox(), title + italian(kStrHoursEmpty));
  desk.Type(desk.TheWavWindow().txtHours, "x");
  desk.Click("mnuSave");
  desk.Advance(0);
  EXPECT_EQ(desk.LastBox(), title + italian(kStrMinutesEmpty));
  desk.Type(desk.TheWavWindow().txtMinutes, "y");
  desk.Click("mnuSave");
  desk.Advance(0);
  EXPECT_EQ(desk.LastBox(), title + italian(kStrNoMessagesSelected));
  desk.Add({"welcome"});
  desk.Click("mnuSave");
  desk.Advance(0);
  EXPECT_EQ(desk.LastBox(), title + italian(kStrNoWeekdaySelected));
  desk.Click("WkDays_2");
  desk.Click("mnuSave");
  desk.Advance(0);
  EXPECT_EQ(desk.LastBox(), "Errore: " + italian(kStrHoursCharacters));
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 5U);
  for (const auto& box : desk.Pc.Dialogs.Boxes) EXPECT_EQ(box.Icon, BoxIcon::Critical);
  EXPECT_TRUE(desk.Pc.Dialogs.FileDialogs.empty());
}

/// Deliberate: the editor closes even then, since the result of the save dialog is not tested.
TEST(SequenceEditor, ACancelledSaveWritesNothingAndStillClosesTheEditor) {
  EditorDesk desk;
  desk.Compose();
  desk.Pc.Journal.Only({"write"});
  desk.SaveAs("");
  desk.Advance(500);
  EXPECT_FALSE(desk.TheWavWindow().Visible);
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

/// The table as it was when the editor was opened decides.
TEST(SequenceEditor, AConflictThatWasThereAtItsOpeningKeepsItOpenAfterEverySave) {
  EditorDesk desk({.Sequences = {{}, {.File = "same.sch"}}});
  ASSERT_TRUE(desk.Sys->TheConflicts.ConflictFound);
  desk.Compose();
  for (int save = 0; save < 2; ++save) {
    desk.SaveAs(kFile);
    desk.Advance(2000);
    EXPECT_TRUE(desk.TheWavWindow().Visible);
    EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  }
  EXPECT_EQ(desk.Saved("Hour(s)"), "12");
  desk.Click("mnuExit");
  EXPECT_FALSE(desk.TheWavWindow().Visible);
}

/// Without an open file no table is built, so the flag of the last one remains.
TEST(SequenceEditor, AConflictOfFilesThatWereClosedSinceKeepsItOpenToo) {
  EditorDesk desk({.Sequences = {{}, {.File = "same.sch"}}});
  desk.Click("mnuExit");
  desk.Click("mnuClose");
  desk.Click("mnuSchedule");
  EXPECT_FALSE(desk.Visible("lblConflict"));
  desk.Compose();
  desk.SaveAs(kFile);
  desk.Advance(2000);
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  desk.Click("mnuExit");
  desk.Pc.Dialogs.OpenResults = {kFile};
  desk.Click("mnuSequence");  // the saved file alone, without a conflict
  desk.Click("mnuSchedule");
  desk.Compose();
  desk.SaveAs(kFile);
  desk.Advance(500);
  EXPECT_FALSE(desk.TheWavWindow().Visible);
}

TEST(SequenceEditor, AConflictThatTheSavedFileMakesClosesItAndIsFoundThen) {
  EditorDesk desk({.Sequences = {{}, {.File = "new.sch", .Minutes = "05"}}});
  desk.Compose("12", "01");
  desk.SaveAs(kFile);
  desk.Advance(500);
  EXPECT_FALSE(desk.TheWavWindow().Visible);
  EXPECT_TRUE(desk.Sys->TheConflicts.ConflictFound);
  EXPECT_TRUE(desk.Visible("lblConflict"));
}

TEST(SequenceEditor, ADiskThatTakesNoFileIsReportedAndNothingIsLost) {
  EditorDesk desk({.Sequences = {{}}});
  const auto before = desk.Pc.Disk.Read("/app/spot.sch");
  desk.Pc.Disk.FailWrites("/app/spot.sch");
  desk.Compose("9", "15");
  desk.SaveAs("/app/spot.sch");
  desk.Advance(2000);
  EXPECT_EQ(desk.LastBox(), "Error: The file cannot be saved: /app/spot.sch");
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  EXPECT_EQ(desk.TheWavWindow().txtHours.Text.Get() + desk.Sequence(), "9welcome");
  EXPECT_EQ(desk.Pc.Disk.Read("/app/spot.sch"), before);
  desk.Pc.Disk.Heal("/app/spot.sch");
  desk.SaveAs("/app/spot.sch");
  desk.Advance(500);
  EXPECT_FALSE(desk.TheWavWindow().Visible);
  EXPECT_EQ(desk.Saved("Hour(s)", "/app/spot.sch"), "9");
}

TEST(SequenceEditor, ClosedInThePauseAfterASaveItStaysAsItIsThen) {
  EditorDesk desk;
  desk.Compose();
  desk.SaveAs(kFile);
  desk.Advance(100);
  desk.Click("mnuExit");
  desk.Advance(0);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  desk.Click("mnuSchedule");
  desk.Advance(2000);
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  EXPECT_EQ(desk.Sequence(), "");
}

TEST(SequenceEditor, ASecondSaveInThePauseOfTheFirstIsWrittenToo) {
  EditorDesk desk;
  desk.Compose();
  desk.SaveAs(kFile);
  desk.Advance(100);
  desk.Type(desk.TheWavWindow().txtHours, "13");
  desk.SaveAs("/app/other.sch");
  desk.Advance(2000);
  EXPECT_EQ(desk.Saved("Hour(s)") + desk.Saved("Hour(s)", "/app/other.sch"), "1213");
  EXPECT_FALSE(desk.TheWavWindow().Visible);
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
}

TEST(SequenceEditor, ADialogStillOpenWhenAnEarlierSaveIsOverIsStillItsOwn) {
  EditorDesk desk;
  desk.Compose();
  desk.SaveAs(kFile);
  desk.Advance(100);
  desk.Pc.Dialogs.AnswerAfterMs = 2000;
  desk.Type(desk.TheWavWindow().txtHours, "13");
  desk.SaveAs("/app/other.sch");
  desk.Advance(1000);
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  desk.Advance(2000);
  EXPECT_EQ(desk.Saved("Hour(s)", "/app/other.sch"), "13");
  EXPECT_FALSE(desk.TheWavWindow().Visible);
}

TEST(SequenceEditor, TheProgramCanBeLeftWhileItWaits) {
  EditorDesk desk;
  desk.Compose();
  desk.SaveAs(kFile);
  desk.Advance(100);
  desk.Do([&] { desk.Main().mnuExit.OnClick(); });
  EXPECT_TRUE(desk.Pc.Process.Ended());
}

TEST(SequenceEditor, OpenedASecondTimeItOnlyComesToTheFront) {
  EditorDesk desk;
  desk.Compose("9", "15");
  desk.Click("mnuSchedule");
  EXPECT_EQ(desk.Sequence(), "welcome");
  EXPECT_EQ(desk.TheWavWindow().AvailWavs.ListCount(), 4);
  desk.Click("mnuExit");
  EXPECT_FALSE(desk.Values().AllDaysView);
}

TEST(SequenceEditor, ClosedUnderAnAnnouncementItLetsNoOtherBeginInItsMidst) {
  EditorDesk desk({.Sequences = {{.Messages = "alarm,alarm,alarm,alarm,alarm,alarm"},
                                 {.File = "next.sch", .Messages = "gong", .Minutes = "02"}}});
  desk.Click("mnuExit");
  desk.RunTo(12, 1, 5);
  ASSERT_TRUE(desk.State().MessagePlaying);
  desk.Click("mnuSchedule");
  desk.Click("mnuExit");
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 2, 5);
  ASSERT_TRUE(desk.State().MessagePlaying);
  EXPECT_EQ(desk.Journal().find("gong"), std::string::npos);
  desk.Advance(120'000);
  EXPECT_FALSE(desk.State().MessagePlaying);
  const std::string journal = desk.Journal();
  EXPECT_GT(journal.find("wav play gong"), journal.rfind("wav end alarm"));
  EXPECT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
}

TEST(SequenceEditor, OpenedUnderAnAnnouncementItFindsTheTickOnAgainWhenThatEnds) {
  EditorDesk desk({.Sequences = {{}, {.File = "next.sch", .Messages = "alarm", .Minutes = "02"}}});
  desk.Click("mnuExit");
  desk.RunTo(12, 1, 2);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Click("mnuSchedule");
  desk.RunTo(12, 2, 2);
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  EXPECT_EQ(desk.Heard(), "wav alarm.wav at 10000");
}

TEST(SequenceEditor, TwoSaveButtonsInOneTurnOpenOneDialogAfterWhichItCloses) {
  EditorDesk desk;
  desk.Compose();
  desk.Pc.Dialogs.OpenResults = {kFile};
  desk.Do([&] {
    desk.TheWavWindow().mnuSave.OnClick();
    desk.TheWavWindow().mnuSave.OnClick();
  });
  desk.Advance(499);
  EXPECT_EQ(desk.Pc.Dialogs.FileDialogs.size(), 1U);
  EXPECT_EQ(desk.Saved("Hour(s)"), "12");
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  desk.Advance(2);
  EXPECT_FALSE(desk.TheWavWindow().Visible);
}

TEST(SequenceEditor, ASaveButtonThatOpensNoDialogDoesNotHoldItOpen) {
  EditorDesk desk;
  desk.Compose();
  desk.Pc.Dialogs.AnswerAfterMs = 1000;
  desk.Pc.Dialogs.OpenResults = {kFile};
  desk.Click("mnuSave");
  desk.Advance(100);
  desk.Click("mnuSave");
  desk.Advance(2000);
  EXPECT_EQ(desk.Saved("Hour(s)"), "12");
  EXPECT_FALSE(desk.TheWavWindow().Visible);
}

}  // namespace
}  // namespace marlex
