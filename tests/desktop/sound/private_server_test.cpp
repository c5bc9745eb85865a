#include "desktop/sound/private_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace marlex {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

TEST(PrivateServer, OneThatDoesNotComeUpIsAnErrorThatSaysWhy) {
  const char* const wanted = getenv("MARLEX_SOUND_SERVER");
  const std::string before = wanted ? wanted : "";  // the script takes an empty one for none
  setenv("MARLEX_SOUND_SERVER", "nowhere", 1);
  EXPECT_THAT([] { const PrivateServer server(kOneCard); },
              ThrowsMessage<std::runtime_error>(HasSubstr("asks for \"nowhere\"")));
  setenv("MARLEX_SOUND_SERVER", before.c_str(), 1);
}

TEST(PrivateServer, AKilledOneLeavesItsSocketAndStartsAgainOnIt) {
  PrivateServer server(kOneCard);
  const char* const home = getenv("HOME");
  ASSERT_TRUE(home);
  const std::string socket = std::string(home) + "/native";
  server.Kill();
  EXPECT_TRUE(std::filesystem::is_socket(socket));
  EXPECT_EQ(server.Level(0), -1);
  server.Start();
  EXPECT_EQ(server.Level(0), 65536);
}

TEST(PrivateServer, IsGoneAfterwardsAndNoOtherIsInItsPlace) {
  std::string folder;
  {
    const PrivateServer server(kOneCard);
    folder = getenv("HOME");
  }
  EXPECT_FALSE(std::filesystem::exists(folder));
  EXPECT_STREQ(getenv("PULSE_SERVER"), "unix:/nonexistent");
}

}  // namespace
}  // namespace marlex
