#include "scenario/inspectors/sequence_save.h"

#include <array>

#include "schedule/editor_masks.h"

namespace marlex {
namespace {

constexpr std::array kKeys{"Message(s)", "Hour(s)", "Minute(s)", "Weekday(s)", "Zone(s)", "Timer"};
constexpr std::size_t kLongestValue = 1499;

}  // namespace

void SequenceSaveInspector::Check() {
  const std::string& file = TheDesk.Pc.Dialogs.LastSavePath;
  if (WasInPause || !IsInPause() || file.empty() || Fields.empty()) return;
  std::vector<std::string> values = Fields;
  values.insert(values.begin(), TheDesk.Sys->Editor.MessagesText);
  for (std::size_t key = 0; key < kKeys.size(); ++key) {
    Require(TheDesk.Setting("Schedule", kKeys[key], file) == values[key].substr(0, kLongestValue),
            std::string("A save has not written ") + kKeys[key]);
  }
  ++Corners["a save"];
}

void SequenceSaveInspector::Remember() {
  Fields = ReadFields();
  WasInPause = IsInPause();
}

std::vector<std::string> SequenceSaveInspector::ReadFields() const {
  if (!SequenceEdits.IsOpen()) return {};
  WavWindow& window = TheDesk.Sys->TheWindows.TheWavWindow;
  std::string days;
  for (const auto& day : window.WkDays)
    days += static_cast<char>(day->Value != 0 ? '1' + day->Index : '0');
  return {window.txtHours.Text, window.txtMinutes.Text, days, BuildZoneText(window),
          window.optExact.Value() ? "Exact" : "Between"};
}

}  // namespace marlex
