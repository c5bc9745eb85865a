#include "controls/control.h"

#include "controls/form.h"

namespace marlex {

Control::Control(Form& form, std::string name, int index)
    : Owner(form), Name(std::move(name)), Index(index) {
  form.Controls.push_back(this);
}

std::string Control::ObjectName() const {
  return Index == kNoIndex ? Name : Name + "_" + std::to_string(Index);
}

void Control::Changed() {
  if (Watcher) Watcher();
}

void Control::KeepDesign() {
  for (PropertyBase* property : Properties) property->KeepDesign();
}

void Control::ResetToDesign() {
  for (PropertyBase* property : Properties) property->ResetToDesign();
}

}  // namespace marlex
