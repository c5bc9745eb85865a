#pragma once

#include <string>

#include "schedule/selected_messages.h"
#include "schedule/sequence_editor.h"
#include "state/profile_store.h"
#include "windows/windows.h"

namespace marlex {

/// The twelve function keys, each with its own messages and zones, in a file beside the program. A
/// mode of the message schedule editor programs them. Deliberate: they are stored and never fired,
/// and the menu of this mode is disabled, so an existing file can only come from elsewhere.
class FunctionKeys {
 public:
  FunctionKeys(ProfileStore& store, Windows& windows, SequenceEditor& editor,
               SelectedMessages& messages);

  int CurrentFunctionKey = 0;  // 1 to 12; 0 until one is chosen

 private:
  void mnuFKeys_Click();
  void mnuFKey_Click(int key);
  void Save();
  std::string File() const;

  ProfileStore& Store;
  WavWindow& Window;
  SequenceEditor& Editor;
  SelectedMessages& Messages;
};

}  // namespace marlex
