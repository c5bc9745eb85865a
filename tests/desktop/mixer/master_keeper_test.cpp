#include "desktop/mixer/master_keeper.h"

#include <time.h>

#include <chrono>
#include <memory>
#include <ostream>
#include <thread>

#include <gtest/gtest.h>

#include "desktop/await.h"
#include "desktop/mixer/alsa_master.h"
#include "desktop/mixer/pulse_master.h"
#include "desktop/sound/private_server.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

constexpr int kServerFull = 65536;  // steps of the server's own scale

double ProcessCpuMs() {
  timespec used{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
  return used.tv_sec * 1e3 + used.tv_nsec / 1e6;
}

/// The server's step for one of our levels.
int Step(int level) { return static_cast<int>((65536LL * level + 32767) / 65535); }

/// A master reached by either of the two ways.
struct Door {
  const char* Name;
  std::unique_ptr<MasterDevice> (*Open)();
};

void PrintTo(const Door& door, std::ostream* out) { *out << door.Name; }

const Door kDoors[] = {
    {"Alsa", []() -> std::unique_ptr<MasterDevice> { return AlsaMaster::Open("pulse:card"); }},
    {"Pulse", []() -> std::unique_ptr<MasterDevice> { return PulseMaster::Open("card"); }}};

class MasterKeeperTest : public testing::TestWithParam<Door> {
 protected:
  void Make() {
    Master = std::make_unique<MasterKeeper>(Loop, GetParam().Open);
    Master->OnChange = [this] { ++Changes; };
  }

  testing::AssertionResult Await(const std::function<bool()>& done) {
    return marlex::Await(Loop, done);
  }

  PrivateServer Server{kOneCard};
  QtEventLoop Loop;
  std::unique_ptr<MasterKeeper> Master;
  int Changes = 0;
};

TEST_P(MasterKeeperTest, TheMasterIsFoundWithItsLevelAndMute) {
  Server.Control("set-sink-volume card 32768 16384");
  Server.Control("set-sink-mute card 1");
  Make();
  ASSERT_TRUE(Master->Found());
  EXPECT_EQ(*Master->Found(), (CardState{{32768, 16384}, true}));
}

TEST_P(MasterKeeperTest, LevelsAndMutesReachTheCardAndNothingElseIsTouched) {
  Make();
  Master->Wish({StereoLevel{40000, 10000}, std::nullopt});
  Master->Settle();
  EXPECT_EQ(Server.Level(0), Step(40000));
  EXPECT_EQ(Server.Level(1), Step(10000));
  EXPECT_FALSE(Server.IsMuted());
  Master->Wish({StereoLevel{0, 65535}, true});
  Master->Settle();
  EXPECT_EQ(Server.Level(0), 0);
  EXPECT_EQ(Server.Level(1), kServerFull);
  EXPECT_TRUE(Server.IsMuted());
  Master->Wish({StereoLevel{65535, 65535}, false});
  Master->Settle();
  EXPECT_EQ(Server.Level(0), kServerFull);
  EXPECT_FALSE(Server.IsMuted());
}

TEST_P(MasterKeeperTest, OfManyWishesTheLastOneCounts) {
  Make();
  const auto begin = SteadyClock::now();
  for (int level = 0; level <= 5000; ++level) {
    Master->Wish({StereoLevel{level, level}, std::nullopt});
  }
  EXPECT_LT(SteadyClock::now() - begin, 2s);
  EXPECT_TRUE(Await([&] { return Server.Level(0) == Step(5000); }));
}

TEST_P(MasterKeeperTest, AServerThatStartsAgainGetsLevelAndMuteAsTheyWereSet) {
  Make();
  Master->Wish({StereoLevel{30000, 20000}, true});
  Master->Settle();
  Server.Kill();
  ASSERT_TRUE(Await([&] { return !Master->Found() && Changes == 1; }));
  Server.Start();
  ASSERT_TRUE(Await([&] { return Master->Found() && Changes == 2; }));
  EXPECT_EQ(Server.Level(0), Step(30000));
  EXPECT_EQ(Server.Level(1), Step(20000));
  EXPECT_TRUE(Server.IsMuted());
}

TEST_P(MasterKeeperTest, ACardThatWasAwayGetsItsLevelWhenItIsWantedAgain) {
  Make();
  Master->Wish({StereoLevel{30000, 30000}, std::nullopt});
  Master->Settle();
  Master->SetWanted(false);
  ASSERT_TRUE(Await([&] { return !Master->Found(); }));
  Server.Control("set-sink-volume card 65536");
  Master->Wish({StereoLevel{20000, 20000}, std::nullopt});
  Master->Settle();
  EXPECT_EQ(Server.Level(0), kServerFull) << "touched while it was not wanted";
  Master->SetWanted(true);
  ASSERT_TRUE(Await([&] { return Master->Found().has_value(); }));
  EXPECT_EQ(Server.Level(0), Step(20000));
}

TEST_P(MasterKeeperTest, AServerThatHangsHoldsNobodyUp) {
  Make();
  Server.Freeze();
  const auto begin = SteadyClock::now();
  Master->Wish({StereoLevel{1000, 1000}, true});
  EXPECT_EQ(Master->Found(), (CardState{StereoLevel{}, false}));
  EXPECT_LT(SteadyClock::now() - begin, 50ms);
  Master->Settle();
  EXPECT_LT(SteadyClock::now() - begin, 2s);
  Master->Wish({StereoLevel{2000, 2000}, true});
  Server.Thaw();
  EXPECT_TRUE(Await([&] { return Server.Level(0) == Step(2000) && Server.IsMuted(); }));
}

TEST_P(MasterKeeperTest, AServerThatHangsForSecondsGetsTheLastWishWhenItGoesOn) {
  Make();
  Server.Freeze();
  Master->Wish({StereoLevel{1000, 1000}, std::nullopt});
  std::this_thread::sleep_for(4s);
  Master->Wish({StereoLevel{2000, 2000}, std::nullopt});
  Server.Thaw();
  EXPECT_TRUE(Await([&] { return Server.Level(0) == Step(2000); }));
  EXPECT_TRUE(Await([&] { return Master->Found().has_value(); }));
}

TEST_P(MasterKeeperTest, TheEndDoesNotWaitForAServerThatHangs) {
  Make();
  Server.Freeze();
  Master->Wish({StereoLevel{1000, 1000}, true});
  std::this_thread::sleep_for(100ms);
  const auto begin = SteadyClock::now();
  Master.reset();
  EXPECT_LT(SteadyClock::now() - begin, 5s);
  Server.Thaw();
}

TEST_P(MasterKeeperTest, WithoutAServerThereIsNoMasterAndTheSearchIsQuietAndCheap) {
  Server.Kill();
  testing::internal::CaptureStderr();
  Make();
  EXPECT_FALSE(Master->Found());
  const double before = ProcessCpuMs();
  bool over = false;
  Loop.StartTimer(2500, [&] { over = true; });
  Loop.PumpUntil([&] { return over; });
  EXPECT_LT(ProcessCpuMs() - before, 200.0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(Changes, 0);
}

TEST_P(MasterKeeperTest, AMasterThatRestsCostsNothing) {
  Make();
  Master->Settle();
  bool over = false;
  Loop.StartTimer(2000, [&] { over = true; });
  const double before = ProcessCpuMs();
  Loop.PumpUntil([&] { return over; });
  EXPECT_LT(ProcessCpuMs() - before, 20.0);
}

TEST(AlsaMaster, ADeviceThatPassedToAnotherCardIsNotTouched) {
  const PrivateServer server{kOneCard};
  EXPECT_NE(AlsaMaster::Open("pulse:card", "PulseAudio"), nullptr);
  EXPECT_EQ(AlsaMaster::Open("pulse:card", "USB Audio"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Doors, MasterKeeperTest, testing::ValuesIn(kDoors),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace marlex
