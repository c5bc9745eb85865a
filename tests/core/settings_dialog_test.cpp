#include "core/settings_dialog.h"

#include <gtest/gtest.h>

#include "core/settings_desk.h"

namespace marlex {
namespace {

TEST(SettingsDialog, AnotherTypeHidesTheRoutersFramesAndTheWindowEndsHigher) {
  SettingsDesk desk;
  desk.Open();
  desk.Click("optTolvo_1");
  EXPECT_FALSE(desk.Visible("frNames"));
  EXPECT_FALSE(desk.Visible("frPort"));
  EXPECT_FALSE(desk.Visible("frPriority"));
  EXPECT_EQ(desk.TheFrmSettings().Height, 5565);
  EXPECT_EQ(desk.TheFrmSettings().cmdOK.Top, 4560);
  EXPECT_EQ(desk.TheFrmSettings().cmdCancel.Top, 4560);
  desk.Click("optTolvo_0");
  EXPECT_TRUE(desk.Visible("frNames"));
  EXPECT_TRUE(desk.Visible("frPort"));
  EXPECT_TRUE(desk.Visible("frPriority"));
  EXPECT_EQ(desk.TheFrmSettings().Height, 6645);
  EXPECT_EQ(desk.TheFrmSettings().cmdOK.Top, 5640);
  EXPECT_EQ(desk.TheFrmSettings().cmdCancel.Top, 5640);
  EXPECT_TRUE(desk.Values().RouterPresent) << "nothing counts before the OK";
}

TEST(SettingsDialog, ATypeThatIsChangedInATakeoverGivesTheOutputsBack) {
  for (const int status : {64, 128, 192}) {
    DeskOptions options;
    options.Music = {{"march"}};
    SettingsDesk desk(options);
    desk.Click("cmdPlay");
    desk.Status(status);
    desk.Open();
    desk.Click("optTolvo_1");
    desk.Click("cmdOK");
    desk.Advance(1000);
    EXPECT_EQ(desk.Heard().substr(0, 14), "song march.mp3") << status;
    EXPECT_TRUE(desk.State().PriorityClear) << status;
    EXPECT_FALSE(desk.State().PriorityPreempted) << status;
    EXPECT_FALSE(desk.Visible("lblHiPrio")) << status;
    EXPECT_EQ(desk.Main().cmdPlay.Height, FrmMain::kTransportHeight) << status;
  }
}

TEST(SettingsDialog, AChimesCheckOpensItsButtonAndClearingItEmptiesItsLabel) {
  SettingsDesk desk({}, With("Chime selection", "PreChime", "ding"));
  desk.Open();
  desk.Click("chkPreChime");
  EXPECT_FALSE(desk.Enabled("cmdPreSelect"));
  EXPECT_FALSE(desk.Visible("lblPreChime"));
  EXPECT_EQ(desk.Text("lblPreChime"), "");
  desk.Click("chkPreChime");
  EXPECT_TRUE(desk.Enabled("cmdPreSelect"));
  EXPECT_TRUE(desk.Visible("lblPreChime"));
  EXPECT_EQ(desk.Text("lblPreChime"), "");
  desk.Click("chkPostChime");
  EXPECT_TRUE(desk.Enabled("cmdPostSelect"));
  EXPECT_TRUE(desk.Visible("lblPostChime"));
}

TEST(SettingsDialog, TheTwoFadingTimesExcludeEachOther) {
  SettingsDesk desk;
  desk.Open();
  desk.Click("optSlow");
  EXPECT_FALSE(desk.TheFrmSettings().optFast.Value());
  desk.Click("optFast");
  EXPECT_FALSE(desk.TheFrmSettings().optSlow.Value());
  EXPECT_TRUE(desk.TheFrmSettings().optTolvo[0].Value()) << "the other groups are left alone";
}

TEST(SettingsDialog, ASliderActsAndWritesAtOnce) {
  SettingsDesk desk;
  desk.Open();
  desk.Move(desk.TheFrmSettings().slMasterVolume, 100);
  desk.Move(desk.TheFrmSettings().slMusicVolume, 200);
  desk.Move(desk.TheFrmSettings().slMicroVolume, 300);
  EXPECT_EQ(desk.Slider(0), 100);
  EXPECT_EQ(desk.WaveSlider(), 200);
  EXPECT_EQ(desk.Slider(desk.Sys->Mixer.MicLine), 300);
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentSpeakers), 65535u - 100u);
  EXPECT_EQ(desk.Values().MasterVolume, 100);
  EXPECT_EQ(desk.Values().MusicVolume, 200);
  EXPECT_EQ(desk.Values().MicroVolume, 300);
  EXPECT_EQ(desk.Setting("Volume", "Master volume"), "100");
  EXPECT_EQ(desk.Setting("Volume", "Music volume"), "200");
  EXPECT_EQ(desk.Setting("Volume", "Micro volume"), "300");
}

