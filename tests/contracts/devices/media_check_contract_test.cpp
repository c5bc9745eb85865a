// What every implementation of `MediaCheck` promises.

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "contracts/devices/player_bench.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

class MediaCheckContract : public testing::TestWithParam<PcKind> {
 protected:
  /// Asks again and again, as the system does, for as long as the port may take.
  bool Becomes(const std::string& path, MediaState state) {
    const auto due = std::chrono::steady_clock::now() + 8s;
    while (Of(path) != state) {
      if (std::chrono::steady_clock::now() > due) return false;
      std::this_thread::sleep_for(50ms);
    }
    return true;
  }
  MediaState Of(const std::string& path) {
    Bench->Check().Watch({{path, KindOf(path)}});
    return Bench->Check().States().at(0);
  }
  static MediumKind KindOf(const std::string& path) {
    if (path.ends_with(".lst")) return MediumKind::TextFile;
    return path.ends_with(".mp3") ? MediumKind::Song : MediumKind::Message;
  }

  const std::unique_ptr<PlayerBench> Bench = MakePlayerBench(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Pc, MediaCheckContract, kBothPcs, NameOf);

TEST_P(MediaCheckContract, ASoundOfItsKindIsGood) {
  EXPECT_TRUE(Becomes(Bench->Wav("gong.wav", 500), MediaState::Good));
  EXPECT_TRUE(Becomes(Bench->Mp3("march.mp3", 500), MediaState::Good));
}

TEST_P(MediaCheckContract, WhatIsNotThereIsMissing) {
  EXPECT_TRUE(Becomes(Bench->Path("gong.wav"), MediaState::Missing));
  EXPECT_TRUE(Becomes(Bench->Path("nowhere/march.mp3"), MediaState::Missing));
}

TEST_P(MediaCheckContract, WhatIsNoSoundIsUnplayable) {
  EXPECT_TRUE(Becomes(Bench->Noise("gong.wav"), MediaState::Unplayable));
  EXPECT_TRUE(Becomes(Bench->Noise("march.mp3"), MediaState::Unplayable));
}

TEST_P(MediaCheckContract, AFileIsInspectedAgainWhenItIsAskedForLater) {
  const std::string gong = Bench->Wav("gong.wav", 500);
  ASSERT_TRUE(Becomes(gong, MediaState::Good));
  Bench->Remove(gong);
  EXPECT_TRUE(Becomes(gong, MediaState::Missing));
  Bench->Noise("gong.wav");
  EXPECT_TRUE(Becomes(gong, MediaState::Unplayable));
  Bench->Wav("gong.wav", 500);
  EXPECT_TRUE(Becomes(gong, MediaState::Good));
}

TEST_P(MediaCheckContract, ANameInOtherLettersFindsTheFile) {
  Bench->Wav("Gong.wav", 500);
  EXPECT_TRUE(Becomes(Bench->Path("gong.WAV"), MediaState::Good));
}

TEST_P(MediaCheckContract, StatesAreInTheOrderOfTheFilesThatAreWatched) {
  const std::string gong = Bench->Wav("gong.wav", 500);
  const std::string march = Bench->Mp3("march.mp3", 500);
  ASSERT_TRUE(Becomes(gong, MediaState::Good));
  ASSERT_TRUE(Becomes(march, MediaState::Good));
  ASSERT_TRUE(Becomes(Bench->Path("none.wav"), MediaState::Missing));
  Bench->Check().Watch({{march, MediumKind::Song},
                        {Bench->Path("none.wav"), MediumKind::Message},
                        {gong, MediumKind::Message}});
  EXPECT_EQ(Bench->Check().States(),
            (std::vector{MediaState::Good, MediaState::Missing, MediaState::Good}));
  Bench->Check().Watch({});
  EXPECT_TRUE(Bench->Check().States().empty());
}

TEST_P(MediaCheckContract, ATextFileIsGoodWhateverIsInIt) {
  const std::string list = Bench->Noise("Day.lst");
  EXPECT_TRUE(Becomes(list, MediaState::Good));
  Bench->Remove(list);
  EXPECT_TRUE(Becomes(list, MediaState::Missing));
}

}  // namespace
}  // namespace marlex
