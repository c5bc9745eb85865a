// An operator's first minute with the real program, in several languages, by clicks and by keys
// alone: language, settings, first song, first announcement, first call. The call button is held
// with the mouse either way.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "system/directory_picker.h"
#include "system/real_desk.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

using testing::HasSubstr;

/// Byte of Low, the level set on a first run.
constexpr int kFirstZone = 64 + 1;

struct Minute {
  const char* Language;
  int Row;  // in the language dialog
  bool ByKeys;
};

std::ostream& operator<<(std::ostream& stream, const Minute& minute) {
  return stream << minute.Language << (minute.ByKeys ? "ByKeys" : "ByClicks");
}

/// A desk with a window manager and a microphone, an empty installation, and media in the home.
class FirstMinute : public RealDesk, public testing::TestWithParam<Minute> {
 protected:
  FirstMinute() : RealDesk(WithMicrophone()), Manager(StartWindowManager()) {
    fs::create_directories(Folder + "/Songs");
    fs::create_directories(Folder + "/Spots");
    stage::WriteMp3File(Folder + "/Songs/First.mp3", stage::Tone(kFirstSong, 100, kTonePeak));
    stage::WriteWavFile(Folder + "/Spots/Gong.wav", stage::Tone(kMessage, 2, kTonePeak));
    WriteFile("Day.lst", "[Playlist]\nSong:1=First\n");
    Start("2031-05-05 08:50:00");
  }

  /// Presses a button of the window: by a click, or by the tab key and the space bar.
  bool Use(const std::string& object) {
    if (!GetParam().ByKeys) return Click(object);
    if (!Reach(object)) return false;

    Display->Key("space");
    return true;
  }

  /// Moves the focus to a control by the tab key alone.
  bool Reach(const std::string& object) {
    constexpr int kMostStops = 60;
    if (!Await(object, "visible", "yes")) return false;
    for (int stop = 0; stop < kMostStops; ++stop) {
      const auto hasFocus = [&] { return Window->Read(object, "focus") == "yes"; };
      if (stage::WaitUntil(hasFocus, 0.2)) return true;
      Display->Key("Tab");
    }
    ADD_FAILURE() << "The tab key does not reach " << object;
    return false;
  }

  /// Moves down a list to a row by the arrow key.
  bool GoDown(const std::string& list, int row) {
    constexpr int kMostRows = 60;
    for (int step = 0; step < kMostRows; ++step) {
      const auto isThere = [&] { return Window->Read(list, "row") == std::to_string(row); };
      if (stage::WaitUntil(isThere, 0.2)) return true;
      Display->Key("Down");
    }
    return false;
  }

  bool Fill(const std::string& field, const std::string& text) {
    if (!(GetParam().ByKeys ? Reach(field) : Click(field))) return false;
    Type(text);
    return AwaitText(field, text);
  }

  /// Chooses an item of the main window's menus.
  bool Choose(const std::string& menu, int menuPlace, const std::string& item, int itemPlace) {
    if (!GetParam().ByKeys) return Click("frmMain." + menu) && Click(item);
    Display->Key("Alt_L");
    for (int place = 0; place < menuPlace; ++place) Display->Key("Right");
    Display->Key("Return");
    for (int place = 0; place < itemPlace; ++place) Display->Key("Down");
    Display->Key("Return");
    return true;
  }

  bool NameFile(const std::string& name) {
    if (!Await("fileDialog", "visible", "yes")) return false;
    Type(name);
    Display->Key("Return");
    return Await("fileDialog", "visible", "no");
  }

  bool ChooseLanguage() {
    if (!Await("frmlangSel", "visible", "yes")) return false;
    const std::string choice = "frmlangSel.optLanguage_" + std::to_string(GetParam().Row);
    if (GetParam().ByKeys) {
      if (!Reach("frmlangSel.optLanguage_0")) return false;
      constexpr int kRowsOfAColumn = 7;
      if (GetParam().Row >= kRowsOfAColumn) Display->Key("Right");
      for (int row = 0; row < GetParam().Row % kRowsOfAColumn; ++row) Display->Key("Down");
    } else if (!Click(choice)) {
      return false;
    }
    return Await(choice, "checked", "yes") && Use("frmlangSel.cmdOK") &&
           Await("frmSettings", "visible", "yes");
  }

