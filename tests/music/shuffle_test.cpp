#include "music/shuffle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

namespace marlex {
namespace {

/// The numbers of a script, in order.
std::function<float()> Script(std::vector<float> numbers) {
  return [numbers = std::move(numbers), next = std::size_t{0}]() mutable {
    return numbers.at(next++);
  };
}

std::vector<int> Shuffled(int count, std::uint32_t seed) {
  return DrawOrder(count, RandomNumbers(seed));
}

TEST(Shuffle, TheNumberTimesTheEntriesLeftDrawsTheNextOne) {
  EXPECT_EQ(DrawOrder(4, Script({0.5F, 0.0F, 0.99F, 0.7F})), (std::vector<int>{2, 0, 3, 1}));
  EXPECT_EQ(DrawOrder(4, Script({0.249F, 0.333F, 0.49F, 0.0F})), (std::vector<int>{0, 1, 2, 3}));
  EXPECT_EQ(DrawOrder(4, Script({0.25F, 0.34F, 0.5F, 0.0F})), (std::vector<int>{1, 2, 3, 0}));
  EXPECT_EQ(DrawOrder(0, Script({})), std::vector<int>{});
}

TEST(Shuffle, TheProductIsOfSinglePrecision) {
  const float number = 5.0F / 6.0F;
  ASSERT_LT(static_cast<double>(number) * 6, 5.0);
  EXPECT_EQ(DrawOrder(6, Script({number, 0, 0, 0, 0, 0})).front(), 5);
}

TEST(Shuffle, TheLargestNumberDrawsTheLastEntryAndNoneBeyond) {
  const float largest = std::nextafterf(1.0F, 0.0F);
  for (const int count : {1, 2, 3, 4, 5, 17, 1000, 16'384, 20'000, 32'767, 32'768}) {
    int numbers = 0;
    const auto order = DrawOrder(count, [&] { return numbers++ == 0 ? largest : 0.0F; });
    EXPECT_EQ(order.front(), count - 1) << count;
  }
}

TEST(Shuffle, EveryOrderIsAPermutation) {
  for (const int count : {1, 2, 3, 10, 999}) {
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
      std::vector<int> order = Shuffled(count, seed);
      std::sort(order.begin(), order.end());
      std::vector<int> all(static_cast<std::size_t>(count));
      std::iota(all.begin(), all.end(), 0);
      EXPECT_EQ(order, all) << count << " " << seed;
    }
  }
}

/// How much the counts differ: close to the number of counts minus one if only chance makes them
/// differ.
double ChiSquare(const std::vector<int>& counts, double expected) {
  double sum = 0;
  for (const int count : counts) sum += (count - expected) * (count - expected) / expected;
  return sum;
}

TEST(Shuffle, AllOrdersAreEquallyLikely) {
  constexpr int kOrders = 24;  // of four entries
  constexpr int kPresses = 24'000;
  std::map<std::vector<int>, int> counted;
  const std::uint32_t noon = ClockSeed({.Year = 2024, .Month = 1, .Day = 1, .Hour = 12});
  for (int second = 0; second < kPresses; ++second) {
    ++counted[Shuffled(4, noon + static_cast<std::uint32_t>(second))];
  }
  std::vector<int> counts;
  for (const auto& [order, count] : counted) counts.push_back(count);
  ASSERT_EQ(counts.size(), static_cast<std::size_t>(kOrders));
  EXPECT_LT(ChiSquare(counts, double(kPresses) / kOrders),
            58);  // 23 on average; 58 once in 15,000 runs
}

/// The shuffle that looks right but is biased: each song is swapped with any other.
std::vector<int> ShuffledWithABias(int count, std::uint32_t seed) {
  RandomNumbers random(seed);
  std::vector<int> order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), 0);
  for (int& song : order) {
    const auto other = static_cast<std::size_t>(random() * static_cast<float>(count));
    std::swap(song, order[other]);
  }
  return order;
}

TEST(Shuffle, AllOrdersOfSixSongsAreEquallyLikelyWhichABiasedShuffleFails) {
  constexpr int kOrders = 720;
  constexpr int kPresses = 14'400;
  const auto chiSquare = [](const auto& shuffled) {
    std::map<std::vector<int>, int> counted;
    for (std::uint32_t press = 0; press < kPresses; ++press) ++counted[shuffled(6, press * 7919)];
    std::vector<int> counts(kOrders - counted.size());  // orders that never occurred
    for (const auto& [order, count] : counted) counts.push_back(count);
    return ChiSquare(counts, double(kPresses) / kOrders);
  };
  // 719 degrees of freedom, plus six standard deviations of the sum.
  const double bound = 719 + 6 * std::sqrt(2.0 * 719);
  EXPECT_LT(chiSquare(Shuffled), bound);
  EXPECT_GT(chiSquare(ShuffledWithABias), bound);
}

TEST(Shuffle, EverySongIsEquallyLikelyAtEveryPlaceOfALongList) {
  constexpr int kSongs = 50;
  constexpr int kPresses = 10'000;
  std::vector<int> counts(kSongs * kSongs);
  for (std::uint32_t press = 0; press < kPresses; ++press) {
    const std::vector<int> order = Shuffled(kSongs, press * 7919);
    for (std::size_t place = 0; place < kSongs; ++place)
      ++counts[place * kSongs + static_cast<std::size_t>(order[place])];
  }
  // 49 times 49 degrees of freedom, plus eight standard deviations of the sum.
  EXPECT_LT(ChiSquare(counts, double(kPresses) / kSongs), 49 * 49 + 8 * std::sqrt(2.0 * 49 * 49));
}

TEST(Shuffle, NumbersReachFromNoughtToJustBelowOne) {
  RandomNumbers random(1);
  float least = 1;
  float most = 0;
  double sum = 0;
  constexpr int kNumbers = 1'000'000;
  for (int number = 0; number < kNumbers; ++number) {
    const float drawn = random();
    least = std::min(least, drawn);
    most = std::max(most, drawn);
    sum += drawn;
  }
  EXPECT_GE(least, 0.0F);
  EXPECT_LT(least, 0.0001F);
  EXPECT_LT(most, 1.0F);
  EXPECT_GT(most, 0.9999F);
  EXPECT_NEAR(sum / kNumbers, 0.5, 0.002);
}

TEST(Shuffle, TheSeedIsAnotherOneAtEachSecond) {
  const LocalTime noon{.Year = 2024, .Month = 1, .Day = 1, .Hour = 12, .Minute = 0, .Second = 0};
  LocalTime later = noon;
  later.Second = 1;
  EXPECT_EQ(ClockSeed(later), ClockSeed(noon) + 1);
  for (const auto part : {&LocalTime::Year, &LocalTime::Month, &LocalTime::Day, &LocalTime::Hour,
                          &LocalTime::Minute, &LocalTime::Second}) {
    LocalTime other = noon;
    other.*part += 1;
    EXPECT_NE(ClockSeed(other), ClockSeed(noon));
    EXPECT_NE(Shuffled(20, ClockSeed(other)), Shuffled(20, ClockSeed(noon)));
  }
}

}  // namespace
}  // namespace marlex
