#include "core/main_window.h"

#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

/// A desk whose main window has not been loaded yet, so that a test can change its design.
std::unique_ptr<Desk> BeforeTheStart(const DeskOptions& options = {}) {
  return std::make_unique<Desk>(options, nullptr, false);
}

const Sequence kTwoAtOnce[] = {{.File = "a.sch"}, {.File = "b.sch"}};

TEST(MainWindow, TheMenusGetTheirTextsByTheirIdsAndTheFunctionKeysKeepTheirs) {
  Desk desk;
  std::string texts;
  for (Control* control : desk.Main().Controls) {
    if (const auto* menu = dynamic_cast<Menu*>(control))
      texts += menu->Name + ": " + menu->Caption.Get() + "\n";
  }
  EXPECT_EQ(texts,
            "mnuFile: File\n"
            "mnuOpen: Open music playlist\n"
            "mnuSequence: Open message schedule(s)\n"
            "mnuClose: Close message schedule(s)\n"
            "mnuExit: Exit\n"
            "mnuEdit: Edit\n"
            "mnuPlaylist: Music playlist\n"
            "mnuSchedule: Message schedule\n"
            "mnuFKeys: Function keys\n"
            "mnuSettings: Settings\n"
            "mnuView: View\n"
            "mnuSchedules: Schedules\n"
            "mnuCurrentDay: Schedule for current day\n"
            "mnuAllDays: All days\n"
            "mnuScheduleName: Schedule name(s)\n"
            "mnuAbout: Help\n"
            "mnuAdresses: Contact\n"
            "mnuAboutbox: About Tolvo Marlex\n");
}

TEST(MainWindow, AMenuWithoutItsTextInTheTableWouldShowItsId) {
  auto desk = BeforeTheStart();
  std::string seen;
  desk->Main().mnuExit.Watcher = [&] { seen += desk->Main().mnuExit.Caption.Get() + " "; };
  desk->Start();
  EXPECT_NE(seen.find("310 "), std::string::npos) << seen;
}

TEST(MainWindow, TheWayToTheFunctionKeysIsClosed) {
  Desk desk;
  EXPECT_TRUE(desk.Main().mnuFKeys.Visible);
  EXPECT_FALSE(desk.Main().mnuFKeys.Enabled);
}

TEST(MainWindow, TheTableHasItsHeadingsWidthsAndAlignments) {
  Desk desk({.AllDays = true, .ScheduleName = true});
  const Grid& table = desk.Main().grdSchedule;
  std::string columns;
  for (int column = 0; column < Grid::kColumns; ++column) {
    columns += table.TextMatrix(0, column) + " " + std::to_string(table.ColWidth(column)) +
               (table.ColAlignment(column) == GridAlignment::Centre ? " centred\n" : " left\n");
  }
  EXPECT_EQ(columns,
            "Time 600 centred\nDays 800 centred\nRouting 800 centred\nSchedule 1800 left\n"
            "Message info 6500 left\n");
}

TEST(MainWindow, AColumnThatIsNotWantedHasNoWidthAndNoHeading) {
  Desk desk({.Router = false});
  const Grid& table = desk.Main().grdSchedule;
  for (const int column : {kDaysColumn, kRoutingColumn, kNameColumn}) {
    EXPECT_EQ(table.ColWidth(column), 0) << column;
    EXPECT_EQ(table.TextMatrix(0, column), "") << column;
  }
}

TEST(MainWindow, TheViewMenusShowTheStoredViews) {
  Desk today;
  EXPECT_FALSE(today.Main().mnuAllDays.Checked);
  EXPECT_TRUE(today.Main().mnuCurrentDay.Checked);
  EXPECT_FALSE(today.Main().mnuScheduleName.Checked);
  Desk all({.AllDays = true, .ScheduleName = true});
  EXPECT_TRUE(all.Main().mnuAllDays.Checked);
  EXPECT_FALSE(all.Main().mnuCurrentDay.Checked);
  EXPECT_TRUE(all.Main().mnuScheduleName.Checked);
}

TEST(MainWindow, TheBackgroundOfTheMusicFrameIsTheWindowsAndTheTables) {
  auto desk = BeforeTheStart();
  desk->Main().frBGMusic.BackColor = 0x123456;
  desk->Start();
  EXPECT_EQ(desk->Main().BackColor, 0x123456u);
  EXPECT_EQ(desk->Main().grdSchedule.BackColorFixed, 0x123456u);
  EXPECT_EQ(desk->Main().grdSchedule.BackColorBkg, 0x123456u);
}

