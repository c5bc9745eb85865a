#pragma once

#include <cstdint>
#include <optional>

#include "i18n/string_table.h"
#include "scenario/inspectors/inspector.h"

namespace marlex {

/// No call outlives the finger on its button: once released, it ends as soon as its waits have
/// ended. The lamps flash while a call is being prepared or is ending, and at no other time.
class CallInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;

  void NotePress() { Held = Pressed = true; }
  void NoteRelease() { Held = false; }

  bool ButtonIsHeld() const { return Held; }         // since a press that began a call
  bool ButtonWasPressed() const { return Pressed; }  // for a call, since the start of the program

 private:
  void CheckThatSomebodyHoldsIt();

  bool Held = false;
  bool Pressed = false;
  std::optional<std::int64_t> LeftAtMs;  // when the finger left, if the call is still on
};

/// Both call buttons have this caption.
bool CallButtonsSay(Desk& desk, StringId caption);

}  // namespace marlex
