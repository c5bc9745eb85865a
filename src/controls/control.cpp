#include "controls/control.h"

namespace marlex {

std::string Control::ObjectName() const {
  return Index == kNoIndex ? Name : Name + "_" + std::to_string(Index);
}

void Control::Changed() {
  ++Changes;
  if (Watcher) Watcher();
}

void Control::KeepDesign() {
  for (PropertyBase* property : Properties) property->KeepDesign();
}

void Control::ResetToDesign() {
  for (PropertyBase* property : Properties) property->ResetToDesign();
}

}  // namespace marlex
