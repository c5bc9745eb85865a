#include "tools/machine.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

/// A machine with the command `marlex-unattended` and a service manager that logs what it is asked.
class Unattended : public Machine {
 protected:
  void SetUp() override {
    Machine::SetUp();
    Take("install/marlex-unattended");
    fs::create_symlink("/bin/sh", Root / "tools/sh");
    Program("bin/systemctl", "echo \"systemctl $*\" >> \"$MACHINE/log\"");
  }

  int Ask(const std::string& command, const std::string& variables = "") {
    return Run("install/marlex-unattended " + command, variables);
  }
  fs::path Chosen() const { return fs::read_symlink(Root / ".config/marlex/unattended"); }
  bool IsOn() const { return fs::exists(Root / kEntry); }

  static constexpr const char* kEntry = ".config/autostart/marlex.desktop";
};

TEST_F(Unattended, StartsTheOperatorsFolderWithTheSession) {
  EXPECT_EQ(Ask("on"), 0) << Said;
  EXPECT_EQ(Chosen(), fs::canonical(Root / ".local/share/marlex"));
  EXPECT_NE(Read(kEntry).find("\nExec=marlex-unattended start\n"), std::string::npos);
  EXPECT_EQ(Read("log"), "") << "nothing starts at once";
}

TEST_F(Unattended, StartsTheLastFolderThatWasGiven) {
  EXPECT_EQ(Ask("on '../two desks/upper'"), 0);
  EXPECT_EQ(Ask("on '../two desks/lower'"), 0);
  EXPECT_EQ(Chosen(), fs::canonical(Root / "two desks/lower"));
  EXPECT_EQ(fs::canonical(Root / ".config/marlex/unattended"), Chosen());
}

TEST_F(Unattended, FollowsTheOperatorsConfigurationDirectory) {
  EXPECT_EQ(Ask("on", "XDG_CONFIG_HOME=" + (Root / "settings").string()), 0);
  EXPECT_TRUE(fs::exists(Root / "settings/autostart/marlex.desktop"));
  EXPECT_FALSE(IsOn());
}

TEST_F(Unattended, FollowsTheOperatorsDataDirectory) {
  EXPECT_EQ(Ask("on", "XDG_DATA_HOME=" + (Root / "data").string()), 0);
  EXPECT_EQ(Chosen(), fs::canonical(Root / "data/marlex"));
}

TEST_F(Unattended, IsOffAgainAndKeepsTheFolder) {
  Ask("on ../desk");
  Write("desk/Tolvo.ini", "settings");
  EXPECT_EQ(Ask("off"), 0);
  EXPECT_FALSE(IsOn());
  EXPECT_FALSE(fs::exists(fs::symlink_status(Root / ".config/marlex/unattended")));
  EXPECT_EQ(Read("desk/Tolvo.ini"), "settings");
  EXPECT_EQ(Ask("off"), 0) << "it was off before";
}

TEST_F(Unattended, ShowsTheServiceManagerTheDisplayAndStarts) {
  Ask("on");
  EXPECT_EQ(Ask("start"), 0);
  EXPECT_EQ(Read("log"),
            "systemctl --user import-environment DISPLAY WAYLAND_DISPLAY XAUTHORITY\n"
            "systemctl --user start marlex.service\n");
}

TEST_F(Unattended, StartsWithoutADisplayToShow) {
  Ask("on");
  Program("bin/systemctl", "[[ $2 == start ]] && echo \"$*\" > \"$MACHINE/log\"");
  EXPECT_EQ(Ask("start"), 0) << Said;
  EXPECT_EQ(Read("log"), "--user start marlex.service\n");
}

TEST_F(Unattended, DoesNotStartWithoutAFolder) {
  EXPECT_EQ(Ask("start"), 1);
  EXPECT_TRUE(Says("no folder is chosen")) << Said;
  EXPECT_EQ(Read("log"), "");
}

TEST_F(Unattended, RefusesAFolderThatIsAFileAndKeepsTheOneBefore) {
  Ask("on ../desk");
  Write("file", "a file");
  EXPECT_EQ(Ask("on ../file"), 1);
  EXPECT_TRUE(Says("the folder ../file cannot be created")) << Said;
  EXPECT_EQ(Chosen(), fs::canonical(Root / "desk"));
  EXPECT_EQ(Ask("on ''"), 1);
  EXPECT_TRUE(Says("the name of the folder is empty")) << Said;
  EXPECT_EQ(Chosen(), fs::canonical(Root / "desk"));
}

TEST_F(Unattended, LeavesAFolderAloneThatIsWhereItsLinkBelongs) {
  Write(".config/marlex/unattended/Tolvo.ini", "settings");
  EXPECT_EQ(Ask("on ../desk"), 1);
  EXPECT_TRUE(Says(".config/marlex/unattended is a folder: move it away")) << Said;
  EXPECT_FALSE(IsOn());
  EXPECT_FALSE(fs::exists(Root / ".config/marlex/unattended/desk"));
  EXPECT_EQ(Ask("start"), 1);
  EXPECT_TRUE(Says("no folder is chosen")) << Said;
  EXPECT_EQ(Read("log"), "");
}

TEST_F(Unattended, ExplainsItselfAndRefusesWhatItDoesNotKnow) {
  EXPECT_EQ(Ask("--help"), 0);
  EXPECT_TRUE(Says("Usage: marlex-unattended on [FOLDER]")) << Said;
  for (const char* command : {"", "maybe", "off now", "on ../upper ../lower"})
    EXPECT_EQ(Ask(command), 2) << command;
  EXPECT_FALSE(IsOn());
}

}  // namespace
}  // namespace marlex
