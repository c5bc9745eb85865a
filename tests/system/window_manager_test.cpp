// The real program under a window manager: closing its windows, also while boxes are open.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/real_desk.h"

namespace marlex {
namespace {

using testing::ElementsAre;

constexpr int kMusicZones = 128 + 3;
constexpr int kCallZones = 128 + 1;

bool OpenNotice(RealDesk& desk) {
  return desk.Click("mnuAbout") && desk.Click("mnuAdresses") &&
         desk.Await("QMessageBox", "visible", "yes");
}

/// A desk with a window manager, which gives each new window the focus.
class ManagedDesk : public RealDesk {
 public:
  explicit ManagedDesk(const stage::InstallationFiles& files) : RealDesk(files, WithMicrophone()) {
    Manager = StartWindowManager();
    Start();
  }

  /// Sends the manager's close message to the window that the pointer has entered, coming from the
  /// bare screen.
  bool CloseMainWindow() {
    Display->Move(stage::VirtualDisplay::kWidth - 1, stage::VirtualDisplay::kHeight - 1);
    if (!Click("frmMain.lblCurrentZone_5")) return false;
    Display->Key("ctrl+alt+Escape");
    return true;
  }

  testing::AssertionResult HasLeft() {
    if (!Program->WaitForEnd(10)) return testing::AssertionFailure() << "it runs on";
    if (Program->ExitCode() != 0) return testing::AssertionFailure() << "with a fault";
    if (!AwaitLastByte(0, 5)) return testing::AssertionFailure() << "without the release byte";
    return testing::AssertionSuccess();
  }

  bool AskForAFileThatIsNotThere() {
    if (!Click("mnuFile") || !Click("mnuOpen")) return false;
    if (!Await("fileDialog", "visible", "yes") || !Click("fileNameEdit")) return false;
    for (const char* letter : {"n", "o", "n", "e"}) Display->Key(letter);
    Display->Key("Return");
    return Await("QMessageBox", "text", "none\nFile not found");
  }

 private:
  std::unique_ptr<stage::ChildProcess> Manager;
};

TEST(WindowManager, ItsCloseOfTheMainWindowIsTheExit) {
  ManagedDesk desk(TwoSongs(40));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.CloseMainWindow());
  EXPECT_TRUE(desk.HasLeft());
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, 0));
}

TEST(WindowManager, ItsCloseIsNotRefusedWhileANoticeIsOpen) {
  ManagedDesk desk(TwoSongs(40));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(OpenNotice(desk));
  ASSERT_TRUE(desk.CloseMainWindow());
  EXPECT_TRUE(desk.HasLeft());
}

TEST(WindowManager, ItsCloseIsNotRefusedWhileAFileDialogIsOpen) {
  ManagedDesk desk(TwoSongs(40));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.Click("mnuFile"));
  ASSERT_TRUE(desk.Click("mnuOpen"));
  ASSERT_TRUE(desk.Await("fileDialog", "visible", "yes"));
  ASSERT_TRUE(desk.CloseMainWindow());
  EXPECT_TRUE(desk.HasLeft());
}

TEST(WindowManager, ItsCloseIsNotRefusedWhileAQuestionAboutAFileIsOpen) {
  ManagedDesk desk(TwoSongs(40));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.AskForAFileThatIsNotThere());
  ASSERT_TRUE(desk.CloseMainWindow());
  EXPECT_TRUE(desk.HasLeft());
}

TEST(WindowManager, AQuestionAboutAFileDoesNotBarTheCallButton) {
  ManagedDesk desk(TwoSongs(40));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.AskForAFileThatIsNotThere());
  ASSERT_TRUE(desk.Press("frmMain.cmdCall"));
  EXPECT_TRUE(desk.AwaitText("frmMain.cmdCall", "Speak"));
  desk.Display->Release();
  EXPECT_TRUE(desk.AwaitText("frmMain.cmdCall", "Call"));
  EXPECT_EQ(desk.Window->Read("QMessageBox", "visible"), "yes");
}

/// The operator is speaking when another program takes the keyboard: the release might never
/// arrive.
void ExpectTheCallToEnd(RealDesk& desk, stage::ForeignWindow::Kind kind) {
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.Press("frmMain.cmdCall"));
  ASSERT_TRUE(desk.AwaitText("frmMain.cmdCall", "Speak"));
  ASSERT_TRUE(desk.AwaitLastByte(kCallZones));
  const auto other = desk.Display->Open(kind);
  ASSERT_TRUE(stage::WaitUntil([&] { return other->HasKeyboard(); }, 30));
  EXPECT_TRUE(desk.AwaitText("frmMain.cmdCall", "Call"));
  EXPECT_TRUE(desk.AwaitLastByte(0)) << "over music that the call has paused";
  desk.Display->Release();
}

TEST(WindowManager, AWindowOfAnotherProgramEndsACall) {
  ManagedDesk desk(TwoSongs(40));
  ExpectTheCallToEnd(desk, stage::ForeignWindow::Kind::Plain);
}

TEST(WindowManager, TheLockOfTheScreenEndsACall) {
  ManagedDesk desk(TwoSongs(40));
  ExpectTheCallToEnd(desk, stage::ForeignWindow::Kind::Lock);
}

/// Neither a window manager nor a screen free of notices is needed for that.
TEST(WindowManager, TheLockEndsACallAlsoWithoutAManagerAndUnderANotice) {
  RealDesk desk(TwoSongs(40), WithMicrophone());
  desk.Start();
  ASSERT_TRUE(OpenNotice(desk));
  ExpectTheCallToEnd(desk, stage::ForeignWindow::Kind::Lock);
}

TEST(WindowManager, ANoticeDoesNotBarTheCallButton) {
  ManagedDesk desk(TwoSongs(40));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(OpenNotice(desk));
  ASSERT_TRUE(desk.Press("frmMain.cmdCall"));
  EXPECT_TRUE(desk.AwaitText("frmMain.cmdCall", "Speak"));
  desk.Display->Release();
  EXPECT_TRUE(desk.AwaitText("frmMain.cmdCall", "Call"));
  EXPECT_EQ(desk.Window->Read("QMessageBox", "visible"), "yes");
}

}  // namespace
}  // namespace marlex
