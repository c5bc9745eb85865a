#pragma once

#include <string>

#include "windows/wav_window.h"

namespace marlex {

/// The panel that fills in the minutes at a regular interval from a starting minute. It is shown in
/// place of the minutes.
class IntervalPanel {
 public:
  explicit IntervalPanel(WavWindow& window);

 private:
  void Show(bool shown);
  void Accept();  // cmdOK

  WavWindow& Window;
};

/// The minutes of an hour every `intervalMinutes` from `start`, 0 to 59, on: two digits each,
/// joined by commas. They wrap at 60 and are not sorted: from 50 every 20 minutes is "50,10,30".
std::string IntervalText(int start, int intervalMinutes);

}  // namespace marlex
