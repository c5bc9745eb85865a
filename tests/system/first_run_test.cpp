// The real program in an empty folder, set up by clicking as an installer would.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "system/directory_picker.h"
#include "system/real_desk.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

using testing::Contains;
using testing::HasSubstr;

/// Bytes of Low, the level set on a first run.
constexpr int kThirdZone = 64 + 4;
constexpr int kFirstZone = 64 + 1;

/// An empty installation. The media are in the operator's home, and a playlist next to the program.
class EmptyDesk : public RealDesk {
 public:
  explicit EmptyDesk(const stage::StageOptions& options = RealDeskOptions()) : RealDesk(options) {
    fs::create_directories(Folder + "/Songs");
    fs::create_directories(Folder + "/Spots");
    stage::WriteMp3File(Folder + "/Songs/First.mp3", stage::Tone(kFirstSong, 60, kTonePeak));
    stage::WriteWavFile(Folder + "/Spots/Gong.wav", stage::Tone(kMessage, 1, kTonePeak));
    WriteFile("Day.lst", "[Playlist]\nSong:1=First\n");
    Start();
  }

  bool ChooseLanguage() {
    return Await("frmlangSel", "visible", "yes") && Click("frmlangSel.cmdOK") &&
           Await("frmSettings", "visible", "yes");
  }

  /// Opens a directory of the home in the picker, which starts there.
  bool ChooseDirectory(const std::string& browseButton, const std::string& name) {
    return Click("frmSettings." + browseButton) && Await("frmDirSel", "visible", "yes") &&
           DoubleClick("frmDirSel.Dir1 " + std::to_string(RowInPicker(Folder, name))) &&
           Await("frmDirSel.lstFiles", "rows", "1") && Click("frmDirSel.cmdOK") &&
           Await("frmDirSel", "visible", "no");
  }

  /// Sets both directories and the type of the amplifier, and opens the main window with OK.
  bool SetUp() {
    return ChooseDirectory("cmdBgBrowse", "Songs") &&
           AwaitText("frmSettings.lblBGDir_Name", Folder + "/Songs/") &&
           ChooseDirectory("cmdMsgBrowse", "Spots") &&
           AwaitText("frmSettings.lblMsgDir_Name", Folder + "/Spots/") &&
           Click("frmSettings.optTolvo_0") && Await("frmSettings.frNames", "visible", "yes") &&
           Click("frmSettings.cmdOK") && Await("frmMain", "visible", "yes") &&
           Await("frmSettings", "visible", "no");
  }

  bool OpenPlaylist() {
    if (!Click("mnuFile") || !Click("mnuOpen")) return false;
    if (!Await("fileDialog", "visible", "yes")) return false;
    for (const char* key : {"D", "a", "y", "period", "l", "s", "t", "Return"}) Display->Key(key);
    return Await("frmMain.lstPlaylist", "rows", "1");
  }
};

TEST(FirstRun, GoesFromTheLanguageToTheFirstSongAndZone) {
  EmptyDesk desk;
  ASSERT_TRUE(desk.ChooseLanguage());
  EXPECT_EQ(desk.Window->Read("frmMain", "visible"), "no");
  ASSERT_TRUE(desk.SetUp());
  EXPECT_THAT(desk.ReadFile("Tolvo.ini"), HasSubstr("Music directory=" + desk.Folder + "/Songs/"));
  ASSERT_TRUE(desk.OpenPlaylist());
  ASSERT_TRUE(desk.Click("frmMain.cmdMusicZones_2"));
  ASSERT_TRUE(desk.Click("frmMain.cmdPlay"));
  EXPECT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  EXPECT_THAT(desk.ByteValues(), Contains(kThirdZone));
}

