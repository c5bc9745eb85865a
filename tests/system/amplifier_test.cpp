// The real marlex-amplifier: beside the real program on one display, and on its own.

#include <filesystem>

#include "desktop/files/temporary_directory.h"
#include "system/real_desk.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAmplifier = MARLEX_BINARY_DIR "/marlex-amplifier";
constexpr const char* kPseudoTerminals = "/dev/pts/";

stage::StageOptions BesideAnAmplifier() {
  stage::StageOptions options = RealDeskOptions();
  options.StandIn = kAmplifier;
  return options;
}

class DeskBesideAmplifier : public RealDesk {
 public:
  DeskBesideAmplifier() : RealDesk(TwoSongs(100), BesideAnAmplifier()) {}

  std::string LampOfDesk(int zone) const {
    return Window->Read("frmMain.lblCurrentZone_" + std::to_string(zone), "colour");
  }
  std::string LampOfAmplifier(int zone) const {
    return StandInWindow->Read("frmAmplifier.lblCurrentZone_" + std::to_string(zone), "colour");
  }
  /// Waits until the amplifier's lamps have the colours of the desk's.
  bool AwaitSameLamps() const {
    const auto areSame = [this] {
      for (int zone = 0; zone < 6; ++zone)
        if (LampOfAmplifier(zone) != LampOfDesk(zone)) return false;
      return true;
    };
    return stage::WaitUntil(areSame, 10);
  }
  /// Waits until the amplifier feeds the music's zones and no other, or none at all.
  bool AwaitFed(bool isFed) const {
    const auto isSo = [&] { return (LampOfAmplifier(0) != LampOfAmplifier(2)) == isFed; };
    return stage::WaitUntil(isSo, 30);
  }
  bool Choose(const std::string& key) { return Click(key, *StandInWindow); }
};

TEST(AmplifierBesideTheDesk, AClickOnItsKeysTakesTheDeskOverAndGivesItBack) {
  DeskBesideAmplifier desk;
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.Choose("cmdHigher"));
  EXPECT_TRUE(desk.Await("frmMain.lblHiPrio", "visible", "yes"));
  EXPECT_TRUE(desk.AwaitText("frmMain.lblHiPrio", "Higher priority call in progress"));
  EXPECT_TRUE(desk.AwaitSilence());
  ASSERT_TRUE(desk.Choose("cmdFree"));
  EXPECT_TRUE(desk.Await("frmMain.lblHiPrio", "visible", "no"));
  EXPECT_TRUE(desk.AwaitTone(kFirstSong));
}

TEST(AmplifierBesideTheDesk, ItsLampsFollowTheZonesOfTheMusic) {
  DeskBesideAmplifier desk;
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  EXPECT_TRUE(desk.AwaitSameLamps());
  EXPECT_EQ(desk.LampOfAmplifier(0), desk.LampOfAmplifier(1));
  EXPECT_NE(desk.LampOfAmplifier(1), desk.LampOfAmplifier(2));
  const std::string dark = desk.LampOfAmplifier(2);
  ASSERT_TRUE(desk.Click("cmdMusicZones_2"));
  EXPECT_TRUE(stage::WaitUntil([&] { return desk.LampOfDesk(2) != dark; }, 10));
  EXPECT_TRUE(desk.AwaitSameLamps());
  EXPECT_NE(desk.LampOfAmplifier(2), dark);
}

TEST(AmplifierBesideTheDesk, StaysForTheNextDeskAndTakesItsLinkAway) {
  DeskBesideAmplifier desk;
  desk.Start();
  ASSERT_TRUE(desk.AwaitFed(true));
  desk.Program->End();
  ASSERT_TRUE(desk.AwaitFed(false));
  desk.Start();
  ASSERT_TRUE(desk.AwaitFed(true));
  ASSERT_TRUE(desk.Choose("cmdHigher"));
  EXPECT_TRUE(desk.Await("frmMain.lblHiPrio", "visible", "yes"));
  EXPECT_TRUE(fs::is_symlink(desk.File("com1")));
  desk.StandIn->Signal(SIGTERM);
  ASSERT_TRUE(desk.StandIn->WaitForEnd(10));
  EXPECT_EQ(desk.StandIn->ExitCode(), 0);
  EXPECT_FALSE(fs::is_symlink(desk.File("com1")));
}

