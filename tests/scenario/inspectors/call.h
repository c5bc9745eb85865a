#pragma once

#include <cstdint>
#include <optional>

#include "i18n/string_table.h"
#include "scenario/inspectors/inspector.h"

namespace marlex {

/// No call outlives the finger on its key: one whose release leaves its waits ends with them. The
/// lamps flash while a call is prepared or ends, and for nothing else.
class CallInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;

  void NotePress() { Held = Pressed = true; }
  void NoteRelease() { Held = false; }

  bool KeyIsHeld() const { return Held; }         // since a press that began a call
  bool KeyWasPressed() const { return Pressed; }  // for a call, since the start of the program

 private:
  void CheckThatSomebodyHoldsIt();

  bool Held = false;
  bool Pressed = false;
  std::optional<std::int64_t> LeftAtMs;  // by the finger, and the call is still on
};

/// Both call keys have this caption.
bool CallKeysSay(Desk& desk, StringId caption);

}  // namespace marlex
