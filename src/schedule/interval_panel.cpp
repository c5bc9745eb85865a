#include "schedule/interval_panel.h"

#include <algorithm>

#include "i18n/operator_failure.h"
#include "state/week_time.h"

namespace marlex {

std::string IntervalText(int start, int intervalMinutes) {
  constexpr int kHourMinutes = 60;
  std::string text;
  for (int offset = 0; offset <= kHourMinutes - intervalMinutes; offset += intervalMinutes) {
    const int minute = (start + offset) % kHourMinutes;
    text += (text.empty() ? "" : ",") + TwoDigits(std::to_string(minute));
  }
  return text;
}

IntervalPanel::IntervalPanel(WavWindow& window) : Window(window) {
  window.cmdInterval.OnClick = [this] { Show(true); };
  window.cmdCancel.OnClick = [this] { Show(false); };
  window.cmdOK.OnClick = [this] { Accept(); };
}

void IntervalPanel::Show(bool shown) {
  Window.frMinutes.Visible = !shown;
  Window.frInterval.Visible = shown;
}

void IntervalPanel::Accept() {
  const int start = std::max(Window.cmbStart.ListIndex(), 0);
  std::string minutes;
  for (const auto& interval : Window.optInterval) {
    if (interval->Value()) minutes = IntervalText(start, interval->Index);
  }
  if (minutes.empty()) throw OperatorFailure(kStrNoInterval);
  Window.txtMinutes.Text = minutes;
  Show(false);
}

}  // namespace marlex
