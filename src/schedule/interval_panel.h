#pragma once

#include <string>

#include "windows/wav_window.h"

namespace marlex {

/// Fills the minutes of an hour at an interval from a starting minute, on a panel that takes the
/// place of the minutes.
class IntervalPanel {
 public:
  explicit IntervalPanel(WavWindow& window);

 private:
  void Show(bool shown);
  void Accept();  // cmdOK

  WavWindow& Window;
};

/// The minutes of an hour every `intervalMinutes` from `start` on, two digits each, joined by
/// commas. They wrap at 60 without touching the hour, and are not sorted.
std::string IntervalText(int start, int intervalMinutes);

}  // namespace marlex
