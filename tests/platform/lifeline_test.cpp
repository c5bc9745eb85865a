#include "platform/lifeline.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace marlex {
namespace {

TEST(Lifeline, AnAnswerComesWithItsValuesWhileTheTieHolds) {
  const Lifeline line;
  std::string answers;
  const std::function<void(const std::string&)> answer =
      line.Guard([&](const std::string& text) { answers += text; });
  answer("a");
  answer("b");
  EXPECT_EQ(answers, "ab");
}

TEST(Lifeline, ACutKeepsEarlierAnswersAwayAndNoLaterOnes) {
  Lifeline line;
  std::string answers;
  const auto before = line.Guard([&] { answers += "before "; });
  const Lifeline::Tie tie = line.Now();
  line.Cut();
  const auto after = line.Guard([&] { answers += "after "; });
  before();
  after();
  EXPECT_EQ(answers, "after ");
  EXPECT_FALSE(tie.Holds());
  EXPECT_TRUE(line.Now().Holds());
}

TEST(Lifeline, NothingReachesAnOwnerWhoHasGone) {
  auto line = std::make_unique<Lifeline>();
  bool answered = false;
  const auto answer = line->Guard([&] { answered = true; });
  line.reset();
  answer();
  EXPECT_FALSE(answered);
}

}  // namespace
}  // namespace marlex
