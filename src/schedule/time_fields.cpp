#include "schedule/time_fields.h"

#include <charconv>

#include "i18n/operator_failure.h"

namespace marlex {
namespace {

constexpr int kLastHour = 23;
constexpr int kLastMinute = 59;

bool HasOnly(const std::string& text, const char* allowed) {
  return text.find_first_not_of(allowed) == std::string::npos;
}

/// A number that is too large for an `int` is above the limit too.
bool IsAbove(const std::string& number, int limit) {
  if (number.empty()) throw OperatorFailure(kStrNumberMissing);
  int value = 0;
  const auto end = std::from_chars(number.data(), number.data() + number.size(), value);
  return end.ec == std::errc::result_out_of_range || value > limit;
}

template <class List>
bool AnyIsAbove(const List& list, int count, int limit) {
  bool above = false;
  for (int entry = 1; entry <= count && !above; ++entry)
    above = IsAbove(list[static_cast<std::size_t>(entry)], limit);
  return above;
}

}  // namespace

void TimeFields::TestValidity() {
  HoursValid = true;
  MinutesValid = true;
  if (!HasOnly(Window.txtHours.Text, "0123456789,-")) {
    Refuse(HoursValid, kStrHoursCharacters);
  } else if (!HasOnly(Window.txtMinutes.Text, "0123456789,")) {
    Refuse(MinutesValid, kStrMinutesCharacters);
  } else {
    TestHours();
    if (HoursValid) TestMinutes();
  }
}

/// In a list, ranges are expanded first, and each hour is tested.
void TimeFields::TestHours() {
  const std::string& hours = Window.txtHours.Text;
  bool above = false;
  if (hours.find_first_of(",-") != std::string::npos) {
    Times.HourExpression = hours;
    Times.ParseHours();
    above = AnyIsAbove(Times.HourList, Times.HourCount, kLastHour);
  } else {
    above = IsAbove(hours, kLastHour);
  }
  if (above) Refuse(HoursValid, kStrHoursValue);
}

void TimeFields::TestMinutes() {
  const std::string& minutes = Window.txtMinutes.Text;
  bool above = false;
  if (minutes.find(',') != std::string::npos) {
    Times.MinuteExpression = minutes;
    Times.ParseMinutes();
    above = AnyIsAbove(Times.MinuteList, Times.MinuteCount, kLastMinute);
  } else {
    above = IsAbove(minutes, kLastMinute);
  }
  if (above) Refuse(MinutesValid, kStrMinutesValue);
}

void TimeFields::Refuse(bool& valid, StringId message) {
  valid = false;
  TheNotices.Error(message);
}

}  // namespace marlex
