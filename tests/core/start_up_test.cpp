#include "core/start_up.h"

#include <gtest/gtest.h>

#include "desk/desk.h"
#include "i18n/languages.h"

namespace marlex {
namespace {

/// Removes the value of one key from the settings file before the start.
std::function<void(SimulatedPc&)> Without(const std::string& section, const std::string& key) {
  return [=](SimulatedPc& pc) { pc.Profiles.WriteString(section, key, "", Desk::kIni); };
}

std::function<void(SimulatedPc&)> With(const std::string& section, const std::string& key,
                                       const std::string& value) {
  return [=](SimulatedPc& pc) { pc.Profiles.WriteString(section, key, value, Desk::kIni); };
}

TEST(StartUp, TheSplashStaysForTwoAndAHalfSecondsBeforeTheMainWindow) {
  Desk desk({}, nullptr, false);
  desk.Do([&] { desk.Sys->Start(); });
  EXPECT_TRUE(desk.Sys->TheWindows.frmLogo.Visible);
  desk.Advance(2499);
  EXPECT_TRUE(desk.Sys->TheWindows.frmLogo.Visible);
  EXPECT_FALSE(desk.Main().Visible);
  desk.Advance(1);
  EXPECT_FALSE(desk.Sys->TheWindows.frmLogo.Visible);
  EXPECT_TRUE(desk.Main().Visible);
}

/// Name, period and state of every timer of a window, in the order of their creation.
std::string Timers(const Form& form) {
  std::string text;
  for (const Control* control : form.Controls) {
    const auto* timer = dynamic_cast<const Timer*>(control);
    if (!timer) continue;
    text += timer->ObjectName() + " " + std::to_string(timer->Interval) +
            (timer->Enabled ? " on\n" : " off\n");
  }
  return text;
}

TEST(StartUp, EveryTimerHasItsPeriodAndStartsOnOrOff) {
  Desk desk({}, nullptr, false);
  EXPECT_EQ(Timers(desk.Sys->TheFrmPlayers),
            "tmrMessage 1000 on\ntmrMP3Position 100 on\ntmrDwellTimer 200 off\n"
            "tmrFlash 125 off\ntmrIODelay 200 off\ntmrFadeTime 10 off\n");
  EXPECT_EQ(Timers(desk.Main()), "Seconds 450 on\n");
  EXPECT_EQ(Timers(desk.Sys->TheWindows.frmLogo), "tmrView 2500 off\n");
}

TEST(StartUp, TheTimersThatRunAfterItAreTheTickThePositionAndTheClock) {
  Desk desk;
  EXPECT_EQ(Timers(desk.Sys->TheFrmPlayers),
            "tmrMessage 1000 on\ntmrMP3Position 100 on\ntmrDwellTimer 200 off\n"
            "tmrFlash 125 off\ntmrIODelay 200 off\ntmrFadeTime 10 off\n");
  EXPECT_EQ(Timers(desk.Main()), "Seconds 450 on\n");
}

TEST(StartUp, TheSplashHasAnotherCaptionThanTheMainWindow) {
  Desk desk;
  EXPECT_EQ(desk.Main().Caption.Get(), "Tolvo Marlex");
  EXPECT_NE(desk.Sys->TheWindows.frmLogo.Caption.Get(), "Tolvo Marlex");
}

TEST(StartUp, WithoutALanguageTheDialogComesBeforeSplashAndGuard) {
  Desk desk({}, Without("User language", "Language"), false);
  desk.Pc.Process.OtherWindows = {"Tolvo Marlex"};
  desk.Start();
  EXPECT_TRUE(desk.Sys->TheWindows.frmlangSel.Visible);
  EXPECT_FALSE(desk.Sys->TheWindows.frmLogo.Visible);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
  desk.Click("cmdOK");
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_TRUE(desk.Pc.Process.Ended());
}

TEST(StartUp, AnEmptyLanguageBringsTheDialogAsAnAbsentOneDoes) {
  Desk desk({.Language = ""});
  EXPECT_TRUE(desk.Sys->TheWindows.frmlangSel.Visible);
}

TEST(StartUp, EnglishIsOnWhenTheLanguageDialogOpens) {
  Desk desk({.Language = ""});
  EXPECT_TRUE(desk.Sys->TheWindows.frmlangSel.optLanguage[0].Value());
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Setting("User language", "Language"), "English");
}

TEST(StartUp, EachLanguageOptionStoresItsEnglishNameAndSetsItsBase) {
  for (int index = 0; index < FrmLangSel::kLanguages; ++index) {
    Desk desk({.Language = ""});
    desk.Click("optLanguage_" + std::to_string(index));
    desk.Click("cmdOK");
    const Language& language = kLanguageTable[static_cast<std::size_t>(index)];
    EXPECT_EQ(desk.Setting("User language", "Language"), language.Name);
    EXPECT_EQ(desk.Sys->Strings.LanguageBase, language.LanguageBase);
    EXPECT_TRUE(desk.Sys->TheWindows.frmLogo.Visible);
    desk.Advance(2500);
    EXPECT_TRUE(desk.Main().Visible);
  }
}

TEST(StartUp, FileDialogsAskInTheLanguageOfTheProgram) {
  Desk desk({.Language = "German"});
  const FileDialogTexts& texts = desk.Pc.Dialogs.FileTexts;
  EXPECT_EQ(texts.Caption, "Warnung");
  EXPECT_EQ(texts.NotFound, "Datei nicht gefunden");
  EXPECT_EQ(texts.Exists, "Die Datei ist bereits vorhanden. Ersetzen?");
  EXPECT_EQ(texts.Replace, "Ersetzen");
  EXPECT_EQ(texts.Cancel, "Abbrechen");
  EXPECT_EQ(texts.Folder, "Ordner:");
  EXPECT_EQ(texts.FileName, "Dateiname:");
  EXPECT_EQ(texts.FileType, "Dateityp:");
  EXPECT_EQ(texts.Open, "Öffnen");
  EXPECT_EQ(texts.Save, "Speichern");
  EXPECT_EQ(texts.Back, "Zurück");
  EXPECT_EQ(texts.Forward, "Vor");
  EXPECT_EQ(texts.ParentFolder, "Übergeordneter Ordner");
}

TEST(StartUp, TheLanguagesAreInTheirOrderWithTheirBases) {
  std::string table;
  for (const Language& language : kLanguageTable) {
    table += std::string(language.Name) + " " + std::to_string(language.LanguageBase) + "\n";
  }
  EXPECT_EQ(table,
            "English 0\nFrench 10000\nGerman 20000\nSpanish 30000\nFinnish 40000\n"
            "Hungarian 50000\nGreek 60000\nRussian 15000\nHebrew 25000\nTurkish 35000\n"
            "Dutch 5000\nNorwegian 45000\nItalian 2000\nSwedish 7000\n");
}

TEST(StartUp, ALanguageInLowerCaseOrUnknownIsEnglishWithoutADialog) {
  for (const char* name : {"english", "german", "Klingon", "German "}) {
    Desk desk({}, With("User language", "Language", std::string("\"") + name + "\""));
    EXPECT_EQ(desk.Sys->Strings.LanguageBase, 0) << name;
    EXPECT_TRUE(desk.Main().Visible) << name;
  }
}

TEST(StartUp, EachStoredLanguageSetsItsBaseBeforeTheSplashIsShown) {
  for (const Language& language : kLanguageTable) {
    Desk desk({.Language = language.Name}, nullptr, false);
    desk.Do([&] { desk.Sys->Start(); });
    EXPECT_EQ(desk.Sys->Strings.LanguageBase, language.LanguageBase) << language.Name;
    EXPECT_TRUE(desk.Sys->TheWindows.frmLogo.Visible);
  }
}

TEST(StartUp, ClosingTheLanguageDialogEndsTheProgram) {
  Desk desk({.Language = ""});
  desk.Do([&] { desk.Sys->TheWindows.frmlangSel.Close(); });
  EXPECT_TRUE(desk.Pc.Process.Ended());
}

TEST(StartUp, TheSplashCannotBeClosedByHand) {
  Desk desk({}, nullptr, false);
  desk.Do([&] { desk.Sys->Start(); });
  desk.Do([&] { desk.Sys->TheWindows.frmLogo.Close(); });
  desk.Advance(2500);
  EXPECT_TRUE(desk.Main().Visible);
}

TEST(StartUp, ASecondInstanceWarnsAndEndsBeforeItTouchesAnything) {
  Desk desk({.Music = {{"march"}}, .Autostart = "True"},
            [](SimulatedPc& pc) { pc.Process.OtherWindows = {"Tolvo Marlex"}; });
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body, "");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Caption, "Warning");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Icon, BoxIcon::Information);
  EXPECT_EQ(desk.Journal(), "0 box Warning: \n0 process ends\n");
}

