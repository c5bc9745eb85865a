// The real program on a desktop that offers file dialogs of its own, through a portal.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "system/real_desk.h"

namespace marlex {
namespace {

using testing::HasSubstr;

stage::StageOptions WithPortal() {
  stage::StageOptions options = RealDeskOptions();
  options.Variables["QT_QPA_PLATFORMTHEME"] = "xdgdesktopportal";
  return options;
}

/// A desk with a message bus, a portal on it, and an operator who chooses files there.
class PortalDesk : public RealDesk {
 public:
  PortalDesk() : RealDesk(TwoSongs(40), WithPortal()) {
    StartBus();
    Portal =
        StartBeside("portal", {MARLEX_BINARY_DIR "/helpers/marlex_portal", Folder + "/answer"});
    AwaitRequest("ready");
    Start();
  }

  /// What the operator chooses in the portal from now on; empty to cancel.
  void WillChoose(const std::string& path) const { std::ofstream(Folder + "/answer") << path; }

  bool AwaitRequest(const std::string& line) const {
    return stage::WaitUntil([&] { return Requests().find(line) != std::string::npos; }, 30);
  }
  std::string Requests() const {
    std::ostringstream text;
    text << std::ifstream(Folder + "/portal.log").rdbuf();
    return text.str();
  }

  bool OpenPlaylistEditor() {
    return Click("frmMain.mnuEdit") && Click("mnuPlaylist") &&
           Await("frmPlaylist.AvailMP3s", "rows", "2") && Click("frmPlaylist.cmdSelectAll") &&
           Await("frmPlaylist.SelectedMP3s", "rows", "2");
  }
  bool SavePlaylist() { return Click("frmPlaylist.mnuFile") && Click("frmPlaylist.mnuSave"); }

  bool OpenPlaylist() { return Click("frmMain.mnuFile") && Click("frmMain.mnuOpen"); }

  /// What the open box says, without the marks that keep its path whole.
  std::string Said() const {
    std::string text = Window->Read("QMessageBox", "text");
    for (const std::string_view mark : {"\u200B", "\u2060", "\u2066", "\u2069"}) {
      for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark))
        text.erase(at, mark.size());
    }
    return text;
  }

 private:
  std::unique_ptr<stage::ChildProcess> Portal;
};

TEST(DesktopDialogs, APlaylistIsOpenedThroughThePortal) {
  PortalDesk desk;
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  desk.WriteFile("Evening.lst", "[Playlist]\r\nSong:1=Second\r\n");
  desk.WillChoose(desk.File("Evening.lst"));
  ASSERT_TRUE(desk.OpenPlaylist());
  EXPECT_TRUE(desk.Await("frmMain.lstPlaylist", "rows", "1"));
  EXPECT_EQ(desk.Requests(), "ready\nopen \"Open\" multiple=0 modal=0 in \n");
}

TEST(DesktopDialogs, AFileThatIsNotThereIsReportedAndThenAnotherOneOpens) {
  PortalDesk desk;
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  desk.WillChoose(desk.File("None.lst"));
  ASSERT_TRUE(desk.OpenPlaylist());
  ASSERT_TRUE(stage::WaitUntil(
      [&] { return desk.Said() == desk.File("None.lst") + "\nFile not found"; }, 30))
      << desk.Said();
  ASSERT_TRUE(desk.Click("QMessageBox.OK"));
  ASSERT_TRUE(desk.Await("QMessageBox", "visible", "no"));
  desk.WriteFile("None.lst", "[Playlist]\r\nSong:1=Second\r\n");
  ASSERT_TRUE(desk.OpenPlaylist());
  EXPECT_TRUE(desk.Await("frmMain.lstPlaylist", "rows", "1"));
}

TEST(DesktopDialogs, ASavedNameGetsItsExtensionAndIsAskedAbout) {
  PortalDesk desk;
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.OpenPlaylistEditor());
  desk.WillChoose(desk.File("Vol. 2"));
  ASSERT_TRUE(desk.SavePlaylist());
  ASSERT_TRUE(desk.Await("frmPlaylist", "visible", "no"));
  EXPECT_THAT(desk.ReadFile("Vol. 2.lst"), HasSubstr("Song:2=Second\r\n"));
  EXPECT_THAT(desk.Requests(),
              HasSubstr("save \"Save\" multiple=0 modal=1 in " + desk.Installation + "\n"));
  ASSERT_TRUE(desk.OpenPlaylistEditor());
  desk.WriteFile("Vol. 2.lst", "");
  ASSERT_TRUE(desk.SavePlaylist());
  ASSERT_TRUE(
      desk.Await("QMessageBox", "text", "Vol. 2.lst\nThe file already exists. Replace it?"));
  EXPECT_EQ(desk.ReadFile("Vol. 2.lst"), "");
  ASSERT_TRUE(desk.Click("QMessageBox.Replace"));
  ASSERT_TRUE(desk.Await("frmPlaylist", "visible", "no"));
  EXPECT_THAT(desk.ReadFile("Vol. 2.lst"), HasSubstr("Song:2=Second\r\n"));
}

}  // namespace
}  // namespace marlex
