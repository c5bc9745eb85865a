#include "schedule/time_expressions.h"

#include <algorithm>
#include <cstdlib>

#include "i18n/operator_failure.h"
#include "state/week_time.h"
#include "text/text_case.h"

namespace marlex {
namespace {

/// Number at the beginning of the text, 0 if there is none; clamped well beyond any hour, so that
/// counting from it cannot overflow.
int Value(const std::string& text) {
  constexpr long kBeyondAnyHour = 1'000'000;
  return static_cast<int>(
      std::clamp(std::strtol(text.c_str(), nullptr, 10), -kBeyondAnyHour, kBeyondAnyHour));
}

}  // namespace

void TimeExpressions::FindCommas(const std::string& expression) {
  ItemCount = 0;
  std::size_t position = 0;
  for (;;) {
    const std::size_t comma = expression.find(',', position);
    if (comma == std::string::npos) break;
    if (ItemCount + 1 > kMostItems) throw OperatorFailure(kStrTooManyItems);
    CommaPositions[static_cast<std::size_t>(ItemCount) + 1] = static_cast<int>(comma) + 1;
    position = comma + 1;
    ++ItemCount;
  }
  ++ItemCount;
}

void TimeExpressions::ParseHours() {
  NextHourSlot = 1;
  HourCount = 0;
  ExpandHourItems();
  HourCount = NextHourSlot - 1;
}

/// Item number `item`, counted from 1, of an expression whose commas have been found. Only the last
/// item is cut, to `longestLast` characters.
std::string TimeExpressions::Item(const std::string& expression, int item, int longestLast) const {
  if (item > kMostItems) throw OperatorFailure(kStrTooManyItems);
  const auto place = static_cast<std::size_t>(item);
  const auto start = static_cast<std::size_t>(CommaPositions[place - 1]);
  const int comma = CommaPositions[place];
  if (comma != 0) return expression.substr(start, static_cast<std::size_t>(comma) - 1 - start);
  return std::string(FirstCharacters(std::string_view(expression).substr(start),
                                     static_cast<std::size_t>(longestLast)));
}

void TimeExpressions::ExpandHourItems() {
  constexpr int kLongestLastItem = 5;
  CommaPositions.fill(0);
  FindCommas(HourExpression);
  for (int item = 1; item <= ItemCount; ++item)
    AddHourItem(Item(HourExpression, item, kLongestLastItem));
}

void TimeExpressions::AddHourItem(const std::string& item) {
  if (item.find('-') != std::string::npos) {
    ExpandHourRange(item);
  } else {
    StoreHour(item);
  }
}

/// A range whose upper bound is not above the lower one runs past midnight. Deliberate: equal
/// bounds are not a single hour, but the whole day and the first hour again, which is more than the
/// list holds.
void TimeExpressions::ExpandHourRange(const std::string& rangeItem) {
  const auto dash = rangeItem.find('-');
  if (dash == 0) throw OperatorFailure(kStrNoLowerBound);
  const int lower = Value(rangeItem.substr(0, dash));
  const int upper = Value(rangeItem.substr(dash + 1, 2));
  if (upper > lower) {
    for (int hour = lower; hour <= upper; ++hour) StoreHour(std::to_string(hour));
    return;
  }
  int hour = lower;
  for (int turn = lower; turn <= upper + 24; ++turn) {
    StoreHour(std::to_string(hour));
    if (++hour == 24) hour = 0;
  }
}

void TimeExpressions::StoreHour(const std::string& hour) {
  if (NextHourSlot > kMostHours) throw OperatorFailure(kStrTooManyHours);
  HourList[static_cast<std::size_t>(NextHourSlot)] = TwoDigits(hour);
  ++NextHourSlot;
}

void TimeExpressions::ParseMinutes() {
  constexpr int kLongestLastItem = 2;
  MinuteCount = 0;
  CommaPositions.fill(0);
  FindCommas(MinuteExpression);
  if (ItemCount == 1) {
    // A single item is not cut.
    MinuteExpression = TwoDigits(MinuteExpression);
    MinuteList[1] = MinuteExpression;
  } else {
    for (int item = 1; item <= ItemCount; ++item) {
      MinuteList[static_cast<std::size_t>(item)] =
          TwoDigits(Item(MinuteExpression, item, kLongestLastItem));
    }
  }
  MinuteCount = ItemCount;
}

}  // namespace marlex