TEST(StartUp, ASecondInstanceDoesNotStartBehindItsOpenWarning) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Process.OtherWindows = {"Tolvo Marlex"};
    pc.Dialogs.AnswerAfterMs = 60'000;
  });
  desk.Advance(30'000);
  EXPECT_FALSE(desk.Main().Visible);
  desk.Advance(30'000);
  EXPECT_TRUE(desk.Pc.Process.Ended());
}

TEST(StartUp, OfTwoInstancesThatAreStartedAtOnceTheSecondTouchesNothing) {
  Desk desk({.Music = {{"march"}}, .Autostart = "True"}, nullptr, false);
  desk.Pc.Journal.Unmute("mixer");
  desk.Do([&] { desk.Sys->Start(); });
  desk.Advance(2499);
  desk.Pc.Process.OtherWindows = {"Tolvo Marlex"};
  desk.Pc.Journal.Clear();
  desk.Advance(1);
  EXPECT_EQ(desk.Journal(), "1 box Warning: \n1 process ends\n");
}

TEST(StartUp, AWindowWithAnotherCaptionIsNoRunningInstance) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Process.OtherWindows = {"Tolvo Marlex starts"}; });
  EXPECT_TRUE(desk.Main().Visible);
}

TEST(StartUp, TheProcessIsKnownFromTheEndOfTheSplashAndNotBefore) {
  Desk desk({}, nullptr, false);
  desk.Do([&] { desk.Sys->Start(); });
  EXPECT_EQ(desk.Pc.Process.ClaimedWindow, "");
  desk.Advance(2500);
  EXPECT_EQ(desk.Pc.Process.ClaimedWindow, "Tolvo Marlex");
}

