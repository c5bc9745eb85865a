// The editors of the real program: what is composed in them with real clicks can be heard.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/real_desk.h"

namespace marlex {
namespace {

using stage::Recording;
using testing::ElementsAre;
using testing::HasSubstr;

// Bytes of our own level, High.
constexpr int kSecondZone = 128 + 2;

/// Seconds that an editor pauses after a save.
constexpr double kPauseAfterSave = 0.5;

/// The names of the keys that type a text.
std::vector<std::string> KeysFor(const std::string& text) {
  std::vector<std::string> keys;
  for (const char c : text) {
    if (c == '.') {
      keys.push_back("period");
    } else if (c == ',') {
      keys.push_back("comma");
    } else if (c == '-') {
      keys.push_back("minus");
    } else {
      keys.push_back(std::string(1, c));
    }
  }
  return keys;
}

class RealEditorDesk : public RealDesk {
 public:
  explicit RealEditorDesk(stage::InstallationFiles files) : RealDesk(Quiet(std::move(files))) {}

  void Type(const std::string& text) {
    for (const std::string& key : KeysFor(text)) Display->Key(key);
  }
  bool TypeInto(const std::string& field, const std::string& text) {
    if (!Click(field)) return false;
    Type(text);
    return AwaitText(field, text);
  }

  /// Answers a file dialog with a name.
  bool ChooseFile(const std::string& name) {
    if (!Await("fileDialog", "visible", "yes")) return false;
    Type(name);
    Display->Key("Return");
    return Await("fileDialog", "visible", "no");
  }
  /// Answers a save dialog with the name of a file that exists.
  bool Overwrite(const std::string& name) {
    if (!Await("fileDialog", "visible", "yes")) return false;
    Type(name);
    Display->Key("Return");
    return Click("QMessageBox.Replace") && Await("fileDialog", "visible", "no");
  }
  bool Choose(const std::string& menu, const std::string& item) {
    return Click(menu) && Click(item);
  }

  bool OpenScheduleEditor() {
    return Choose("frmMain.mnuEdit", "mnuSchedule") && Await("WavWindow", "visible", "yes");
  }

 private:
  static stage::InstallationFiles Quiet(stage::InstallationFiles files) {
    files.Autostart = false;
    return files;
  }
};

TEST(ScheduleEditor, ASequenceIsComposedSavedOpenedAndHeardAtItsMinute) {
  RealEditorDesk desk(TwoSongs(60));
  desk.Start("2031-05-05 08:50:00");
  ASSERT_TRUE(desk.OpenScheduleEditor());
  ASSERT_TRUE(desk.Await("WavWindow.AvailWavs", "rows", "2"));
  ASSERT_TRUE(desk.Click("WavWindow.AvailWavs 1"));
  ASSERT_TRUE(desk.Await("WavWindow.SelectedWavs", "rows", "1"));
  ASSERT_TRUE(desk.AwaitText("WavWindow.lblTotalTime", "1"));
  ASSERT_TRUE(desk.Click("WavWindow.PrevKey"));
  EXPECT_TRUE(desk.AwaitTone(kMessage));
  ASSERT_TRUE(desk.AwaitText("WavWindow.PrevKey", "Play"));
  ASSERT_TRUE(desk.TypeInto("WavWindow.txtHours", "9"));
  ASSERT_TRUE(desk.TypeInto("WavWindow.txtMinutes", "00"));
  for (const char* name : {"WavWindow.WkDays_0", "WavWindow.cmdZone_1"})
    ASSERT_TRUE(desk.Click(name));
  ASSERT_TRUE(desk.Choose("WavWindow.mnuFile", "WavWindow.mnuSave"));
  ASSERT_TRUE(desk.ChooseFile("Nine.sch"));
  ASSERT_TRUE(desk.Await("WavWindow", "visible", "no"));
  EXPECT_EQ(desk.ReadFile("Nine.sch"),
            "[Schedule]\r\nMessage(s)=Short\r\nHour(s)=9\r\nMinute(s)=00\r\n"
            "Weekday(s)=1000000\r\nZone(s)=020000\r\nTimer=Exact\r\n");
  ASSERT_TRUE(desk.Choose("frmMain.mnuFile", "frmMain.mnuSequence"));
  ASSERT_TRUE(desk.ChooseFile("Nine.sch"));
  ASSERT_TRUE(desk.Await("frmMain.grdSchedule", "rows", "1"));
  desk.Clock->Set("2031-05-05 08:59:57");
  ASSERT_TRUE(desk.AwaitTone(kMessage));
  ASSERT_TRUE(desk.AwaitBytes(2));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kSecondZone, 0));
}

