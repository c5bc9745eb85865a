#include "music/playlist_times.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "i18n/string_table.h"
#include "state/week_time.h"
#include "text/digit_mask.h"
#include "text/numbers.h"
#include "text/text_case.h"

namespace marlex {

namespace {

constexpr int kHours = 24;
constexpr int kMinutes = 60;
constexpr int kChecked = 1;

void FillUpTo(ComboBox& list, int end) {
  for (int value = 0; value < end; ++value) list.AddItem(TwoDigits(std::to_string(value)));
}

/// Selects the entry whose index the text holds. If the text is no number, or there is no such
/// entry, clears the selection.
void SelectNumber(ComboBox& list, std::string_view text) {
  const bool hasDigit = text.find_first_of("0123456789") != std::string_view::npos;
  const int index = hasDigit ? ToNumber(std::string(text)).value_or(-1) : -1;
  list.SetListIndex(index >= 0 && index < list.ListCount() ? index : ListBox::kNoSelection);
}

/// Shows a time "HH:MM": the hour is characters 1 and 2, the minute 4 and 5, whatever is between
/// them.
void SelectTime(ComboBox& hours, ComboBox& minutes, const std::string& time) {
  SelectNumber(hours, CharactersFrom(time, 1, 2));
  SelectNumber(minutes, CharactersFrom(time, 4, 2));
}

std::string TimeIn(const ComboBox& hours, const ComboBox& minutes) {
  return hours.Text() + ":" + minutes.Text();
}

}  // namespace

void PlaylistTimes::Fill() {
  for (ComboBox* hours : {&Window.cmbStartHours, &Window.cmbStopHours}) FillUpTo(*hours, kHours);
  for (ComboBox* minutes : {&Window.cmbStartMinutes, &Window.cmbStopMinutes})
    FillUpTo(*minutes, kMinutes);
}

void PlaylistTimes::Clear() {
  for (ComboBox* list : Lists()) list->SetListIndex(ListBox::kNoSelection);
  for (const auto& day : Window.chkDays) day->Value = 0;
}

void PlaylistTimes::Show(const Settings& settings) {
  SelectTime(Window.cmbStartHours, Window.cmbStartMinutes, settings.MusicStartTime);
  SelectTime(Window.cmbStopHours, Window.cmbStopMinutes, settings.MusicStopTime);
  // Days past the end of the mask are off.
  const std::string mask = settings.MusicWeekDays + std::string(kWeekdays, '0');
  const std::vector<bool> on = DigitsInPlace(mask, kWeekdays).value();
  for (int day = 0; day < kWeekdays; ++day)
    Window.chkDays[day].Value = on[static_cast<std::size_t>(day)] ? kChecked : 0;
}

bool PlaylistTimes::AnyIsChosen() const {
  const auto lists = Lists();
  return Window.frMusicTime.Visible && std::any_of(lists.begin(), lists.end(), [](ComboBox* list) {
           return list->ListIndex() != ListBox::kNoSelection;
         });
}

int PlaylistTimes::Missing() const {
  constexpr std::array kWords = {kStrStartHoursEmpty, kStrStartMinutesEmpty, kStrStopHoursEmpty,
                                 kStrStopMinutesEmpty};
  const auto lists = Lists();
  for (std::size_t list = 0; list < lists.size(); ++list) {
    if (lists[list]->ListIndex() == ListBox::kNoSelection) return kWords[list];
  }
  return 0;
}

std::string PlaylistTimes::Start() const {
  return TimeIn(Window.cmbStartHours, Window.cmbStartMinutes);
}

std::string PlaylistTimes::Stop() const {
  return TimeIn(Window.cmbStopHours, Window.cmbStopMinutes);
}

std::string PlaylistTimes::Days() const {
  std::vector<bool> on;
  for (const auto& day : Window.chkDays) on.push_back(day->Value == kChecked);
  return DigitMask(on);
}

std::array<ComboBox*, 4> PlaylistTimes::Lists() const {
  return {&Window.cmbStartHours, &Window.cmbStartMinutes, &Window.cmbStopHours,
          &Window.cmbStopMinutes};
}

}  // namespace marlex