TEST(StartUp, TheNameOfTheOperatingSystemIsWorkedOutAndKept) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Process.Version = {1, 4, 90}; });
  EXPECT_EQ(desk.Values().OperatingSystemText, "Windows Me");
}

TEST(StartUp, TheNameOfTheOperatingSystemFollowsThePublishedNumbers) {
  EXPECT_EQ(OperatingSystemName({1, 4, 0}), "Windows 95");
  EXPECT_EQ(OperatingSystemName({1, 4, 10}), "Windows 98");
  EXPECT_EQ(OperatingSystemName({1, 4, 90}), "Windows Me");
  EXPECT_EQ(OperatingSystemName({1, 4, 5}), "");
  EXPECT_EQ(OperatingSystemName({2, 3, 51}), "Windows NT 3.51");
  EXPECT_EQ(OperatingSystemName({2, 4, 0}), "Windows NT 4.0");
  EXPECT_EQ(OperatingSystemName({2, 5, 1}), "Windows 2000");
  EXPECT_EQ(OperatingSystemName({2, 10, 0}), "");
  EXPECT_EQ(OperatingSystemName({0, 6, 1}), "Failed");
  EXPECT_EQ(OperatingSystemName({3, 0, 0}), "Failed");
}

TEST(StartUp, AMissingSettingsFileLeadsToTheLanguageDialog) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Disk.Remove(Desk::kIni); });
  ASSERT_TRUE(desk.Sys->TheWindows.frmlangSel.Visible);
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kIni), "[User language]\r\nLanguage=English\r\n");
  EXPECT_FALSE(desk.Main().Visible);
  desk.Advance(2500);
  EXPECT_FALSE(desk.Main().Visible);
}

TEST(StartUp, AFirstStartInAFolderThatCannotBeWrittenSaysSoAtEachTry) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Disk.Remove(Desk::kIni);
    pc.Disk.FailWrites("/app");
  });
  for (std::size_t tries = 1; tries <= 2; ++tries) {
    desk.Click("cmdOK");
    desk.Advance(3000);
    EXPECT_TRUE(desk.Sys->TheWindows.frmlangSel.Visible);
    ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), tries);
    EXPECT_EQ(desk.Pc.Dialogs.Boxes.back().Body, "The settings cannot be saved: /app/Tolvo.ini");
  }
  desk.Pc.Disk.Heal("/app");
  desk.Click("cmdOK");
  desk.Advance(2500);
  EXPECT_FALSE(desk.Sys->TheWindows.frmlangSel.Visible);
  EXPECT_EQ(desk.Setting("User language", "Language"), "English");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 2u);
}

}  // namespace
}  // namespace marlex