/// The command on its own, off screen.
class AmplifierCommand : public testing::Test {
 protected:
  stage::Command CommandFor(std::vector<std::string> arguments) {
    stage::Command command;
    command.Arguments = std::move(arguments);
    command.Arguments.insert(command.Arguments.begin(), kAmplifier);
    command.Variables = {{"QT_QPA_PLATFORM", "offscreen"},
                         {"XDG_RUNTIME_DIR", File("")},
                         {"HOME", File("home")},
                         {"XDG_DATA_HOME", ""}};
    command.LogFile = File("log");
    return command;
  }

  /// The exit code and what was said.
  std::string Answer(const std::vector<std::string>& arguments) {
    fs::remove(File("log"));
    const int code = stage::Run(CommandFor(arguments), 20);
    return std::to_string(code) + " " + Directory.Read("log");
  }

  std::string File(const std::string& name) const { return Directory.Path(name); }

  /// Starts the command and waits for its link, which it takes away at its end.
  void ExpectLinkIn(const std::string& folder, stage::Command command) {
    stage::ChildProcess amplifier(command);
    const std::string link = folder + "/com1";
    EXPECT_TRUE(stage::WaitUntil([&] { return fs::exists(link); }, 20)) << link;
    EXPECT_TRUE(fs::read_symlink(link).string().starts_with(kPseudoTerminals));
    amplifier.Signal(SIGTERM);
    EXPECT_TRUE(amplifier.WaitForEnd(20));
    EXPECT_FALSE(fs::is_symlink(link));
  }

  const test::TemporaryDirectory Directory;
};

TEST_F(AmplifierCommand, UsesTheUsualFolderOfTheDeskOrTheGivenOne) {
  ExpectLinkIn(File("home/.local/share/marlex"), CommandFor({}));
  stage::Command command = CommandFor({});
  command.Variables["XDG_DATA_HOME"] = File("data");
  ExpectLinkIn(File("data/marlex"), command);
  ExpectLinkIn(File("shop"), CommandFor({File("shop")}));
}

TEST_F(AmplifierCommand, SaysWhatIsWrongAndHowItIsUsed) {
  EXPECT_TRUE(Answer({"--help"}).starts_with("0 Usage: marlex-amplifier [--box] [FOLDER]\n"));
  EXPECT_TRUE(Answer({"-h"}).starts_with("0 Usage: "));
  EXPECT_TRUE(Answer({"--folder"}).starts_with("2 Usage: "));
  EXPECT_TRUE(Answer({"one", "two"}).starts_with("2 Usage: "));
  EXPECT_TRUE(Answer({"--box", "one", "two"}).starts_with("2 Usage: "));
  EXPECT_EQ(Answer({""}), "1 marlex-amplifier: the name of the folder is empty\n");
  Directory.Write("file", "x");
  EXPECT_EQ(Answer({File("file")}),
            "1 marlex-amplifier: " + File("file") + " is a file, not a folder\n");
  EXPECT_EQ(Answer({File("file/below")}),
            "1 marlex-amplifier: the folder " + File("file/below") + " cannot be created\n");
  fs::create_directory(File("shop"));
  fs::create_symlink("/dev/null", File("shop/com1"));
  EXPECT_EQ(Answer({File("shop")}),
            "1 marlex-amplifier: " + File("shop/com1") + " leads to /dev/null already\n");
}

TEST_F(AmplifierCommand, WaitsWithItsBoxForSomebodyToReadIt) {
  Directory.Write("com1", "x");
  stage::ChildProcess amplifier(CommandFor({"--box", File("")}));
  const auto hasSpoken = [this] {
    return Directory.Read("log").find("is not a link\n") != std::string::npos;
  };
  EXPECT_TRUE(stage::WaitUntil(hasSpoken, 20));
  EXPECT_FALSE(amplifier.WaitForEnd(1));
}

}  // namespace
}  // namespace marlex