TEST(SettingsDialog, TheMessageSliderActsOnTheWaveLineOnlyWhileAMessagePlays) {
  SettingsDesk desk({.Sequences = {{}}});
  desk.Open();
  desk.Move(desk.TheFrmSettings().slMessageVolume, 400);
  EXPECT_EQ(desk.WaveSlider(), 20000);
  EXPECT_EQ(desk.Values().MessageVolume, 400);
  EXPECT_EQ(desk.Setting("Volume", "Message volume"), "400");
  desk.RunTo(12, 1, 2);
  ASSERT_TRUE(desk.State().MessagePlaying);
  EXPECT_EQ(desk.WaveSlider(), 400);
  desk.Move(desk.TheFrmSettings().slMessageVolume, 500);
  EXPECT_EQ(desk.WaveSlider(), 500);
}

TEST(SettingsDialog, TheMusicsSliderCannotBeMovedWhileAMessagePlays) {
  SettingsDesk desk({.Sequences = {{}}});
  desk.Open();
  EXPECT_TRUE(desk.Enabled("slMusicVolume"));
  desk.RunTo(12, 1, 2);
  ASSERT_TRUE(desk.State().MessagePlaying);
  EXPECT_FALSE(desk.Enabled("slMusicVolume"));
  EXPECT_TRUE(desk.Enabled("slMessageVolume"));
  desk.RunTo(12, 1, 30);
  EXPECT_TRUE(desk.Enabled("slMusicVolume"));
}

TEST(SettingsDialog, NorWhenItOpensDuringOne) {
  SettingsDesk desk({.Sequences = {{}}});
  desk.RunTo(12, 1, 2);
  ASSERT_TRUE(desk.State().MessagePlaying);
  desk.Open();
  EXPECT_FALSE(desk.Enabled("slMusicVolume"));
  desk.RunTo(12, 1, 30);
  EXPECT_TRUE(desk.Enabled("slMusicVolume"));
  desk.Click("cmdCancel");
  desk.Open();
  EXPECT_TRUE(desk.Enabled("slMusicVolume"));
}

TEST(SettingsDialog, WithoutAMicrophoneItsLevelIsStillWritten) {
  SettingsDesk desk({.Microphone = false});
  desk.Open();
  EXPECT_EQ(desk.Slider(0), 5000);
  desk.Move(desk.TheFrmSettings().slMicroVolume, 300);
  EXPECT_EQ(desk.Slider(0), 5000);
  EXPECT_EQ(desk.Values().MicroVolume, 300);
  EXPECT_EQ(desk.Setting("Volume", "Micro volume"), "300");
}

TEST(SettingsDialog, TheLevelsSurviveACancelAndNothingElseIsWritten) {
  SettingsDesk desk;
  desk.Open();
  desk.Move(desk.TheFrmSettings().slMusicVolume, 200);
  const auto before = desk.Pc.Disk.Read(Desk::kIni);
  desk.Type(desk.TheFrmSettings().txtZoneName[0], "Gate");
  desk.Click("optCom_1");
  desk.Click("optSlow");
  desk.Click("optTolvo_1");
  desk.Click("cmdCancel");
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kIni), before);
  EXPECT_EQ(desk.Setting("Volume", "Music volume"), "200");
  EXPECT_EQ(desk.Values().MusicVolume, 200);
  EXPECT_EQ(desk.Values().ZoneNames[0], "Hall");
  EXPECT_TRUE(desk.Pc.Serial.PortOpen());
  EXPECT_TRUE(desk.Main().Visible);
  EXPECT_FALSE(desk.Pc.Loop.Ended());
}

