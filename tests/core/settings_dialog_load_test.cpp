#include <gtest/gtest.h>

#include "core/settings_desk.h"
#include "i18n/with_texts.h"

namespace marlex {
namespace {

TEST(SettingsDialogLoad, TheMenuOpensItWithTheTextsOfTheTable) {
  SettingsDesk desk;
  desk.TheFrmSettings().Frame3.Caption = "of the design";
  desk.Open();
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
  EXPECT_EQ(desk.TheFrmSettings().Caption.Get(), "Settings");
  EXPECT_EQ(desk.Text("Frame3"), "Fading time");
  EXPECT_EQ(desk.Text("optTolvo_0"), "QRT4410/20");
  EXPECT_EQ(desk.Text("optTolvo_1"), "Other Tolvo");
  EXPECT_EQ(desk.Text("cmdPreSelect"), "Select");
  EXPECT_EQ(desk.Text("Explain_0"), "Directory where the MP3 background music files are stored");
  EXPECT_EQ(desk.Text("Explain_1"), "Directory where the wav message file are stored");
  EXPECT_EQ(desk.Text("optCom_0") + desk.Text("optCom_1"), "Com 1Com 2");
}

TEST(SettingsDialogLoad, EachTextOfTheTableReachesItsControl) {
  SettingsDesk desk({.Language = "French"});
  desk.Open();
  std::string texts;
  for (Control* control : desk.TheFrmSettings().Controls) {
    auto* visual = dynamic_cast<VisualControl*>(control);
    if (visual && visual->Caption.Get() != "")
      texts += visual->ObjectName() + " " + visual->Caption.Get() + "\n";
  }
  const auto french = [&desk](const char* text) { return WithTexts(desk.Sys->Strings, text); };
  EXPECT_EQ(french("#600"), "Fermer");
  EXPECT_EQ(desk.TheFrmSettings().Caption.Get(), french("#42"));
  EXPECT_EQ(
      texts,
      french(
          "Explain_0 #620\nExplain_1 #630\nlblBGDir_Name /music/\ncmdBgBrowse #610\n"
          "lblMsgDir_Name /messages/\ncmdMsgBrowse #610\nfrVolume #640\nfrMasterVol #650\n"
          "frMusicVol #870\nfrMesVolume #670\nfrMicroVolume #680\nFrame3 #690\noptFast #700\n"
          "optSlow #710\nFrame1 #720\noptTolvo_0 QRT4410/20\noptTolvo_1 #730\nfrChimes #740\n"
          "chkPreChime #750\ncmdPreSelect Select\nchkPostChime #760\ncmdPostSelect Select\n"
          "lblSound Microphone function not available due to limitations of the PC sound system\n"
          "frNames #780\nfrPort #830\noptCom_0 #840\noptCom_1 #850\nfrPriority #800\n"
          "optPriority_0 #810\noptPriority_1 #820\ncmdOK OK\ncmdCancel #770\n"));
}

TEST(SettingsDialogLoad, TheCaptionsOverTheDirectoriesHaveTheColourOfTheVolumes) {
  SettingsDesk desk({}, nullptr, false);
  desk.TheFrmSettings().frVolume.BackColor = 0x123456;
  desk.Start();
  desk.Open();
  EXPECT_EQ(desk.TheFrmSettings().Explain[0].BackColor, 0x123456u);
  EXPECT_EQ(desk.TheFrmSettings().Explain[1].BackColor, 0x123456u);
}

TEST(SettingsDialogLoad, WithAMicrophoneTheChimesShow) {
  SettingsDesk desk;
  desk.Open();
  EXPECT_TRUE(desk.Visible("frChimes"));
  EXPECT_FALSE(desk.Visible("frSound"));
  EXPECT_TRUE(desk.Enabled("frMicroVolume"));
}

TEST(SettingsDialogLoad, WithoutAMicrophoneAnEnglishNoteTakesTheirPlace) {
  SettingsDesk desk({.Microphone = false});
  desk.Open();
  EXPECT_FALSE(desk.Visible("frChimes"));
  EXPECT_TRUE(desk.Visible("frSound"));
  EXPECT_FALSE(desk.Enabled("frMicroVolume"));
  EXPECT_EQ(desk.Text("lblSound"),
            "Microphone function not available due to limitations of the PC sound system");
}

TEST(SettingsDialogLoad, TheDirectoriesAreReadFreshFromTheFile) {
  SettingsDesk desk;
  desk.Values().MusicDirectory = "/elsewhere/";
  With("Selected paths", "Message directory", "/other/")(desk.Pc);
  desk.Open();
  EXPECT_EQ(desk.Text("lblBGDir_Name"), "/music/");
  EXPECT_EQ(desk.Text("lblMsgDir_Name"), "/other/");
}

TEST(SettingsDialogLoad, AStoredChimeIsCheckedAndShown) {
  SettingsDesk desk({.PostChime = "older"});
  With("Chime selection", "PostChime", "dong")(desk.Pc);
  desk.Open();
  EXPECT_EQ(desk.Values().PostChime, "dong");
  EXPECT_EQ(desk.TheFrmSettings().chkPostChime.Value, 1);
  EXPECT_TRUE(desk.Enabled("cmdPostSelect"));
  EXPECT_TRUE(desk.Visible("lblPostChime"));
  EXPECT_EQ(desk.Text("lblPostChime"), "dong");
  EXPECT_EQ(desk.TheFrmSettings().chkPreChime.Value, 0);
  EXPECT_FALSE(desk.Enabled("cmdPreSelect"));
  EXPECT_FALSE(desk.Visible("lblPreChime"));
}

/// A chime takes effect as soon as it is picked, without an OK; the next opening restores the
/// file's.
TEST(SettingsDialogLoad, TheChimesOfTheFileCountAgainFromItsNextOpeningOn) {
  SettingsDesk desk({.Messages = {{"welcome", 300}, {"closing", 200}}, .PreChime = "closing"});
  desk.Pc.Journal.Only({"wav"});
  const auto call = [&desk] {
    desk.TakeJournal();
    desk.Press("cmdCall");
    desk.Advance(1000);
    desk.Release("cmdCall");
    desk.Advance(1000);
    return desk.Journal();
  };
  desk.Open();
  desk.Click("cmdPreSelect");
  desk.Choose(desk.ChimeSelect().lstChimeList, "welcome.wav");
  desk.Click("cmdOK");      // of the picker
  desk.Click("cmdCancel");  // of the settings
  EXPECT_EQ(call(), "0 wav play welcome.wav\n300 wav end welcome.wav\n");
  desk.Open();
  desk.Click("cmdCancel");
  EXPECT_EQ(call(), "0 wav play closing.wav\n200 wav end closing.wav\n");
}

TEST(SettingsDialogLoad, WithoutAMessageDirectoryThereIsNoChimeToPick) {
  SettingsDesk without({}, With("Selected paths", "Message directory", ""));
  without.Open();
  EXPECT_FALSE(without.Enabled("chkPreChime"));
  EXPECT_FALSE(without.Enabled("chkPostChime"));
  SettingsDesk with;
  with.Open();
  EXPECT_TRUE(with.Enabled("chkPreChime"));
  EXPECT_TRUE(with.Enabled("chkPostChime"));
}

TEST(SettingsDialogLoad, TheRouterHasItsFramesAndTheButtonsAreBelowThem) {
  SettingsDesk desk;
  desk.Open();
  for (const char* frame : {"frNames", "frPort", "frPriority"}) {
    EXPECT_TRUE(desk.Visible(frame)) << frame;
  }
  EXPECT_TRUE(desk.TheFrmSettings().optTolvo[0].Value());
  EXPECT_EQ(desk.TheFrmSettings().cmdOK.Top, 5640);
  EXPECT_EQ(desk.TheFrmSettings().cmdCancel.Top, 5640);
}

TEST(SettingsDialogLoad, AnotherAmplifierHasNoneOfThem) {
  SettingsDesk desk({.Router = false});
  desk.Open();
  for (const char* frame : {"frNames", "frPort", "frPriority"}) {
    EXPECT_FALSE(desk.Visible(frame)) << frame;
  }
  EXPECT_TRUE(desk.TheFrmSettings().optTolvo[1].Value());
  EXPECT_EQ(desk.TheFrmSettings().cmdOK.Top, 4560);
  EXPECT_EQ(desk.TheFrmSettings().cmdCancel.Top, 4560);
}

/// Showing the type acts like a click on it, and the window follows.
TEST(SettingsDialogLoad, TheWindowEndsBelowTheButtonsOfItsType) {
  for (const bool router : {true, false}) {
    SettingsDesk desk({.Router = router}, nullptr, false);
    desk.TheFrmSettings().Height = 1000;
    desk.Start();
    desk.Open();
    EXPECT_EQ(desk.TheFrmSettings().Height, router ? 6645 : 5565);
    desk.Click("cmdCancel");
    desk.Open();
    EXPECT_EQ(desk.TheFrmSettings().Height, router ? 6645 : 5565);
  }
}

TEST(SettingsDialogLoad, AnAbsentComPortShowsPortTwo) {
  for (const auto& [stored, shown] :
       std::vector<std::pair<std::string, int>>{{"1", 0}, {"2", 1}, {"", 1}, {"01", 1}, {"3", 1}}) {
    SettingsDesk desk({}, With("Used com port", "Com port", stored));
    desk.Open();
    EXPECT_TRUE(desk.TheFrmSettings().optCom[shown].Value()) << stored;
    EXPECT_FALSE(desk.TheFrmSettings().optCom[1 - shown].Value()) << stored;
  }
}

TEST(SettingsDialogLoad, ZonesWithoutANameKeepTheirsOfTheDesign) {
  SettingsDesk desk;
  desk.Open();
  EXPECT_EQ(desk.TheFrmSettings().txtZoneName[0].Text.Get(), "Hall");
  EXPECT_EQ(desk.TheFrmSettings().txtZoneName[1].Text.Get(), "Yard");
  EXPECT_EQ(desk.TheFrmSettings().txtZoneName[2].Text.Get(), "Zone 3");
  EXPECT_EQ(desk.TheFrmSettings().txtZoneName[5].Text.Get(), "Zone 6");
}

TEST(SettingsDialogLoad, OnlyTheExactWordHighIsHigh) {
  for (const auto& [stored, shown] :
       std::vector<std::pair<std::string, int>>{{"High", 1}, {"high", 0}, {"Low", 0}, {"", 0}}) {
    SettingsDesk desk({.Priority = stored});
    desk.Open();
    EXPECT_TRUE(desk.TheFrmSettings().optPriority[shown].Value()) << stored;
  }
}

TEST(SettingsDialogLoad, TheSlidersTakeTheirRangeFromTheMixersPanel) {
  SettingsDesk desk;
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  panel.SldrVol[0].Max = 60000;
  panel.SldrVol[desk.Sys->Mixer.WaveLine].Max = 61000;
  panel.SldrVol[desk.Sys->Mixer.MicLine].Max = 62000;
  desk.Open();
  EXPECT_EQ(desk.TheFrmSettings().slMasterVolume.Max, 60000);
  EXPECT_EQ(desk.TheFrmSettings().slMusicVolume.Max, 61000);
  EXPECT_EQ(desk.TheFrmSettings().slMessageVolume.Max, 61000);
  EXPECT_EQ(desk.TheFrmSettings().slMicroVolume.Max, 62000);
}

TEST(SettingsDialogLoad, TheSlidersShowTheLevelsAndWriteThemAsIfMovedByHand) {
  SettingsDesk desk;
  desk.Values().MusicVolume = 21000;
  desk.Open();
  EXPECT_EQ(desk.TheFrmSettings().slMasterVolume.Value, 5000);
  EXPECT_EQ(desk.TheFrmSettings().slMusicVolume.Value, 21000);
  EXPECT_EQ(desk.TheFrmSettings().slMicroVolume.Value, 15000);
  EXPECT_EQ(desk.TheFrmSettings().slMessageVolume.Value, 10000);
  EXPECT_EQ(desk.Setting("Volume", "Music volume"), "21000");
  EXPECT_EQ(desk.WaveSlider(), 21000);
}

/// On the line that both share, the music's slider is applied before that of the messages.
TEST(SettingsDialogLoad, AMessageThatPlaysKeepsItsLevelAlsoTheLoudest) {
  for (const int level : {0, 10'000}) {
    SettingsDesk desk({.Sequences = {{}}, .MessageVolume = level});
    desk.RunTo(12, 1, 2);
    ASSERT_TRUE(desk.State().MessagePlaying);
    desk.Open();
    EXPECT_EQ(desk.WaveSlider(), level);
  }
}

TEST(SettingsDialogLoad, TheLoudestLevelsAreWrittenLikeAllOthers) {
  SettingsDesk desk({.MusicVolume = 0, .MessageVolume = 0, .MasterVolume = 0, .MicroVolume = 0});
  desk.TakeJournal();
  desk.Pc.Journal.Only({"write"});
  desk.Open();
  EXPECT_EQ(desk.Journal(),
            "0 write Tolvo.ini [Volume] Master volume=0\n"
            "0 write Tolvo.ini [Volume] Music volume=0\n"
            "0 write Tolvo.ini [Volume] Micro volume=0\n"
            "0 write Tolvo.ini [Volume] Message volume=0\n");
}

TEST(SettingsDialogLoad, AnAbsentFadeTimeIsFastUntilTheDialogOpens) {
  SettingsDesk desk({.FadeTime = ""});
  EXPECT_EQ(desk.Values().FadeTime, 500);
  desk.Open();
  EXPECT_EQ(desk.Values().FadeTime, 1500);
  EXPECT_TRUE(desk.TheFrmSettings().optSlow.Value());
  EXPECT_FALSE(desk.TheFrmSettings().optFast.Value());
  desk.Click("cmdCancel");
  EXPECT_EQ(desk.Values().FadeTime, 1500);
  EXPECT_EQ(desk.Setting("Volume", "Fade time"), "");
}

TEST(SettingsDialogLoad, OnlyTheExactWordFastIsFast) {
  SettingsDesk fast({.FadeTime = "Fast"});
  fast.Open();
  EXPECT_EQ(fast.Values().FadeTime, 500);
  EXPECT_TRUE(fast.TheFrmSettings().optFast.Value());
  SettingsDesk other({.FadeTime = "fast"});
  other.Open();
  EXPECT_EQ(other.Values().FadeTime, 1500);
}

TEST(SettingsDialogLoad, ASecondOpeningReadsEverythingAgain) {
  SettingsDesk desk;
  desk.Open();
  desk.Type(desk.TheFrmSettings().txtZoneName[0], "Gate");
  desk.Click("optCom_1");
  desk.Click("optPriority_1");
  desk.Click("chkPreChime");
  desk.Click("optTolvo_1");
  desk.Click("cmdCancel");
  EXPECT_FALSE(desk.TheFrmSettings().Visible);
  desk.Open();
  EXPECT_EQ(desk.TheFrmSettings().txtZoneName[0].Text.Get(), "Hall");
  EXPECT_TRUE(desk.TheFrmSettings().optCom[0].Value());
  EXPECT_TRUE(desk.TheFrmSettings().optPriority[0].Value());
  EXPECT_TRUE(desk.TheFrmSettings().optTolvo[0].Value());
  EXPECT_EQ(desk.TheFrmSettings().chkPreChime.Value, 0);
  EXPECT_TRUE(desk.Visible("frNames"));
}

TEST(SettingsDialogLoad, TheMenuOnAnOpenDialogBringsItToTheFrontUnchanged) {
  SettingsDesk desk;
  desk.Open();
  desk.Type(desk.TheFrmSettings().txtZoneName[0], "Gate");
  const unsigned shown = desk.TheFrmSettings().ShowCount;
  desk.Open();
  EXPECT_EQ(desk.TheFrmSettings().ShowCount, shown + 1);
  EXPECT_EQ(desk.TheFrmSettings().txtZoneName[0].Text.Get(), "Gate");
}

}  // namespace
}  // namespace marlex
