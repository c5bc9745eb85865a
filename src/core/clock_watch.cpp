#include "core/clock_watch.h"

#include <cstdlib>

#include "state/week_time.h"

namespace marlex {
namespace {

constexpr std::int64_t kJumpMs = 5000;  // less is a correction, which costs no row
constexpr int kLooksShown = 5 * 60;

bool IsJump(std::int64_t fromMs, std::int64_t toMs) { return std::abs(toMs - fromMs) > kJumpMs; }

bool IsSameDay(const LocalTime& one, const LocalTime& other) {
  return one.Year == other.Year && one.Month == other.Month && one.Day == other.Day;
}

std::string DateText(const LocalTime& time) {
  return std::to_string(time.Year) + "-" + TwoDigits(std::to_string(time.Month)) + "-" +
         TwoDigits(std::to_string(time.Day)) + " ";
}

/// Both times, with their dates if these differ.
std::string SpanText(const LocalTime& before, const LocalTime& after) {
  const bool isSameDay = IsSameDay(before, after);
  return (isSameDay ? "" : DateText(before)) + SecondText(before) + " – " +
         (isSameDay ? "" : DateText(after)) + SecondText(after);
}

}  // namespace

void ClockWatch::Look() {
  if (LooksLeft > 0 && --LooksLeft == 0) JumpText.clear();
  const std::int64_t aheadMs = Clock.AheadMs();
  if (LastAheadMs && IsJump(*LastAheadMs, aheadMs)) Note(aheadMs);
  LastAheadMs = aheadMs;
  LastTime = Clock.Now();
}

void ClockWatch::Note(std::int64_t aheadMs) {
  if (JumpText.empty()) FormerAheadMs = *LastAheadMs;
  const bool isSetBack = !JumpText.empty() && !IsJump(FormerAheadMs, aheadMs);
  JumpText = isSetBack ? "" : SpanText(LastTime, Clock.Now());
  LooksLeft = kLooksShown;
}

}  // namespace marlex
