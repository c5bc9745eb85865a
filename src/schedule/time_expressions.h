#pragma once

#include <array>
#include <string>

namespace marlex {

/// Expands an hour and a minute expression into lists of two-digit texts. An hour expression is a
/// list of numbers and ranges such as "8-10,14", a minute expression a list of numbers such as
/// "00,30"; there are no blanks. Nothing here validates: a sequence file is trusted, and odd items
/// come out as odd texts.
class TimeExpressions {
 public:
  static constexpr int kMostItems = 30;
  static constexpr int kMostHours = 24;
  static constexpr int kMostMinutes = 60;

  std::string HourExpression;
  std::string MinuteExpression;  // ParseMinutes may put a "0" before a single digit

  /// Positions of the commas, from 1, at the indices 1 to 30; 0 where there is none, and always at
  /// index 0.
  std::array<int, kMostItems + 1> CommaPositions{};
  int ItemCount = 0;  // commas plus one

  std::array<std::string, kMostHours + 1>
      HourList;  // indices 1 to HourCount, in order of production
  int NextHourSlot = 1;
  int HourCount = 0;
  std::array<std::string, kMostMinutes + 1> MinuteList;  // indices 1 to MinuteCount
  int MinuteCount = 0;

  // Each of these is a RuntimeFailure for more than 30 items, and ParseHours for more than 24
  // hours, which a range with equal bounds asks for too.
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
