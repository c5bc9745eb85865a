#pragma once

#include <functional>
#include <string>

#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "platform/event_loop.h"
#include "platform/lifeline.h"
#include "schedule/conflicts.h"
#include "schedule/message_preview.h"
#include "schedule/schedule_table.h"
#include "schedule/selected_messages.h"
#include "schedule/time_fields.h"
#include "state/settings_store.h"
#include "windows/windows.h"

namespace marlex {

/// The message schedule editor: opens, saves and closes one sequence file at a time. Opening
/// it holds the schedule (`FrmPlayers::HoldSchedule`) and shows all days in the main window's
/// table; closing it undoes both.
class SequenceEditor {
 public:
  SequenceEditor(SettingsStore& store, EventLoop& loop, Dialogs& dialogs,
                 const Directories& directories, Windows& windows, FrmPlayers& frmPlayers,
                 ScheduleTable& table, const Conflicts& conflicts, SelectedMessages& messages,
                 TimeFields& times, MessagePreview& preview, const StringTable& strings,
                 Notices& notices);

  bool FunctionKeyMode = false;   // the window edits function keys, not sequence files
  bool SavedAllDaysView = false;  // AllDaysView as it was when the editor opened
  bool WriteDone = false;         // tmrWriteDelay has fired
  std::string ChosenFile;         // path that the open dialog returned
  std::string MessagesText;       // message list last read or built
  std::string WeekdayText;        // weekdays last read or built

  /// Saves in `FunctionKeyMode`; set by `FunctionKeys`.
  std::function<void()> SaveFunctionKey;

  /// Reports to the operator that a file could not be written.
  void ReportNotSaved(const std::string& file);

 private:
  void mnuSchedule_Click();
  void ReportNoDirectory();
  void Load();
  void HoldAndShowAllDays();
  void PrepareControls();
  void ArrangeZones();
  bool Unload();

  void mnuOpen_Click();
  void Open(const std::string& file);

  void mnuSave_Click();
  bool FieldsAreFilled();
  void Save(const std::string& file);  // waits half a second, or until the editor closes
  bool Write(const std::string& file);

  SettingsStore& Store;
  EventLoop& Loop;
  Dialogs& TheDialogs;
  const Directories& TheDirectories;
  WavWindow& Window;
  FrmSettings& TheFrmSettings;
  FrmPlayers& TheFrmPlayers;
  ScheduleTable& Table;
  const Conflicts& TheConflicts;
  SelectedMessages& Messages;
  TimeFields& Times;
  MessagePreview& Preview;
  const StringTable& Strings;
  Notices& TheNotices;
  /// Cut by the next save: of several that overlap, the last closes the editor.
  Lifeline LastSave;
};

}  // namespace marlex
