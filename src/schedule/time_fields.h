#pragma once

#include "i18n/notices.h"
#include "schedule/time_expressions.h"
#include "windows/wav_window.h"

namespace marlex {

/// Validates the fields of hours and minutes. Only what passes is saved; a file that is opened is
/// trusted.
class TimeFields {
 public:
  TimeFields(WavWindow& window, Notices& notices) : Window(window), TheNotices(notices) {}

  bool HoursValid = false;
  bool MinutesValid = false;

  /// Sets both flags and shows an error box for the first check that fails. Throws `RuntimeFailure`
  /// for faults that have no text of their own: more than 30 items or 24 hours, an item without a
  /// number, a range without a lower bound.
  void TestValidity();

 private:
  void TestHours();
  void TestMinutes();
  void Refuse(bool& valid, StringId message);

  WavWindow& Window;
  Notices& TheNotices;
  TimeExpressions Times;
};

}  // namespace marlex
