#include <algorithm>
#include <array>

#include "scenario/watched_desk.h"

namespace marlex {

/// Failures that an operator can bring about by what he chooses, or types into the editor.
bool WatchedDesk::IsOperatorsFault(const std::string& failure) {
  if (failure == "No message schedule was found in the selection") return true;
  constexpr std::array kFaults{"No interval is chosen",
                               "More than 30 items in a time expression",
                               "More than 24 hours in a time expression",
                               "An hour range has no lower bound",
                               "A number is missing in the hours or the minutes",
                               " is shorter than "};
  return EditorIsOpen() && std::any_of(kFaults.begin(), kFaults.end(), [&](const char* fault) {
           return failure.find(fault) != std::string::npos;
         });
}

bool WatchedDesk::EditorIsOpen() { return Sys->TheWindows.TheWavWindow.Loaded(); }

/// While the editor is open the schedule stands still, unless the end of a call, of an announcement
/// or of a song with a waiting row has switched the tick on. Its closing switches the tick on
/// whatever goes on then, a row that waits for the song's end included.
void WatchedDesk::CheckEditor() {
  const bool tickOn = Sys->TheFrmPlayers.tmrMessage.Enabled;
  const bool opened = EditorIsOpen() && !Before.EditorOpen;
  const bool closed = !EditorIsOpen() && Before.EditorOpen;
  if (opened) Require(!tickOn, "The editor opens, and the tick is on");
  // Either way the tick's timer no longer tells whether a row has fired.
  if (opened || closed) TickBegunInWaits.reset();
  if (opened || closed) Before.LastMinute = Sys->Tick.LastMinute;
  if (closed) Require(tickOn, "The editor has closed, and the tick is off");
  if (EditorIsOpen() && tickOn && !Before.TickOn) {
    const bool called = Before.CallActive || TickOffByCall || CallStands;
    Require(called || Before.Awaiting || Before.WaitCount > 1,
            "The tick comes on under the editor without a reason");
  }
  EditorOverWaitingRow =
      State().MessageAwaitingSongEnd && (EditorOverWaitingRow || EditorIsOpen() || closed);
  CheckView();
}

/// The table shows all days behind the editor. Closed, it leaves the view that it found, also when
/// the operator has turned the view menus meanwhile.
void WatchedDesk::CheckView() {
  const bool menu = Main().mnuAllDays.Checked;
  Require(menu != Main().mnuCurrentDay.Checked, "Both views are ticked, or none");
  if (!Before.EditorOpen && (menu != Before.AllDaysTicked || !Before.MainShown)) ViewOwed = menu;
  if (!EditorIsOpen())
    Require(Values().AllDaysView == ViewOwed, "The view is not what the menus have made it");
}

/// A preview ends with the editor and with what goes before it. In a language whose word for
/// closing is no command its stop leaves the message sounding.
void WatchedDesk::CheckPreview() {
  if (JournalHas(" wav play ", Before.Lines)) {
    const bool called = State().CallActive || Before.CallActive || TickOffByCall || CallStands;
    PreviewSounds = EditorIsOpen() && !State().MessagePlaying && !called;
  }
  PreviewSounds = PreviewSounds && Pc.Wav.Mode() == kWavePlaying;
  if (!PreviewSounds) return;
  Require(EditorIsOpen(), "A preview sounds, and the editor is closed");
  Require(!OutrunsPreviews(), "A preview sounds under what goes before it");
}

/// What the operator has set, in the order of the file.
std::vector<std::string> WatchedDesk::ReadFields() {
  if (!EditorIsOpen()) return {};
  WavWindow& editor = Sys->TheWindows.TheWavWindow;
  std::string days;
  for (const auto& day : editor.WkDays)
    days += static_cast<char>(day->Value != 0 ? '1' + day->Index : '0');
  return {editor.txtHours.Text, editor.txtMinutes.Text, days, BuildZoneText(editor),
          editor.optExact.Value() ? "Exact" : "Between"};
}

/// The pause behind a save begins when all six values are in its file, or when it was cancelled. An
/// event in the pause may have changed the fields already.
void WatchedDesk::CheckSave() {
  const std::string& file = Pc.Dialogs.LastSavePath;
  const bool writing = Sys->TheWindows.TheWavWindow.tmrWriteDelay.Enabled;
  if (Before.Writing || !writing || file.empty() || Before.Fields.empty()) return;
  std::vector<std::string> fields = Before.Fields;
  fields.insert(fields.begin(), Sys->Editor.MessagesText);
  constexpr std::array kKeys{"Message(s)", "Hour(s)", "Minute(s)",
                             "Weekday(s)", "Zone(s)", "Timer"};
  constexpr std::size_t kLongestValue = 1499;
  for (std::size_t key = 0; key < kKeys.size(); ++key) {
    Require(Setting("Schedule", kKeys[key], file) == fields[key].substr(0, kLongestValue),
            std::string("A save has not written ") + kKeys[key]);
  }
  ++Corners["a save"];
}

}  // namespace marlex