TEST(SettingsDialog, ACancelUndoesNothingInMemory) {
  SettingsDesk desk({.FadeTime = ""});
  desk.Open();
  desk.Click("cmdBgBrowse");
  desk.Choose(desk.DirSel().Dir1, "/");
  desk.Click("cmdOK");  // of the picker
  desk.Click("cmdCancel");
  EXPECT_EQ(desk.Values().MusicDirectory, "/");
  EXPECT_EQ(desk.Setting("Selected paths", "Music directory"), "/music/");
  EXPECT_EQ(desk.Values().FadeTime, 1500);
}

TEST(SettingsDialog, ClosingItsWindowIsItsCancel) {
  SettingsDesk desk;
  desk.Open();
  desk.Do([&] { desk.TheFrmSettings().Close(); });
  EXPECT_FALSE(desk.TheFrmSettings().Visible);
  EXPECT_FALSE(desk.Pc.Loop.Ended());
}

TEST(SettingsDialog, AnEmptyMusicDirectoryIsReportedFirstAndNothingIsWritten) {
  SettingsDesk desk({},
                    [](SimulatedPc& pc) { With("Selected paths", "Message directory", "")(pc); });
  With("Selected paths", "Music directory", "")(desk.Pc);
  desk.Open();
  const auto before = desk.Pc.Disk.Read(Desk::kIni);
  desk.Click("optTolvo_1");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.BoxTexts(), "Error: Background music directory not entered\n");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Icon, BoxIcon::Critical);
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kIni), before);
  EXPECT_TRUE(desk.Pc.Serial.PortOpen());
}

TEST(SettingsDialog, AnEmptyMessageDirectoryIsReportedWhenTheMusicHasOne) {
  SettingsDesk desk({}, With("Selected paths", "Message directory", ""));
  desk.Open();
  const auto before = desk.Pc.Disk.Read(Desk::kIni);
  desk.Click("cmdOK");
  EXPECT_EQ(desk.BoxTexts(), "Error: Message directory not entered\n");
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kIni), before);
}

TEST(SettingsDialog, TheOkSetsTheValuesInMemory) {
  SettingsDesk desk;
  desk.Open();
  desk.Type(desk.TheFrmSettings().txtZoneName[2], "Gate");
  desk.Click("optPriority_1");
  desk.Click("optSlow");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Values().ZoneNames,
            (std::array<std::string, 6>{"Hall", "Yard", "Gate", "Zone 4", "Zone 5", "Zone 6"}));
  EXPECT_EQ(desk.Values().PriorityLevelText, "High");
  EXPECT_EQ(desk.Values().OwnPriorityLevel, 128);
  EXPECT_EQ(desk.Values().FadeTime, 1500);
  EXPECT_FALSE(desk.TheFrmSettings().Visible);
  desk.Open();
  desk.Click("optPriority_0");
  desk.Click("optFast");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Values().OwnPriorityLevel, 64);
  EXPECT_EQ(desk.Values().PriorityLevelText, "Low");
  EXPECT_EQ(desk.Values().FadeTime, 500);
  EXPECT_EQ(desk.Setting("Volume", "Fade time"), "Fast");
}

TEST(SettingsDialog, AnotherComPortCountsFromTheNextStartOn) {
  SettingsDesk desk;
  desk.Open();
  desk.Click("optCom_1");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Setting("Used com port", "Com port"), "2");
  EXPECT_EQ(desk.Pc.Serial.CommPort(), 1);
  EXPECT_EQ(desk.Values().ComPortSetting, "1");
  desk.Restart();
  EXPECT_EQ(desk.Pc.Serial.CommPort(), 2);
}

