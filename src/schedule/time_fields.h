#pragma once

#include "i18n/string_table.h"
#include "schedule/time_expressions.h"
#include "state/notices.h"
#include "windows/wav_window.h"

namespace marlex {

/// Judges what stands in the fields of hours and minutes. Only what passes is saved; a file that is
/// opened is trusted.
class TimeFields {
 public:
  TimeFields(WavWindow& window, const StringTable& strings, Notices& notices)
      : Window(window), Strings(strings), TheNotices(notices) {}

  bool HoursValid = false;
  bool MinutesValid = false;

  /// Sets both flags and shows the message of the first check that fails. A RuntimeFailure for what
  /// has no message: more than 30 items or 24 hours, an item without a number, a range without a
  /// lower bound.
  void TestValidity();

 private:
  void TestHours();
  void TestMinutes();
  void Refuse(bool& valid, StringId message);

  WavWindow& Window;
  const StringTable& Strings;
  Notices& TheNotices;
  TimeExpressions Times;
};

}  // namespace marlex
