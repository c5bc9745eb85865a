#include "controls/widgets.h"

#include <algorithm>

namespace marlex {

void OptionButton::SetValue(bool on) {
  if (on == On) return;
  if (on) {
    for (Control* control : Owner.Controls) {
      auto* other = dynamic_cast<OptionButton*>(control);
      if (other && other != this && other->Group == Group) other->On = false;
    }
  }
  On = on;
  if (on && OnClick) OnClick();
}

Slider::Position& Slider::Position::operator=(int value) {
  const auto& slider = static_cast<const Slider&>(Owner);
  Set(std::clamp(value, slider.Min.Get(), slider.Max.Get()));
  return *this;
}

}  // namespace marlex