TEST(SettingsDialog, SwitchingTheTypeToAndFroReopensTheSamePort) {
  SettingsDesk desk;
  desk.TakeJournal();
  desk.Pc.Journal.Only({"serial"});
  desk.Open();
  desk.Click("optCom_1");
  desk.Click("optTolvo_1");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.TakeJournal(), "0 serial close\n");
  EXPECT_FALSE(desk.Values().RouterPresent);
  EXPECT_EQ(desk.Setting("Selected type", "QRT4410/20"), "No");
  desk.Open();
  desk.Click("optTolvo_0");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.TakeJournal(), "0 serial open 1\n");
  EXPECT_TRUE(desk.Values().RouterPresent);
  EXPECT_EQ(desk.Setting("Selected type", "QRT4410/20"), "Yes");
}

TEST(SettingsDialog, AnOpenPortIsNotOpenedAgain) {
  SettingsDesk desk;
  desk.TakeJournal();
  desk.Pc.Journal.Only({"serial"});
  desk.Open();
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Journal(), "");
}

TEST(SettingsDialog, TheMainWindowFollowsTheTypeOfTheAmplifier) {
  SettingsDesk desk({.Sequences = {{}}});
  desk.Open();
  desk.Click("optTolvo_1");
  desk.Click("cmdOK");
  EXPECT_TRUE(desk.Visible("frCall"));
  EXPECT_EQ(desk.Main().frCall.Width, 6855);
  EXPECT_FALSE(desk.Visible("frRouting"));
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kRoutingColumn), 0);
  EXPECT_EQ(desk.Cell(1, kRoutingColumn), "");
  desk.Open();
  desk.Click("optTolvo_0");
  desk.Click("cmdOK");
  EXPECT_FALSE(desk.Visible("frCall"));
  EXPECT_TRUE(desk.Visible("frRouting"));
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kRoutingColumn), 800);
  EXPECT_EQ(desk.Cell(1, kRoutingColumn), "123456");
}

TEST(SettingsDialog, WithoutAMicrophoneTheScheduleTakesTheCallButtonsPlace) {
  SettingsDesk desk({.Microphone = false});
  desk.Open();
  desk.Click("optTolvo_1");
  desk.Click("cmdOK");
  EXPECT_FALSE(desk.Visible("frCall"));
  EXPECT_FALSE(desk.Visible("frRouting"));
  EXPECT_EQ(desk.Main().frSchedule.Height, 5655);
  EXPECT_EQ(desk.Main().lblConflict.Top, 5520);
}

TEST(SettingsDialog, AChimeThatIsNotCheckedIsEmptied) {
  SettingsDesk desk({}, [](SimulatedPc& pc) {
    With("Chime selection", "PreChime", "ding")(pc);
    With("Chime selection", "PostChime", "dong")(pc);
  });
  desk.Open();
  desk.Click("chkPreChime");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Values().PreChime, "");
  EXPECT_EQ(desk.Setting("Chime selection", "PreChime"), "");
  EXPECT_EQ(desk.Values().PostChime, "dong");
  EXPECT_EQ(desk.Setting("Chime selection", "PostChime"), "dong");
}

TEST(SettingsDialog, ACallAfterThePostChimeWasUncheckedEndsWithoutOne) {
  SettingsDesk desk(
      {.Messages = {{"ding", 300}, {"dong", 200}}, .PreChime = "ding", .PostChime = "dong"});
  desk.Open();
  desk.Click("chkPostChime");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Setting("Chime selection", "PostChime"), "");
  EXPECT_EQ(desk.Setting("Chime selection", "PreChime"), "ding");
  desk.Pc.Journal.Only({"wav"});
  desk.TakeJournal();
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Release("cmdCall");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "0 wav play ding.wav\n300 wav end ding.wav\n");
}

