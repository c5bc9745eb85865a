#include "controls/form.h"

namespace marlex {

/// Stands here, where both are known: a control enters itself in the list of its form.
Control::Control(Form& form, std::string name, int index)
    : Owner(form), Name(std::move(name)), Index(index) {
  form.Controls.push_back(this);
}

void Form::Load() {
  if (IsLoaded) return;
  if (!DesignKept) {
    for (Control* control : Controls) control->KeepDesign();
    DesignKept = true;
  }
  IsLoaded = true;
  for (Control* control : Controls) control->Changed();
  if (OnLoad) OnLoad();
}

void Form::Show() {
  Load();
  // The load of a form may end in its own unloading; such a form stays hidden.
  if (!IsLoaded) return;
  ++ShowCount;
  Visible = true;
  Self.Changed();
}

void Form::Unload() {
  if (!IsLoaded) return;
  if (OnUnload && !OnUnload()) return;
  IsLoaded = false;
  Opening.Cut();
  for (Control* control : Controls) {
    control->ResetToDesign();
    control->Changed();
  }
}

void Form::Close() {
  if (OnClose) {
    OnClose();
  } else {
    Unload();
  }
}

}  // namespace marlex
