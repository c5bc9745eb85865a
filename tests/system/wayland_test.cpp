// The real program on Wayland: its windows, the call button, the close, light and dark.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "system/found_program.h"
#include "system/real_desk.h"
#include "system/stage/wayland_compositor.h"

namespace marlex {
namespace {

using stage::WaylandCompositor;
using testing::ElementsAre;

constexpr int kMusicZones = 128 + 3;
constexpr int kCallZones = 128 + 1;

/// Colours of a desktop, and what the program then shows between its cards.
struct Face {
  const char* Ground;
  const char* Text;
  const char* Shown;
};
constexpr Face kLight = {"239,240,241", "35,38,41", "#eef1f5"};
constexpr Face kDark = {"42,46,50", "252,252,252", "#141a21"};

class Wayland : public testing::Test {
 protected:
  void SetUp() override {
    if (!IsInstalled("sway")) GTEST_SKIP() << "sway is not installed";
    Desk = std::make_unique<RealDesk>(TwoSongs(60), WithMicrophone());
    Compositor = std::make_unique<WaylandCompositor>(*Desk->Display);
    Desk->MoreVariables = Compositor->Variables();
  }
  void TearDown() override {
    if (Desk) Desk->Program.reset();  // before the compositor
  }

  bool Start() {
    Desk->Start();
    return AwaitMainWindow();
  }

  /// Waits until the compositor shows the main window in exactly the size that the program gave it.
  bool AwaitMainWindow() const {
    const auto isShown = [this] {
      const auto area = Desk->Window->Geometry("frmMain");
      if (!area) return false;
      const int width = area->Width, height = area->Height;
      return !IsBackdrop(0, 0) && !IsBackdrop(width - 1, height - 1) &&
             IsBackdrop(width, height / 2) && IsBackdrop(width / 2, height);
    };
    return stage::WaitUntil(isShown, 30);
  }
  bool IsBackdrop(int x, int y) const {
    return Desk->Display->ColourAt(x, y) == WaylandCompositor::kBackdrop;
  }

  std::unique_ptr<RealDesk> Desk;
  std::unique_ptr<WaylandCompositor> Compositor;
};

TEST_F(Wayland, ItsWindowMenuAndBoxAreShownWhereTheMouseFindsThem) {
  ASSERT_TRUE(Start());
  ASSERT_TRUE(Desk->Click("mnuAbout"));
  ASSERT_TRUE(Desk->Click("mnuAdresses"));
  ASSERT_TRUE(Desk->Await("QMessageBox", "visible", "yes"));
  ASSERT_TRUE(Desk->Click("QMessageBox.OK"));
  EXPECT_TRUE(Desk->Await("QMessageBox", "visible", "no"));
}

TEST_F(Wayland, TheMicrophoneIsOpenAsLongAsTheCallButtonIsHeld) {
  ASSERT_TRUE(Start());
  Desk->Speak();
  ASSERT_TRUE(Desk->AwaitTone(kFirstSong));
  ASSERT_TRUE(Desk->AwaitBytes(1));
  ASSERT_TRUE(Desk->Press("frmMain.cmdCall"));
  ASSERT_TRUE(Desk->AwaitTone(kVoice));
  Desk->RecordFor(2);
  EXPECT_TRUE(Desk->IsLoud(kVoice));
  EXPECT_EQ(Desk->Window->Read("frmMain.cmdCall", "text"), "Speak");
  Desk->Display->Release();
  ASSERT_TRUE(Desk->AwaitText("frmMain.cmdCall", "Call"));
  ASSERT_TRUE(Desk->AwaitTone(kFirstSong));
  Desk->RecordFor(1);
  EXPECT_LT(Desk->ToneNowDb(kVoice), kNothingDb);
  EXPECT_THAT(Desk->ByteValues(), ElementsAre(kMusicZones, kCallZones, 0));
}

TEST_F(Wayland, TheCloseFromTheCompositorIsTheExit) {
  ASSERT_TRUE(Start());
  ASSERT_TRUE(Desk->AwaitBytes(1));
  ASSERT_TRUE(Compositor->CloseWindow("Tolvo Marlex"));
  ASSERT_TRUE(Desk->Program->WaitForEnd(30));
  EXPECT_EQ(Desk->Program->ExitCode(), 0);
  EXPECT_TRUE(Desk->AwaitLastByte(0));
  EXPECT_THAT(Desk->ByteValues(), ElementsAre(kMusicZones, 0));
}

/// A desktop that keeps its colours in a file, and reports a change of them on its message bus.
class WaylandFace : public Wayland {
 protected:
  void SetUp() override {
    Wayland::SetUp();
    if (IsSkipped()) return;
    Desk->StartBus();
    Portal = Desk->StartBeside("portal", {MARLEX_BINARY_DIR "/helpers/marlex_portal", "/dev/null"});
    Desk->MoreVariables["XDG_CURRENT_DESKTOP"] = "KDE";
    Desk->MoreVariables["KDE_SESSION_VERSION"] = "5";
    Desk->MoreVariables["XDG_CONFIG_HOME"] = Desk->Folder + "/config";
  }

  void SetDesktop(const Face& face) const {
    std::filesystem::create_directories(Desk->Folder + "/config");
    std::ofstream settings(Desk->Folder + "/config/kdeglobals");
    for (const char* group : {"Window", "View", "Button"})
      settings << "[Colors:" << group << "]\nBackgroundNormal=" << face.Ground
               << "\nForegroundNormal=" << face.Text << "\n";
  }

  void ReportChange() const {
    Desk->StartBeside(
            "change",
            {"dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.portal.Desktop",
             "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings.Change",
             "string:org.kde.kdeglobals.General", "string:ColorScheme", "string:Other"})
        ->WaitForEnd(30);
  }

  /// Waits until a pixel at the edge of the main window has the colour of this face.
  bool AwaitFace(const Face& face) const {
    return stage::WaitUntil([&] { return Desk->Display->ColourAt(5, 400) == face.Shown; }, 30);
  }

  /// For people to look at.
  void KeepPicture(const std::string& name) const {
    const std::string folder = MARLEX_BINARY_DIR "/screenshots";
    std::filesystem::create_directories(folder);
    Desk->Display->Picture(folder + "/wayland_" + name + ".png");
  }

  std::unique_ptr<stage::ChildProcess> Portal;
};

TEST_F(WaylandFace, FollowsTheDesktopFromLightToDarkAndBack) {
  SetDesktop(kLight);
  ASSERT_TRUE(Start());
  EXPECT_TRUE(AwaitFace(kLight));
  KeepPicture("light");
  SetDesktop(kDark);
  ReportChange();
  EXPECT_TRUE(AwaitFace(kDark));
  KeepPicture("dark");
  SetDesktop(kLight);
  ReportChange();
  EXPECT_TRUE(AwaitFace(kLight));
}

}  // namespace
}  // namespace marlex