TEST(MainWindow, NothingIsShownOfASongBeforeOnePlays) {
  auto desk = BeforeTheStart();
  for (Label* label :
       {&desk->Main().lblMP3Number, &desk->Main().lblMP3Length, &desk->Main().lblMP3Position}) {
    label->Caption = "of the design";
  }
  desk->Start();
  EXPECT_EQ(desk->Text("lblMP3Number"), "");
  EXPECT_EQ(desk->Text("lblMP3Length"), "");
  EXPECT_EQ(desk->Text("lblMP3Position"), "");
  EXPECT_EQ(desk->Main().lstPlaylist.ToolTipText.Get(), "Double-click to play song");
}

TEST(MainWindow, WithoutASongToChooseThePlayButtonIsOff) {
  EXPECT_FALSE(Desk().Enabled("cmdPlay"));
  EXPECT_TRUE(Desk({.Music = {{"march"}}}).Enabled("cmdPlay"));
}

TEST(MainWindow, SkipAndStopAreOnOnlyWhenTheStartHasBroughtMusic) {
  Desk silent({.Music = {{"march"}}});
  EXPECT_FALSE(silent.Enabled("cmdSkip"));
  EXPECT_FALSE(silent.Enabled("cmdStop"));
  Desk playing({.Music = {{"march"}}, .Autostart = "True"});
  EXPECT_TRUE(playing.Enabled("cmdSkip"));
  EXPECT_TRUE(playing.Enabled("cmdStop"));
}

TEST(MainWindow, MusicThatStartsWithTheProgramFindsThePortOpen) {
  Desk desk({.Music = {{"march"}}, .Autostart = "True"});
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(),
            "2500 song play march.mp3\n"
            "2500 serial open 1\n"
            "2700 send 67\n");
}

