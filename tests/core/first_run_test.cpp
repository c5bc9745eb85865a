#include <gtest/gtest.h>

#include "core/settings_desk.h"

namespace marlex {
namespace {

void ChooseDirectories(SettingsDesk& desk) {
  desk.Click("cmdBgBrowse");
  desk.DoubleClick(desk.DirSel().Dir1, "/home/operator/songs");
  desk.Click("cmdOK");
  desk.Click("cmdMsgBrowse");
  desk.DoubleClick(desk.DirSel().Dir1, "/home/operator/spots");
  desk.Click("cmdOK");
}

TEST(FirstRun, WithoutASettingsFileTheLanguageComesFirstThenTheSettings) {
  SettingsDesk desk({}, [](SimulatedPc& pc) { pc.Disk.Remove(Desk::kIni); });
  EXPECT_TRUE(desk.Sys->TheWindows.frmlangSel.Visible);
  desk.Click("cmdOK");
  desk.Advance(2500);
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
  EXPECT_FALSE(desk.Main().Visible);
  EXPECT_FALSE(desk.Sys->TheWindows.frmLogo.Visible);
}

TEST(FirstRun, TheSettingsComeInsteadOfTheMainWindowAndTheTickIsOff) {
  SettingsDesk desk({}, FirstRun());
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
  EXPECT_FALSE(desk.Main().Loaded());
  EXPECT_FALSE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  EXPECT_EQ(desk.Text("lblBGDir_Name"), "");
  EXPECT_EQ(desk.Text("lblMsgDir_Name"), "");
  EXPECT_EQ(desk.BoxTexts(), "");
}

TEST(FirstRun, ACancelEndsTheProgram) {
  SettingsDesk desk({}, FirstRun());
  desk.Click("cmdCancel");
  EXPECT_TRUE(desk.Pc.Loop.Ended());
}

TEST(FirstRun, TheCloseOfTheWindowEndsItToo) {
  SettingsDesk desk({}, FirstRun());
  desk.Do([&] { desk.TheFrmSettings().Close(); });
  EXPECT_TRUE(desk.Pc.Loop.Ended());
}

TEST(FirstRun, TheMissingDirectoriesAreReportedOneAtEachTry) {
  SettingsDesk desk({}, FirstRun());
  desk.Click("cmdOK");
  EXPECT_EQ(desk.BoxTexts(), "Error: Background music directory not entered\n");
  desk.Click("cmdBgBrowse");
  desk.DoubleClick(desk.DirSel().Dir1, "/home/operator/songs");
  desk.Click("cmdOK");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.BoxTexts(),
            "Error: Background music directory not entered\nError: Message directory not "
            "entered\n");
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
  EXPECT_FALSE(desk.Main().Visible);
  EXPECT_EQ(desk.Setting("Selected paths", "Music directory"), "");
}

TEST(FirstRun, ABoxThatNobodyAnswersLeavesTheDialogInUse) {
  SettingsDesk desk({}, [](SimulatedPc& pc) {
    FirstRun()(pc);
    pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  });
  desk.Click("cmdOK");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
}

TEST(FirstRun, TheOkOpensTheMainWindowOnWhatTheDialogWrote) {
  SettingsDesk desk({}, FirstRun());
  ChooseDirectories(desk);
  desk.Click("optTolvo_0");
  desk.Type(desk.TheFrmSettings().txtZoneName[3], "Canteen");
  desk.Click("optPriority_1");
  desk.Click("cmdOK");
  EXPECT_FALSE(desk.TheFrmSettings().Visible);
  EXPECT_TRUE(desk.Main().Visible);
  EXPECT_TRUE(desk.Visible("frRouting"));
  EXPECT_FALSE(desk.Visible("frCall"));
  EXPECT_EQ(desk.Text("lblZoneName_3"), "Canteen");
  EXPECT_EQ(desk.Text("frBGMusic"), "Background music playlist");
  EXPECT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  EXPECT_EQ(desk.Setting("Selected paths", "Music directory"), "/home/operator/songs/");
  EXPECT_EQ(desk.Setting("Selected paths", "Message directory"), "/home/operator/spots/");
}

TEST(FirstRun, PortOneIsUsedWhateverTheDialogSays) {
  SettingsDesk desk({}, FirstRun());
  desk.Pc.Journal.Only({"serial"});
  EXPECT_TRUE(desk.TheFrmSettings().optCom[1].Value());
  ChooseDirectories(desk);
  desk.Click("optTolvo_0");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Journal(), "2500 serial open 1\n");
  EXPECT_EQ(desk.Setting("Used com port", "Com port"), "2");
}

TEST(FirstRun, TheLevelsOfTheSlidersHaveTheirEffectAlready) {
  SettingsDesk desk({}, FirstRun());
  desk.Move(desk.TheFrmSettings().slMasterVolume, 7000);
  EXPECT_EQ(desk.Slider(0), 7000);
  EXPECT_EQ(desk.Setting("Volume", "Master volume"), "7000");
}

TEST(FirstRun, AnEmptyMusicDirectoryAloneMakesOneThoughAllElseIsSet) {
  SettingsDesk desk({.Priority = "High"}, With("Selected paths", "Music directory", ""));
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
  EXPECT_FALSE(desk.Values().RouterPresent);
  EXPECT_EQ(desk.Values().MessageDirectory, "");
  EXPECT_EQ(desk.Text("lblMsgDir_Name"), "/messages/");
  EXPECT_TRUE(desk.TheFrmSettings().optTolvo[0].Value());
  desk.Click("cmdBgBrowse");
  desk.Choose(desk.DirSel().Drive1, "/");
  desk.DoubleClick(desk.DirSel().Dir1, "/music");
  desk.Click("cmdOK");
  desk.Click("cmdOK");
  EXPECT_TRUE(desk.Main().Visible);
  EXPECT_EQ(desk.Values().MusicDirectory, "/music/");
  EXPECT_EQ(desk.Values().MessageDirectory, "/messages/");
  EXPECT_EQ(desk.Values().OwnPriorityLevel, 128);
  EXPECT_TRUE(desk.Pc.Serial.PortOpen());
}

TEST(FirstRun, TheFirstOkMakesEveryKeyOfTheDialog) {
  SettingsDesk desk({}, FirstRun());
  ChooseDirectories(desk);
  desk.Click("optTolvo_0");
  desk.Click("cmdOK");
  const std::string text = *desk.Pc.Disk.Read(Desk::kIni);
  for (const char* key :
       {"Music directory=/home/operator/songs/", "Message directory=/home/operator/spots/",
        "Zone:1=Zone 1", "Zone:6=Zone 6", "QRT4410/20=Yes", "Priority=Low", "Fade time=Slow",
        "Com port=2", "PreChime=", "PostChime=", "Master volume=0", "Message volume=0",
        "Micro volume=0", "Music volume=0"}) {
    EXPECT_NE(text.find(std::string("\r\n") + key + "\r\n"), std::string::npos) << key;
  }
}

TEST(FirstRun, TheNextStartOpensTheMainWindow) {
  SettingsDesk desk({}, FirstRun());
  ChooseDirectories(desk);
  desk.Click("cmdOK");
  desk.Restart();
  EXPECT_TRUE(desk.Main().Visible);
  EXPECT_FALSE(desk.TheFrmSettings().Visible);
  EXPECT_EQ(desk.Values().MusicDirectory, "/home/operator/songs/");
}

}  // namespace
}  // namespace marlex