TEST(FirstRun, GoesOnToTheFirstCallOverTheFirstSong) {
  EmptyDesk desk(WithMicrophone());
  ASSERT_TRUE(desk.ChooseLanguage());
  ASSERT_TRUE(desk.SetUp());
  ASSERT_TRUE(desk.OpenPlaylist());
  ASSERT_TRUE(desk.Click("frmMain.cmdMusicZones_2"));
  ASSERT_TRUE(desk.Click("frmMain.cmdPlay"));
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  EXPECT_EQ(desk.Window->Read("frmMain.cmdCall", "enabled"), "no") << "there is no zone to call";
  ASSERT_TRUE(desk.Click("frmMain.cmdCallZone_0"));
  ASSERT_TRUE(desk.Await("frmMain.cmdCall", "enabled", "yes"));
  ASSERT_TRUE(desk.AwaitLastByte(kThirdZone));
  desk.Speak();
  ASSERT_TRUE(desk.Press("frmMain.cmdCall"));
  ASSERT_TRUE(desk.AwaitTone(kVoice));
  EXPECT_FALSE(desk.IsLoud(kFirstSong));
  EXPECT_TRUE(desk.AwaitLastByte(kFirstZone));
  EXPECT_EQ(desk.Window->Read("frmMain.cmdCall", "text"), "Speak");
  desk.Display->Release();
  ASSERT_TRUE(desk.AwaitText("frmMain.cmdCall", "Call"));
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  EXPECT_TRUE(desk.AwaitLastByte(0)) << "the call gives its zone back";
  desk.RecordFor(1);
  EXPECT_LT(desk.ToneNowDb(kVoice, 1), kNothingDb);
}

TEST(FirstRun, WithoutASoundDeviceABoxSaysSoBeforeTheEnd) {
  stage::StageOptions options = RealDeskOptions();
  options.HasSound = false;
  EmptyDesk desk(options);
  ASSERT_TRUE(desk.Click("frmlangSel.cmdOK"));
  ASSERT_TRUE(desk.Await("QMessageBox", "visible", "yes"));
  EXPECT_THAT(desk.Window->Read("QMessageBox", "text"), HasSubstr("Unable to detect a mixer:"));
  EXPECT_FALSE(desk.Program->WaitForEnd(3)) << "it ends only when the box is answered";
  EXPECT_TRUE(desk.Records("fault: No sound: the sound device is missing"));
  ASSERT_TRUE(desk.Click("QMessageBox.OK"));
  ASSERT_TRUE(desk.Program->WaitForEnd(10));
  EXPECT_EQ(desk.Program->ExitCode(), 0);
}

TEST(FirstRun, RefusesAMissingDirectoryAndACancelEndsTheProgram) {
  EmptyDesk desk;
  ASSERT_TRUE(desk.ChooseLanguage());
  ASSERT_TRUE(desk.Click("frmSettings.cmdOK"));
  ASSERT_TRUE(desk.AwaitText("QMessageBox", "Background music directory not entered"));
  ASSERT_TRUE(desk.Click("QMessageBox.OK"));
  ASSERT_TRUE(desk.Await("QMessageBox", "visible", "no"));
  EXPECT_EQ(desk.Window->Read("frmSettings", "visible"), "yes");
  ASSERT_TRUE(desk.Click("frmSettings.cmdCancel"));
  EXPECT_TRUE(desk.Program->WaitForEnd(10));
}

TEST(Settings, AreOpenedOverPlayingMusicAndAVolumeIsHeardAtOnce) {
  RealDesk desk(TwoSongs(60));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.Click("mnuEdit"));
  ASSERT_TRUE(desk.Click("mnuSettings"));
  ASSERT_TRUE(desk.Await("frmSettings.slMusicVolume", "value", "20000"));
  const double before = desk.ToneNowDb(kFirstSong);
  ASSERT_TRUE(desk.Click("frmSettings.slMusicVolume"));  // below the knob: a page down
  ASSERT_TRUE(desk.Await("frmSettings.slMusicVolume", "value", "26553"));
  EXPECT_TRUE(stage::WaitUntil([&] { return desk.ToneNowDb(kFirstSong) < before - 0.8; }, 10));
  EXPECT_TRUE(stage::WaitUntil(
      [&] { return desk.ReadFile("Tolvo.ini").find("Music volume=26553") != std::string::npos; },
      10));
  ASSERT_TRUE(desk.Click("frmSettings.cmdCancel"));
  ASSERT_TRUE(desk.Await("frmSettings", "visible", "no"));
  EXPECT_TRUE(desk.Program->IsRunning());
  EXPECT_TRUE(desk.IsLoud(kFirstSong));
}

}  // namespace
}  // namespace marlex
