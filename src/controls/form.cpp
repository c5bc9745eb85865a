#include "controls/form.h"

namespace marlex {

/// Defined here, where both classes are known: a control adds itself to the list of its form.
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
  // Loading a form may end with unloading it; it then stays hidden.
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