TEST(MainWindow, APlaylistThatIsNotThereLeavesTheListEmptyWithoutAWord) {
  Desk desk({.Music = {{"march"}}, .Autostart = "True"},
            [](SimulatedPc& pc) { pc.Disk.Remove(Desk::kPlaylist); });
  EXPECT_EQ(desk.Main().lstPlaylist.ListCount(), 0);
  EXPECT_EQ(desk.Text("frBGMusic"), "Background music playlist:/app/Day ");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(MainWindow, APlaylistThatWasLoadedNamesItself) {
  Desk desk({.Music = {{"march"}}});
  EXPECT_EQ(desk.Text("frBGMusic"), "Background music playlist: Day.lst");
}

/// The name taken from the settings is in English in every language.
TEST(MainWindow, InAnotherLanguageOnlyAPlaylistThatWasLoadedIsNamedInIt) {
  Desk loaded({.Music = {{"march"}}, .Language = "German"});
  EXPECT_EQ(loaded.Text("frBGMusic"), "Playlist der Hintergrundmusik: Day.lst");
  Desk absent({.Music = {{"march"}}, .Language = "German"},
              [](SimulatedPc& pc) { pc.Disk.Remove(Desk::kPlaylist); });
  EXPECT_EQ(absent.Text("frBGMusic"), "Background music playlist:/app/Day ");
  EXPECT_EQ(Desk({.Language = "German"}).Text("frBGMusic"), "Background music playlist:");
}

TEST(MainWindow, TheZonesBearTheirNames) {
  Desk desk;
  EXPECT_EQ(desk.Text("lblZoneName_0"), "Hall");
  EXPECT_EQ(desk.Text("lblZoneName_1"), "Yard");
  EXPECT_EQ(desk.Text("lblZoneName_5"), "");
}

TEST(MainWindow, WithTheRouterItsFrameShowsAndThePortIsOpenedOnce) {
  Desk desk;
  EXPECT_TRUE(desk.Visible("frRouting"));
  EXPECT_FALSE(desk.Main().frCall.Visible);
  EXPECT_TRUE(desk.Pc.Serial.PortOpen());
  EXPECT_EQ(desk.Journal(), "2500 serial open 1\n");
}

TEST(MainWindow, APortThatIsOpenAlreadyIsLeftAlone) {
  auto desk = BeforeTheStart();
  desk->Pc.Serial.SetPortOpen(true);
  desk->Pc.Journal.Clear();
  desk->Start();
  EXPECT_EQ(desk->Journal(), "");
}

TEST(MainWindow, APortThatCannotBeOpenedIsReportedAndTheDeskGoesOn) {
  Desk desk({.Music = {{"march"}}}, [](SimulatedPc& pc) { pc.Serial.Unplug(); });
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Caption, "Error");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(MainWindow, WithoutTheRouterTheLargeCallButtonShowsAndNoPortIsOpened) {
  Desk desk({.Router = false});
  EXPECT_TRUE(desk.Visible("frCall"));
  EXPECT_FALSE(desk.Main().frRouting.Visible);
  EXPECT_EQ(desk.Main().frCall.Width, 6855);
  EXPECT_EQ(desk.Main().lblConflict.Top, 4005);
  EXPECT_EQ(desk.Main().frSchedule.Height, 4095);
  EXPECT_EQ(desk.Main().grdSchedule.Height, 3765);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(MainWindow, WithoutRouterAndMicrophoneTheScheduleTakesTheWholeHeight) {
  Desk desk({.Router = false, .Microphone = false});
  EXPECT_FALSE(desk.Main().frCall.Visible);
  EXPECT_FALSE(desk.Main().frRouting.Visible);
  EXPECT_EQ(desk.Main().lblConflict.Top, 5520);
  EXPECT_EQ(desk.Main().frSchedule.Height, 5655);
  EXPECT_EQ(desk.Main().grdSchedule.Height, 5325);
}

TEST(MainWindow, TheTallScheduleMakesRoomForItsConflictNote) {
  Desk desk({.Sequences = {kTwoAtOnce[0], kTwoAtOnce[1]},
             .Router = false,
             .AllDays = true,
             .Microphone = false});
  ASSERT_TRUE(desk.Visible("lblConflict"));
  EXPECT_EQ(desk.Main().lblConflict.Top, 5520);
  EXPECT_EQ(desk.Main().frSchedule.Height, 5295);
  EXPECT_EQ(desk.Main().grdSchedule.Height, 4965);
}

TEST(MainWindow, WithoutAMicrophoneMusicButtonsFillBothRowsOfTheRoutingFrame) {
  Desk desk({.Microphone = false});
  EXPECT_TRUE(desk.Visible("frRouting"));
  for (const char* control :
       {"frCall", "lblCall", "cmdCall", "cmdCall2", "lblBusy_0", "lblBusy_1"}) {
    EXPECT_FALSE(desk.Visible(control)) << control;
  }
  for (int zone = 0; zone < 6; ++zone) {
    EXPECT_FALSE(desk.Main().cmdCallZone[zone].Visible);
    EXPECT_TRUE(desk.Main().cmdMusicZones[zone].Visible);
    EXPECT_TRUE(desk.Main().lblCurrentZone[zone].Visible);
    EXPECT_EQ(desk.Main().cmdMusicZones[zone].Height, 616);
  }
  EXPECT_EQ(desk.Main().lblMusic.Top, 1020);
}

TEST(MainWindow, WithAMicrophoneTheCallRowIsShown) {
  Desk desk;
  for (const char* control : {"lblCall", "cmdCall", "lblBusy_0"}) {
    EXPECT_TRUE(desk.Visible(control)) << control;
  }
  for (int zone = 0; zone < 6; ++zone) {
    EXPECT_TRUE(desk.Main().cmdCallZone[zone].Visible);
    EXPECT_EQ(desk.Main().cmdMusicZones[zone].Height, 255);
  }
  EXPECT_EQ(desk.Main().lblMusic.Top, 840);
}

TEST(MainWindow, WhatAMissingMicrophoneTookStaysAwayUntilTheNextStart) {
  Desk desk({.Microphone = false});
  desk.Sys->Mixer.MicLine = 2;
  desk.Do([&] { desk.Sys->TheMainWindow.ArrangeCallControls(); });
  EXPECT_EQ(desk.Main().lblMusic.Top, 840);
  EXPECT_FALSE(desk.Main().cmdCall.Visible);
  EXPECT_EQ(desk.Main().cmdMusicZones[0].Height, 616);
  desk.Pc.Mixer.Line(kComponentMicrophone)->HasVolume = true;
  desk.Restart();
  EXPECT_TRUE(desk.Main().cmdCall.Visible);
  EXPECT_EQ(desk.Main().cmdMusicZones[0].Height, 255);
}

TEST(MainWindow, TheRoutingsComeBackWithTheProgram) {
  Desk desk({.MusicRouting = "101000", .CallRouting = "010001"});
  std::string music;
  std::string call;
  for (int zone = 0; zone < 6; ++zone) {
    music += desk.Main().cmdMusicZones[zone].Value ? '1' : '0';
    call += desk.Main().cmdCallZone[zone].Value ? '1' : '0';
  }
  EXPECT_EQ(music, "101000");
  EXPECT_EQ(call, "010001");
  EXPECT_EQ(desk.LitZones(), "101000");
  EXPECT_TRUE(desk.Enabled("cmdCall"));
  EXPECT_EQ(desk.Setting("Routing", "Call routing"), "010001");
}

TEST(MainWindow, WithoutCallZonesTheCallButtonIsOff) {
  EXPECT_FALSE(Desk({.CallRouting = "000000"}).Enabled("cmdCall"));
  EXPECT_FALSE(Desk({.CallRouting = ""}).Enabled("cmdCall"));
}

TEST(MainWindow, ItsLoadEndsWithTheTickOnAndTheHeightOfTheWindow) {
  auto desk = BeforeTheStart();
  desk->Main().Height = 100;
  desk->Start();
  EXPECT_TRUE(desk->Sys->TheFrmPlayers.tmrMessage.Enabled);
  EXPECT_EQ(desk->Main().Height, 6525);
}

TEST(MainWindow, TheFrameOfTheScheduleShowsTheTime) {
  Desk morning({.Now = {2024, 1, 1, 9, 4, 5}});
  morning.Advance(450);
  EXPECT_EQ(morning.Text("frSchedule"), "09:04:07 Message time schedule today");
  Desk midnight({.Now = {2024, 1, 1, 23, 59, 57}});
  midnight.Advance(450);
  EXPECT_EQ(midnight.Text("frSchedule").substr(0, 8), "23:59:59");
  midnight.Advance(450);
  EXPECT_EQ(midnight.Text("frSchedule").substr(0, 8), "00:00:00");
}

TEST(MainWindow, TheScheduleFrameFollowsTheViewWithinHalfASecond) {
  Desk desk;
  const auto shown = [&] { return desk.Text("frSchedule").substr(8); };
  desk.Advance(500);
  desk.Click("mnuAllDays");
  desk.Advance(500);
  EXPECT_EQ(shown(), " Message time schedule all days");
  desk.Click("mnuCurrentDay");
  desk.Advance(500);
  EXPECT_EQ(shown(), " Message time schedule today");
}

TEST(MainWindow, TheScheduleDoesNotHangOnTheClockInTheFrame) {
  Desk desk({.Sequences = {{.Minutes = "01"}}});
  desk.Main().Seconds.Enabled = false;
  desk.Pc.Journal.Only({"wav"});
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Pc.Journal.Lines().size(), 2u);
}

TEST(MainWindow, TheContactBoxNamesTheMakersSite) {
  Desk desk;
  desk.Click("mnuAdresses");
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body,
            "Surf to http://www.tolvo.example \rto find your nearest contact address");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Caption, "Info");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Icon, BoxIcon::Information);
}