  /// Opens a directory of the home in the picker, which starts there.
  bool ChooseDirectory(const std::string& browseButton, const std::string& name) {
    if (!Use("frmSettings." + browseButton) || !Await("frmDirSel", "visible", "yes")) return false;
    if (GetParam().ByKeys) {
      if (!Reach("frmDirSel.Dir1") || !GoDown("frmDirSel.Dir1", RowInPicker(Folder, name)))
        return false;
    } else if (!DoubleClick("frmDirSel.Dir1 " + std::to_string(RowInPicker(Folder, name)))) {
      return false;
    }
    return Await("frmDirSel.lstFiles", "rows", "1") && Use("frmDirSel.cmdOK") &&
           Await("frmDirSel", "visible", "no");
  }

  bool EnterSettings() {
    return ChooseDirectory("cmdBgBrowse", "Songs") && ChooseDirectory("cmdMsgBrowse", "Spots") &&
           Use("frmSettings.optTolvo_0") && Await("frmSettings.frNames", "visible", "yes") &&
           Use("frmSettings.cmdOK") && Await("frmMain", "visible", "yes");
  }

  bool PlayTheFirstSong() {
    return Choose("mnuFile", 0, "mnuOpen", 0) && NameFile("Day.lst") &&
           Await("frmMain.lstPlaylist", "rows", "1") && Use("frmMain.cmdMusicZones_0") &&
           Use("frmMain.cmdPlay") && AwaitTone(kFirstSong);
  }

  bool ComposeAnAnnouncement() {
    if (!Choose("mnuEdit", 1, "mnuSchedule", 1)) return false;
    if (!Await("WavWindow.AvailWavs", "rows", "1")) return false;
    if (GetParam().ByKeys) {
      if (!Reach("WavWindow.AvailWavs")) return false;
      Display->Key("Down");
      Display->Key("Return");
    } else if (!Click("WavWindow.AvailWavs 0")) {
      return false;
    }
    if (!Await("WavWindow.SelectedWavs", "rows", "1") || !Fill("WavWindow.txtHours", "9") ||
        !Fill("WavWindow.txtMinutes", "00") || !Use("WavWindow.WkDays_0") ||
        !Use("WavWindow.cmdZone_0"))
      return false;
    Display->Key("ctrl+s");
    return NameFile("Nine.sch") && Await("WavWindow", "visible", "no") &&
           Choose("mnuFile", 0, "mnuSequence", 1) && NameFile("Nine.sch") &&
           Await("frmMain.grdSchedule", "rows", "1");
  }

 private:
  std::unique_ptr<stage::ChildProcess> Manager;
};

TEST_P(FirstMinute, GoesFromTheLanguageToTheFirstCall) {
  ASSERT_TRUE(ChooseLanguage());
  EXPECT_THAT(ReadFile("Tolvo.ini"), HasSubstr(std::string("Language=") + GetParam().Language));
  ASSERT_TRUE(EnterSettings());
  ASSERT_TRUE(PlayTheFirstSong());
  EXPECT_TRUE(AwaitLastByte(kFirstZone));
  ASSERT_TRUE(ComposeAnAnnouncement());
  Clock->Set("2031-05-05 08:59:57");
  ASSERT_TRUE(AwaitTone(kMessage));
  ASSERT_TRUE(AwaitTone(kFirstSong));
  ASSERT_TRUE(Use("frmMain.cmdCallZone_0"));
  ASSERT_TRUE(Await("frmMain.cmdCall", "enabled", "yes"));
  Speak();
  ASSERT_TRUE(Press("frmMain.cmdCall"));
  ASSERT_TRUE(AwaitTone(kVoice));
  Display->Release();
  ASSERT_TRUE(AwaitTone(kFirstSong));
  RecordFor(1);
  EXPECT_LT(ToneNowDb(kVoice, 1), kNothingDb);
}

constexpr Minute kMinutes[] = {{"German", 2, false}, {"German", 2, true},  {"Greek", 6, false},
                               {"Greek", 6, true},   {"Hebrew", 8, false}, {"Hebrew", 8, true}};
INSTANTIATE_TEST_SUITE_P(In, FirstMinute, testing::ValuesIn(kMinutes),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace marlex
