#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <ostream>
#include <set>

#include "desk/desk.h"
#include "i18n/languages.h"
#include "i18n/string_blocks.h"

namespace marlex {

void PrintTo(const Language& language, std::ostream* out) { *out << language.Name; }

namespace {

using Texts = std::map<std::string, std::string>;  // by window and control

constexpr const char* kFixed[] = {
    "Tolvo Marlex", "QRT4410/20", "Function keys", "Function key",
    // The title of the directory picker.
    "Directory selection",
    // The title of a playlist that was read at the start.
    "Background music playlist:",
    "Microphone function not available due to limitations of the PC sound system",
    // Never shown.
    "Description", "Repeat",
    // Names that the operator chose.
    "Hall", "Yard", "/music/", "/messages/"};

/// F1 to F12, on the keyboard and in every language.
bool IsFunctionKey(const std::string& place) { return place.find("mnuFKey_") != std::string::npos; }

bool HasALetter(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](unsigned char c) { return std::isalpha(c); });
}

void AddTexts(const Form& form, Texts& texts) {
  texts[form.Name] = form.Caption;
  for (const Control* control : form.Controls) {
    const auto* visual = dynamic_cast<const VisualControl*>(control);
    if (!visual) continue;
    const std::string name = form.Name + " " + control->ObjectName();
    texts[name] = visual->Caption;
    texts[name + " tip"] = visual->ToolTipText;
  }
}

/// The texts with letters in all windows after the choice of a language.
Texts TextsOfWindows(const char* language) {
  Desk desk({.Language = language}, nullptr, false);
  Windows& windows = desk.Sys->TheWindows;
  Texts texts;
  desk.Do([&desk] { desk.Sys->Start(); });
  AddTexts(windows.frmLogo, texts);
  desk.Advance(2500);
  desk.Click("mnuAllDays");
  desk.Do([&] {
    for (Form* form : std::initializer_list<Form*>{
             &windows.frmMain, &windows.frmAbout, &windows.frmSettings, &windows.frmDirSel,
             &windows.frmChimeSelect, &windows.TheWavWindow, &windows.frmPlaylist}) {
      form->Load();
      AddTexts(*form, texts);
    }
  });
  for (int column = 0; column <= kMessagesColumn; ++column)
    texts["heading " + std::to_string(column)] = desk.Cell(0, column);
  std::erase_if(texts, [](const auto& text) { return !HasALetter(text.second); });
  return texts;
}

/// Texts that the table has in the language as in English.
std::set<std::string> SharedTexts(const char* language) {
  std::set<std::string> english;
  for (const StringEntry& entry : StringsOf("English")) english.insert(std::string(entry.Text));
  std::set<std::string> shared;
  for (const StringEntry& entry : StringsOf(language)) {
    if (english.contains(std::string(entry.Text))) shared.insert(std::string(entry.Text));
  }
  return shared;
}

class TranslatedWindows : public ::testing::TestWithParam<Language> {};

TEST_P(TranslatedWindows, KeepNoEnglishTextButTheFixedOnes) {
  const Texts english = TextsOfWindows("English");
  const std::set<std::string> shared = SharedTexts(GetParam().Name);
  std::set<std::string> fixed(std::begin(kFixed), std::end(kFixed));
  if (std::string(GetParam().Name) == "French") fixed.insert("Select");
  EXPECT_GT(english.size(), 100u);
  for (const auto& [place, text] : TextsOfWindows(GetParam().Name)) {
    const auto found = english.find(place);
    if (found == english.end() || found->second != text || IsFunctionKey(place)) continue;
    EXPECT_TRUE(shared.contains(text) || fixed.contains(text) || fixed.contains(place))
        << place << ": " << text;
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslatedWindows,
                         ::testing::ValuesIn(kLanguageTable.begin() + 1, kLanguageTable.end()),
                         [](const auto& language) { return std::string(language.param.Name); });

/// Deliberate: the French table has no word for it.
TEST(TranslatedWindows, TheButtonsThatPickAChimeStayEnglishInFrenchAlone) {
  for (const auto& [language, word] :
       std::map<const char*, std::string>{{"French", "Select"}, {"German", "Auswählen"}}) {
    const Texts texts = TextsOfWindows(language);
    EXPECT_EQ(texts.at("frmSettings cmdPreSelect"), word);
    EXPECT_EQ(texts.at("frmSettings cmdPostSelect"), word);
  }
}

TEST(TranslatedWindows, TheOkOfAWindowIsTheWordOfTheLanguage) {
  const Texts texts = TextsOfWindows("Spanish");
  for (const char* window : {"frmSettings", "frmChimeSelect", "frmAbout", "WavWindow"})
    EXPECT_EQ(texts.at(std::string(window) + " cmdOK"), "Aceptar") << window;
  EXPECT_EQ(texts.at("WavWindow cmdCancel"), "Cancelar");
}

TEST(TranslatedWindows, TheSplashAndTheAboutWindowSpeakOneLanguage) {
  const Texts texts = TextsOfWindows("German");
  EXPECT_EQ(texts.at("frmLogo"), "Tolvo Marlex startet");
  EXPECT_EQ(texts.at("frmAbout"), "Über Tolvo Marlex");
  for (const char* window : {"frmLogo", "frmAbout"}) {
    EXPECT_EQ(texts.at(std::string(window) + " lblNotice"),
              "Durchsagen sind nur so zuverlässig wie die Anlage dahinter: Prüfen Sie Ihre Anlage "
              "regelmäßig.");
  }
}

}  // namespace
}  // namespace marlex
