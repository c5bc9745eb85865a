#include "desktop/amplifier/amplifier_line.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desktop/await.h"
#include "desktop/serial/tty_serial_port.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

/// The amplifier's end of the line and the port of a desk, in one folder.
class AmplifierLineTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "amplifier_XXXXXX").string();
    Folder = mkdtemp(pattern.data());
    Link = Folder / "com1";
    Line = std::make_unique<AmplifierLine>(Loop, Link.string());
    Line->OnBytes = [this](std::string_view bytes) { Routed += bytes; };
    Line->OnDesk = [this] { Visits += Line->HasDesk() ? "+" : "-"; };
  }
  void TearDown() override {
    Port.reset();
    Line.reset();
    fs::remove_all(Folder);
  }

  void OpenPort() {
    Port = std::make_unique<TtySerialPort>(
        Loop, SerialPlaces{Folder.string(), (Folder / "dev").string()});
    Port->OnComm = [this] { Heard += Port->Input(); };
    Port->SetPortOpen(true);
  }

  testing::AssertionResult Await(const std::function<bool()>& done) {
    return marlex::Await(Loop, done);
  }

  /// Whether a byte passes each way.
  testing::AssertionResult Carries(const std::string& routing, const std::string& status) {
    Routed.clear();
    Heard.clear();
    Port->Output(routing);
    testing::AssertionResult routed = Await([&] { return Routed == routing; });
    if (!routed || !Line->Send(status[0])) return testing::AssertionFailure() << "no way there";
    return Await([&] { return Heard == status; });
  }

  /// What `Open` answers, with the folder left out.
  std::string Fault() {
    std::string fault = Line->Open();
    const std::size_t place = fault.find(Folder.string() + "/");
    return place == std::string::npos ? fault : fault.erase(place, Folder.string().size() + 1);
  }

  QtEventLoop Loop;
  fs::path Folder;
  fs::path Link;
  std::unique_ptr<AmplifierLine> Line;
  std::unique_ptr<TtySerialPort> Port;
  std::string Routed;
  std::string Heard;
  std::string Visits;
};

TEST_F(AmplifierLineTest, TheDesksPortFindsItAndBytesPassBothWays) {
  ASSERT_EQ(Fault(), "");
  OpenPort();
  EXPECT_TRUE(Port->Connected());
  EXPECT_TRUE(Carries("\x43", "\x80"));
  EXPECT_TRUE(Carries(std::string("\0\x7F\xBF", 3), "\xC0"));
}

TEST_F(AmplifierLineTest, TheDeskMayCloseTheLineAndOpenItAgain) {
  ASSERT_EQ(Fault(), "");
  for (int round = 0; round < 3; ++round) {
    OpenPort();
    EXPECT_TRUE(Carries("\x41", "\x40")) << round;
    Port->Output("\x7F");
    Port.reset();
    EXPECT_TRUE(Await([&] { return !Line->HasDesk(); })) << round;
    EXPECT_EQ(Routed, "\x41\x7F") << "what the desk has sent at its end";
  }
  EXPECT_EQ(Visits, "+-+-+-");
}

/// A device that was opened exclusively refuses everybody but root from then on.
TEST_F(AmplifierLineTest, EachDeskGetsADeviceOfItsOwn) {
  ASSERT_EQ(Fault(), "");
  OpenPort();
  ASSERT_TRUE(Await([&] { return Line->HasDesk(); }));
  const fs::path device = fs::canonical(Link);
  Port.reset();
  ASSERT_TRUE(Await([&] { return !Line->HasDesk(); }));
  EXPECT_NE(fs::canonical(Link), device);
}

TEST_F(AmplifierLineTest, NothingIsSentWhileNoDeskIsThere) {
  ASSERT_EQ(Fault(), "");
  EXPECT_FALSE(Line->HasDesk());
  EXPECT_FALSE(Line->Send('\x80'));
  OpenPort();
  EXPECT_TRUE(Carries("\x41", "\x40"));
}

TEST_F(AmplifierLineTest, TheLinkGoesWithIt) {
  ASSERT_EQ(Fault(), "");
  EXPECT_TRUE(fs::is_symlink(Link));
  Line.reset();
  EXPECT_FALSE(fs::exists(fs::symlink_status(Link)));
  EXPECT_TRUE(fs::is_empty(Folder));
}

TEST_F(AmplifierLineTest, AnotherLinkThatHasTakenItsPlaceStays) {
  ASSERT_EQ(Fault(), "");
  fs::remove(Link);
  fs::create_symlink("/dev/null", Link);
  Line.reset();
  EXPECT_EQ(fs::read_symlink(Link), "/dev/null");
}

TEST_F(AmplifierLineTest, ALinkThatLeadsNowhereIsReplaced) {
  for (const char* target : {"/dev/pts/987654", "/nonexistent/device"}) {
    fs::remove(Link);
    fs::create_symlink(target, Link);
    ASSERT_EQ(Fault(), "") << target;
    OpenPort();
    EXPECT_TRUE(Carries("\x41", "\x40")) << target;
    TearDown();
    SetUp();
  }
}

TEST_F(AmplifierLineTest, ALinkToADeviceStays) {
  fs::create_symlink("/dev/null", Link);
  EXPECT_EQ(Fault(), "com1 leads to /dev/null already");
  Line.reset();
  EXPECT_EQ(fs::read_symlink(Link), "/dev/null");
}

TEST_F(AmplifierLineTest, TheLinkOfAnUnpluggedAdapterStays) {
  fs::create_symlink("/dev/serial/by-id/amplifier", Link);
  EXPECT_EQ(Fault(), "com1 belongs to /dev/serial/by-id/amplifier, which is unplugged");
  Line.reset();
  EXPECT_EQ(fs::read_symlink(Link), "/dev/serial/by-id/amplifier");
}

TEST_F(AmplifierLineTest, AFileOfThatNameStays) {
  std::ofstream(Link) << "notes";
  EXPECT_EQ(Fault(), "com1 is in the way: it is not a link");
  Line.reset();
  EXPECT_EQ(fs::file_size(Link), 5u);
}

TEST_F(AmplifierLineTest, ASecondAmplifierLeavesTheFirstOneItsLine) {
  ASSERT_EQ(Fault(), "");
  const fs::path first = fs::read_symlink(Link);
  {
    AmplifierLine second(Loop, Link.string());
    EXPECT_EQ(second.Open(), Link.string() + " leads to " + first.string() + " already");
  }
  OpenPort();
  EXPECT_TRUE(Carries("\x41", "\x40"));
}

TEST_F(AmplifierLineTest, AFolderThatIsGoneIsAFault) {
  fs::remove_all(Folder);
  EXPECT_EQ(Fault(), "the link com1 cannot be made: No such file or directory");
}

}  // namespace
}  // namespace marlex
