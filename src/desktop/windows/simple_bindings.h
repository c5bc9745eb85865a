#pragma once

#include <memory>

#include "controls/widgets.h"
#include "desktop/windows/binding.h"
#include "desktop/windows/hand.h"

class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

namespace marlex {

class Card;

// The bindings that need no file of their own, by what shows the control.

std::unique_ptr<Binding> MakeBinding(Label& control, QLabel& widget);
std::unique_ptr<Binding> MakeBinding(Frame& control, Card& widget);
std::unique_ptr<Binding> MakeBinding(CommandButton& control, QPushButton& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(ToggleButton& control, QPushButton& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(CheckBox& control, QCheckBox& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(OptionButton& control, QRadioButton& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(TextBox& control, QLineEdit& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(Slider& control, QSlider& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(Menu& control, QAction& action, Hand& hand);

}  // namespace marlex
