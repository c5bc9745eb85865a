#pragma once

#include <string>

#include "schedule/selected_messages.h"
#include "schedule/sequence_editor.h"
#include "state/settings_store.h"
#include "windows/windows.h"

namespace marlex {

/// The twelve function keys, each with a list of messages and zones of its own in a file beside the
/// program. The message schedule editor programs them. They are stored and never fired, and the way
/// to this mode is closed in the menus: a file of them can only come from elsewhere.
class FunctionKeys {
 public:
  FunctionKeys(SettingsStore& store, Windows& windows, SequenceEditor& editor,
               SelectedMessages& messages);

  int CurrentFunctionKey = 0;  // 1 to 12; 0 until one is chosen

 private:
  void mnuFKeys_Click();
  void mnuFKey_Click(int key);
  void Save();
  std::string File() const;

  SettingsStore& Store;
  WavWindow& Window;
  SequenceEditor& Editor;
  SelectedMessages& Messages;
};

}  // namespace marlex
