#include "desktop/mixer/pulse_master.h"

#include <gtest/gtest.h>

#include "desktop/sound/private_server.h"

namespace marlex {
namespace {

constexpr int kLimitMs = 20000;  // for what must happen, however busy the machine is

class PulseMasterTest : public testing::Test {
 protected:
  PrivateServer Server{kOneCard};
};

TEST_F(PulseMasterTest, AnOutputThatIsNotThereHasNoMaster) {
  EXPECT_NE(PulseMaster::Open("card"), nullptr);
  EXPECT_EQ(PulseMaster::Open("other"), nullptr);
}

TEST_F(PulseMasterTest, AnOutputThatIsTakenAwayIsReportedAndAnotherIsNot) {
  Server.Control("load-module module-null-sink sink_name=other");
  const auto card = PulseMaster::Open("card");
  const auto other = PulseMaster::Open("other");
  ASSERT_TRUE(card && other);
  std::vector<pollfd> events;
  card->AppendDescriptors(events);
  other->AppendDescriptors(events);
  ASSERT_EQ(events.size(), 2u);
  Server.RemoveOutput("card");
  ASSERT_EQ(poll(events.data(), nfds_t(events.size()), kLimitMs), 1);
  EXPECT_FALSE(card->HandleEvents());
  EXPECT_TRUE(other->HandleEvents());
  Server.AddOutput("card");
  EXPECT_FALSE(card->Apply({std::nullopt, true}));
  EXPECT_FALSE(Server.IsMuted());
}

TEST_F(PulseMasterTest, OneVolumeForAllChannelsIsTheLouderSide) {
  Server.Control("load-module module-null-sink sink_name=mono channels=1");
  const auto master = PulseMaster::Open("mono");
  ASSERT_TRUE(master);
  ASSERT_TRUE(master->Apply({StereoLevel{16384, 32768}, std::nullopt}));
  EXPECT_NE(Server.Control("get-sink-volume mono").find("mono: 32769"), std::string::npos);
  const auto again = PulseMaster::Open("mono");
  ASSERT_TRUE(again);
  EXPECT_EQ(again->Read().Level, (StereoLevel{32768, 32768}));
}

TEST_F(PulseMasterTest, OfManyChannelsThoseOfASideFollowIt) {
  Server.Control(
      "load-module module-null-sink sink_name=cinema channels=6 "
      "channel_map=surround-51");
  const auto master = PulseMaster::Open("cinema");
  ASSERT_TRUE(master);
  ASSERT_TRUE(master->Apply({StereoLevel{10000, 30000}, std::nullopt}));
  const std::string volume = Server.Control("get-sink-volume cinema");
  for (const char* channel : {"front-left: 10000", "rear-left: 10000", "front-right: 30000",
                              "rear-right: 30000", "front-center: 20000", "lfe: 20000"}) {
    EXPECT_NE(volume.find(channel), std::string::npos) << channel << "\n" << volume;
  }
}

}  // namespace
}  // namespace marlex
