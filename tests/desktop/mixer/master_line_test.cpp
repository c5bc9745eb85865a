#include "desktop/mixer/master_line.h"

#include <chrono>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/process/qt_event_loop.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

constexpr StereoLevel kFullBoth{};
constexpr StereoLevel kHalf{32768, 20000};

/// A card's master that the test can remove and bring back.
class ScriptedMaster : public CardMaster {
 public:
  std::optional<CardState> Found() const override { return State; }
  void Wish(const CardWish& wish) override { Wished = wish; }
  void SetWanted(bool wanted) override { Wanted.push_back(wanted); }
  void Settle() override { ++Settles; }

  void Come(const CardState& state) {
    State = state;
    OnChange();
  }
  void Go() {
    State.reset();
    OnChange();
  }

  std::optional<CardState> State;
  CardWish Wished;
  std::vector<bool> Wanted;
  int Settles = 0;
};

class MasterLineTest : public testing::Test {
 protected:
  void Make(const std::optional<CardState>& found) {
    auto card = std::make_unique<ScriptedMaster>();
    card->State = found;
    Card = card.get();
    Line = std::make_unique<MasterLine>(Loop, Engine, std::move(card), [this] { return Alive; });
  }

  void LetPass(std::chrono::milliseconds time) {
    bool over = false;
    const auto timer = Loop.StartTimer(static_cast<int>(time.count()), [&] { over = true; });
    Loop.PumpUntil([&] { return over; });
    Loop.StopTimer(timer);
  }

  QtEventLoop Loop;
  SoundLine Engine;
  bool Alive = true;
  ScriptedMaster* Card = nullptr;
  std::unique_ptr<MasterLine> Line;
};

TEST_F(MasterLineTest, TheCardsOwnMasterIsReadAndSetAndTheEnginesStaysFull) {
  Make(CardState{kHalf, true});
  EXPECT_EQ(Line->Level(), kHalf);
  EXPECT_TRUE(Line->Muted());
  Line->SetLevel({10, 20});
  EXPECT_EQ(Card->Wished.Level, (StereoLevel{10, 20}));
  EXPECT_EQ(Card->Wished.Muted, std::nullopt) << "what nobody set is left to the card";
  EXPECT_EQ(Engine.Level(), kFullBoth);
  EXPECT_EQ(Line->Level(), (StereoLevel{10, 20}));
}

TEST_F(MasterLineTest, WithoutAMasterOfTheCardTheEnginesIsTheLine) {
  Make(std::nullopt);
  EXPECT_EQ(Line->Level(), kFullBoth);
  EXPECT_FALSE(Line->Muted());
  Line->SetLevel(kHalf);
  EXPECT_EQ(Engine.Level(), kHalf);
  EXPECT_EQ(Line->Level(), kHalf);
}

TEST_F(MasterLineTest, AMuteIsSetAtBoth) {
  Make(CardState{});
  Line->SetMute(true);
  EXPECT_TRUE(Engine.Muted());
  EXPECT_EQ(Card->Wished.Muted, true);
  EXPECT_TRUE(Line->Muted());
  Line->SetMute(false);
  EXPECT_FALSE(Engine.Muted());
  EXPECT_EQ(Card->Wished.Muted, false);
  EXPECT_FALSE(Line->Muted());
}

TEST_F(MasterLineTest, TheEngineTakesTheLevelWhileTheCardsMasterIsAway) {
  Make(CardState{});
  Line->SetLevel(kHalf);
  Card->Go();
  EXPECT_EQ(Engine.Level(), kHalf);
  Line->SetLevel({1, 2});
  EXPECT_EQ(Engine.Level(), (StereoLevel{1, 2}));
  EXPECT_EQ(Card->Wished.Level, (StereoLevel{1, 2})) << "for when it comes back";
  Card->Come(CardState{});
  EXPECT_EQ(Engine.Level(), kFullBoth);
  EXPECT_EQ(Line->Level(), (StereoLevel{1, 2}));
}

TEST_F(MasterLineTest, WhatWasSetIsReadBackHoweverTheCardRoundsIt) {
  Make(CardState{});
  Line->SetLevel({32768, 32768});
  Card->State = CardState{{31711, 31711}, false};
  EXPECT_EQ(Line->Level(), (StereoLevel{32768, 32768}));
}

TEST_F(MasterLineTest, WhileTheOutputIsAwayNoOtherCardsMasterIsTouched) {
  Make(CardState{});
  LetPass(700ms);
  EXPECT_EQ(Card->Wanted, std::vector<bool>{});
  Alive = false;
  LetPass(700ms);
  EXPECT_EQ(Card->Wanted, std::vector<bool>{false});
  Alive = true;
  LetPass(1200ms);
  EXPECT_EQ(Card->Wanted, (std::vector<bool>{false, true}));
}

TEST_F(MasterLineTest, TheMeterIsTheEngines) {
  Make(CardState{});
  Engine.Meter(1.0F);
  EXPECT_EQ(Line->Peak(), kFullPeak);
  EXPECT_EQ(Line->Peak(), 0);
}

TEST_F(MasterLineTest, SettlingWaitsForTheCard) {
  Make(CardState{});
  Line->Settle();
  EXPECT_EQ(Card->Settles, 1);
}

}  // namespace
}  // namespace marlex
