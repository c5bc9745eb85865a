#include "platform/event_queue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace marlex {
namespace {

using std::chrono::milliseconds;

/// A queue whose events write one word each.
class EventQueueTest : public ::testing::Test {
 protected:
  std::function<void()> Word(const std::string& word) {
    return [this, word] { Words += word + " "; };
  }

  /// Delivers all events that are due at `ms`.
  std::string DeliverAt(int ms) {
    Words.clear();
    for (auto next = Queue.FindNext(); next && next->Due <= milliseconds(ms);
         next = Queue.FindNext())
      (*Queue.Take(*next, milliseconds(ms)))();
    return Words;
  }

  EventQueue Queue;
  std::string Words;
};

TEST_F(EventQueueTest, GivesEventsInTheOrderOfTheirDueTime) {
  Queue.Add(milliseconds(30), Word("c"));
  Queue.Add(milliseconds(10), Word("a"));
  Queue.Add(milliseconds(20), Word("b"));
  EXPECT_EQ(DeliverAt(20), "a b ");
  EXPECT_EQ(DeliverAt(30), "c ");
}

TEST_F(EventQueueTest, GivesEqualsInTheOrderInWhichTheyWereQueued) {
  Queue.Add(milliseconds(10), Word("a"));
  Queue.StartTimer(milliseconds(0), milliseconds(10), Word("b"));
  Queue.Add(milliseconds(10), Word("c"));
  EXPECT_EQ(DeliverAt(10), "a b c ");
}

TEST_F(EventQueueTest, QueuesATimerAgainAfterItsEquals) {
  Queue.StartTimer(milliseconds(0), milliseconds(10), Word("a"));
  Queue.StartTimer(milliseconds(0), milliseconds(20), Word("b"));
  EXPECT_EQ(DeliverAt(10), "a ");
  EXPECT_EQ(DeliverAt(20), "b a ");
}

TEST_F(EventQueueTest, ATimerKeepsItsCadenceAndDropsWhatIsPast) {
  Queue.StartTimer(milliseconds(0), milliseconds(10), Word("a"));
  EXPECT_EQ(DeliverAt(13), "a ");
  EXPECT_EQ(DeliverAt(19), "");
  EXPECT_EQ(DeliverAt(45), "a ");  // and not for 30 and 40 again
  EXPECT_EQ(Queue.FindNext()->Due, milliseconds(50));
  EXPECT_EQ(DeliverAt(50), "a ");  // a due time that is this moment is no past one
  EXPECT_EQ(Queue.FindNext()->Due, milliseconds(60));
}

TEST_F(EventQueueTest, AStoppedTimerIsGoneAndItsCallbackEndsInPeace) {
  EventQueue::TimerId timer = 0;
  const auto word = std::make_shared<std::string>("whole");
  timer = Queue.StartTimer(milliseconds(0), milliseconds(10), [&, word] {
    Queue.StopTimer(timer);
    Words += *word;
  });
  EXPECT_EQ(DeliverAt(10), "whole");
  EXPECT_EQ(word.use_count(), 1);
  EXPECT_FALSE(Queue.FindNext());
  Queue.StopTimer(timer);
  Queue.StopTimer(99);
}

TEST_F(EventQueueTest, AMarkSeparatesWhatWasQueuedSinceFromWhatWaited) {
  Queue.Add(milliseconds(10), Word("a"));
  const auto newcomers = Queue.Newcomers();
  EXPECT_LT(Queue.FindNext()->Order, newcomers);
  Queue.Add(milliseconds(5), Word("b"));
  EXPECT_GE(Queue.FindNext()->Order, newcomers);
}

TEST_F(EventQueueTest, ATimerThatCameSinceTheMarkIsANewcomer) {
  Queue.StartTimer(milliseconds(0), milliseconds(10), Word("a"));
  const auto newcomers = Queue.Newcomers();
  DeliverAt(10);
  EXPECT_GE(Queue.FindNext()->Order, newcomers);
}

TEST_F(EventQueueTest, ClearLeavesNothing) {
  Queue.Add(milliseconds(10), Word("a"));
  Queue.StartTimer(milliseconds(0), milliseconds(10), Word("b"));
  Queue.Clear();
  EXPECT_EQ(DeliverAt(100), "");
}

/// Compared with a plain list, sorted by due time and otherwise in the order of queueing.
TEST_F(EventQueueTest, AThousandEventsComeAsFromASortedList) {
  std::mt19937 dice(7);
  std::vector<std::pair<int, int>> expected;
  for (int event = 0; event < 1000; ++event) {
    const int due = static_cast<int>(dice() % 50);
    expected.emplace_back(due, event);
    Queue.Add(milliseconds(due), Word(std::to_string(event)));
  }
  std::ranges::stable_sort(expected, {}, &std::pair<int, int>::first);
  std::string words;
  for (const auto& [due, event] : expected) words += std::to_string(event) + " ";
  EXPECT_EQ(DeliverAt(50), words);
}

}  // namespace
}  // namespace marlex