TEST(MainWindow, TheContactBoxHoldsNoAnnouncementUp) {
  Desk desk({.Music = {{"march"}}, .Sequences = {{.Minutes = "01"}}},
            [](SimulatedPc& pc) { pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever; });
  desk.Click("cmdPlay");
  desk.RunTo(12, 1, 2);
  ASSERT_TRUE(desk.State().MessagePlaying);
  desk.Click("mnuAdresses");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(MainWindow, TheAboutWindowClosesWithItsButtonAndOpensAgain) {
  Desk desk;
  FrmAbout& about = desk.Sys->TheWindows.frmAbout;
  for (int time = 0; time < 2; ++time) {
    desk.Click("mnuAboutbox");
    EXPECT_TRUE(about.Visible);
    desk.Click("cmdOK");
    EXPECT_FALSE(about.Visible);
  }
  EXPECT_TRUE(desk.Main().Visible);
}

TEST(MainWindow, ItsLoadReadsTheSongsThenShapesTheTableThenFillsIt) {
  auto desk = BeforeTheStart({.Music = {{"march"}}, .Sequences = {{}}});
  FrmMain& window = desk->Main();
  std::string order;
  const auto note = [&order](bool done, const std::string& step) {
    if (done && order.find(step) == std::string::npos) order += step + " ";
  };
  window.lstPlaylist.Watcher = [&] { note(window.lstPlaylist.ListCount() > 0, "songs"); };
  window.grdSchedule.Watcher = [&] {
    note(window.grdSchedule.ColWidth(kMessagesColumn) > 0, "widths");
    note(window.grdSchedule.Rows() > 1, "rows");
  };
  desk->Start();
  EXPECT_EQ(order, "songs widths rows ");
}

}  // namespace
}  // namespace marlex