TEST(SettingsDialog, ACheckWithNothingPickedWritesAnEmptyChime) {
  SettingsDesk desk({}, [](SimulatedPc& pc) {
    std::string ini = *pc.Disk.Read(Desk::kIni);
    const std::string key = "PreChime=\r\n";
    pc.Disk.AddFile(Desk::kIni, ini.erase(ini.find(key), key.size()));
  });
  desk.Open();
  desk.Click("chkPreChime");
  desk.Pc.Journal.Only({"write"});
  desk.Click("cmdOK");
  EXPECT_NE(desk.Journal().find(" write Tolvo.ini [Chime selection] PreChime=\n"),
            std::string::npos);
  EXPECT_NE(desk.Pc.Disk.Read(Desk::kIni)->find("\r\nPreChime=\r\n"), std::string::npos);
  desk.Pc.Journal.Only({"wav"});
  for (const bool restarted : {false, true}) {
    SCOPED_TRACE(restarted);
    if (restarted) desk.Restart();
    EXPECT_EQ(desk.Values().PreChime, "");
    desk.TakeJournal();
    desk.Press("cmdCall");
    EXPECT_EQ(desk.Text("cmdCall"), "Speak");
    desk.Advance(3000);
    desk.Release("cmdCall");
    desk.Advance(3000);
    EXPECT_EQ(desk.Journal(), "");
  }
}

/// The value in memory differs from the label's; the next start has none.
TEST(SettingsDialog, AChimeUncheckedAndCheckedAgainIsEmptyInTheFileAlone) {
  SettingsDesk desk({}, With("Chime selection", "PreChime", "ding"));
  desk.Open();
  desk.Click("chkPreChime");
  desk.Click("chkPreChime");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Setting("Chime selection", "PreChime"), "");
  EXPECT_EQ(desk.Values().PreChime, "ding");
}

TEST(SettingsDialog, TheOkPutsTheMusicsLevelLastOnTheWaveLineEvenUnderAMessage) {
  SettingsDesk desk({.Sequences = {{}}});
  desk.Open();
  desk.RunTo(12, 1, 2);
  ASSERT_TRUE(desk.State().MessagePlaying);
  EXPECT_EQ(desk.WaveSlider(), 10000);
  desk.Click("cmdOK");
  EXPECT_EQ(desk.WaveSlider(), 20000);
}

TEST(SettingsDialog, TheOkShowsTheZoneNamesAndRebuildsTheTable) {
  SettingsDesk desk({.Sequences = {{}}});
  desk.Open();
  desk.Type(desk.TheFrmSettings().txtZoneName[0], "Gate");
  desk.Pc.Profiles.WriteString("Schedule", "Hour(s)", "13", "/app/spot.sch");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Text("lblZoneName_0"), "Gate");
  EXPECT_EQ(desk.Text("lblZoneName_2"), "Zone 3");
  EXPECT_EQ(desk.Cell(1, kTimeColumn).substr(0, 5), "13:01");
}

TEST(SettingsDialog, TheMusicAndTheScheduleGoOnUnderAnOpenDialog) {
  SettingsDesk desk({.Music = {{"march"}}, .Sequences = {{}}});
  desk.Click("cmdPlay");
  desk.Open();
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

/// The next step of the fade continues from the moved position; its target does not change.
TEST(SettingsDialog, ALevelThatIsMovedInAFadeCountsFromTheNextAnnouncementOn) {
  SettingsDesk desk(
      {.Music = {{"march"}}, .Sequences = {{.Minutes = "01,03"}}, .FadeTime = "Slow"});
  desk.Click("cmdPlay");
  desk.Open();
  desk.RunTo(12, 1, 0);
  desk.Pc.Loop.RunUntil([&] { return desk.State().FadeRunning; }, 2000);
  desk.Advance(100);
  desk.Move(desk.TheFrmSettings().slMusicVolume, 30000);
  EXPECT_EQ(desk.WaveSlider(), 30000);
  desk.Advance(33);
  EXPECT_EQ(desk.WaveSlider(), 31000);
  desk.RunTo(12, 2, 0);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Values().MusicVolume, 30000);
  desk.RunTo(12, 4, 0);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 30000");
}

TEST(SettingsDialog, WritesThatFailLeaveTheProgramRunningOnTheNewValues) {
  SettingsDesk desk;
  desk.Open();
  desk.Pc.Disk.FailWrites("/app");
  desk.Click("optSlow");
  desk.Click("cmdOK");
  EXPECT_FALSE(desk.TheFrmSettings().Visible);
  EXPECT_EQ(desk.Values().FadeTime, 1500);
  EXPECT_EQ(desk.BoxTexts(), "Error: The settings cannot be saved: /app/Tolvo.ini\n");
}

}  // namespace
}  // namespace marlex