TEST(ScheduleEditor, AConflictIsMadeFoundAndCured) {
  stage::InstallationFiles files = TwoSongs(60);
  files.Sequences = {{"One", "Short", "09", "00", "003000"}, {"Two", "Long", "09", "30", "003000"}};
  RealEditorDesk desk(files);
  desk.Start("2031-05-05 08:50:00");
  const auto setMinutes = [&](const std::string& file, const std::string& minutes) {
    return desk.OpenScheduleEditor() && desk.Choose("WavWindow.mnuFile", "WavWindow.mnuOpen") &&
           desk.ChooseFile(file) && desk.AwaitText("WavWindow.txtHours", "09") &&
           desk.Click("WavWindow.txtMinutes") && (desk.Display->Key("ctrl+a"), true) &&
           desk.TypeInto("WavWindow.txtMinutes", minutes) &&
           desk.Choose("WavWindow.mnuFile", "WavWindow.mnuSave") && desk.Overwrite(file);
  };
  ASSERT_TRUE(setMinutes("Two.sch", "00"));
  ASSERT_TRUE(desk.Await("frmMain.lblConflict", "visible", "yes"));
  ASSERT_TRUE(setMinutes("Two.sch", "45"));
  const auto saved = [&] {
    return desk.ReadFile("Two.sch").find("Minute(s)=45\n") != std::string::npos;
  };
  ASSERT_TRUE(stage::WaitUntil(saved, 30));
  // The program looks at the saved file only when the editor closes, which it does not do by
  // itself.
  desk.RecordFor(3 * kPauseAfterSave);
  EXPECT_EQ(desk.Window->Read("WavWindow", "visible"), "yes");
  ASSERT_TRUE(desk.Choose("WavWindow.mnuFile", "WavWindow.mnuExit"));
  EXPECT_TRUE(desk.Await("frmMain.lblConflict", "visible", "no"));
}

TEST(PlaylistEditor, APlaylistIsComposedShuffledSavedOpenedAndHeard) {
  RealEditorDesk desk(TwoSongs(60));
  desk.Start();
  ASSERT_TRUE(desk.Choose("frmMain.mnuEdit", "mnuPlaylist"));
  ASSERT_TRUE(desk.Await("frmPlaylist.AvailMP3s", "rows", "2"));
  ASSERT_TRUE(desk.Click("frmPlaylist.cmdSelectAll"));
  ASSERT_TRUE(desk.Await("frmPlaylist.SelectedMP3s", "rows", "2"));
  ASSERT_TRUE(desk.Click("frmPlaylist.cmdRandomize"));
  ASSERT_TRUE(desk.Await("frmPlaylist.SelectedMP3s", "rows", "2"));
  ASSERT_TRUE(desk.Click("frmPlaylist.AvailMP3s 1"));
  ASSERT_TRUE(desk.Await("frmPlaylist.SelectedMP3s", "rows", "3"));
  ASSERT_TRUE(desk.Choose("frmPlaylist.mnuFile", "frmPlaylist.mnuSave"));
  ASSERT_TRUE(desk.ChooseFile("Mine.lst"));
  ASSERT_TRUE(desk.Await("frmPlaylist", "visible", "no"));
  const std::string saved = desk.ReadFile("Mine.lst");
  EXPECT_THAT(saved, HasSubstr("Song:3=Second\r\n"));
  EXPECT_THAT(saved, HasSubstr("Autostart=True\r\n"));
  ASSERT_TRUE(desk.Choose("frmMain.mnuFile", "frmMain.mnuOpen"));
  ASSERT_TRUE(desk.ChooseFile("Mine.lst"));
  ASSERT_TRUE(desk.Await("frmMain.lstPlaylist", "rows", "3"));
  const bool firstComesFirst = saved.find("Song:1=First") != std::string::npos;
  EXPECT_TRUE(desk.AwaitTone(firstComesFirst ? kFirstSong : kSecondSong));
}

}  // namespace
}  // namespace marlex
