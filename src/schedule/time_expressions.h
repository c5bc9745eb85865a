#pragma once

#include <array>
#include <string>

namespace marlex {

/// Expands an hour and a minute expression into lists of two-digit texts. An hour expression is a
/// list of numbers and ranges such as "8-10,14", a minute expression a list of numbers such as
/// "00,30"; neither contains blanks. Validates nothing: a sequence file is trusted, and an odd item
/// gives an odd text.
class TimeExpressions {
 public:
  static constexpr int kMostItems = 30;
  static constexpr int kMostHours = 24;
  static constexpr int kMostMinutes = 60;

  std::string HourExpression;
  std::string MinuteExpression;  // ParseMinutes may put a "0" before a single digit

  /// Positions of the commas, counted from 1, at indices 1 to 30; 0 where there is none, and always
  /// at index 0.
  std::array<int, kMostItems + 1> CommaPositions{};
  int ItemCount = 0;  // commas plus one

  /// The hours, at indices 1 to HourCount, in the order of the expression.
  std::array<std::string, kMostHours + 1> HourList;
  int NextHourSlot = 1;
  int HourCount = 0;
  std::array<std::string, kMostMinutes + 1> MinuteList;  // indices 1 to MinuteCount
  int MinuteCount = 0;

  // Each throws `RuntimeFailure`: `FindCommas` for more than 30 commas, the others for more than 30
  // items, and `ParseHours` also for a range without a lower bound and for more than 24 hours,
  // which includes any range with equal bounds.
  void FindCommas(const std::string& expression);
  void ParseHours();
  void ParseMinutes();

 private:
  void ExpandHourItems();
  void AddHourItem(const std::string& item);
  void ExpandHourRange(const std::string& rangeItem);
  void StoreHour(const std::string& hour);
  std::string Item(const std::string& expression, int item, int longestLast) const;
};

}  // namespace marlex
