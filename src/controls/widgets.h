#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/form.h"

namespace marlex {

/// A control that can be seen: a text, a place and a look. Lengths are in twips.
class VisualControl : public Control {
 public:
  using Control::Control;

  Property<std::string> Caption{*this, ""};
  Property<std::string> Tag{*this, ""};  // id of the text that replaces the caption in translation
  Property<std::string> ToolTipText{*this, ""};
  Property<bool> Enabled{*this, true};
  Property<bool> Visible{*this, true};
  Property<Color> BackColor{*this, kButtonFace};
  Property<Color> ForeColor{*this, kButtonText};
  Property<int> Left{*this, 0};
  Property<int> Top{*this, 0};
  Property<int> Width{*this, 0};
  Property<int> Height{*this, 0};
};

class Frame : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::Frame; }
};

class Label : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::Label; }
};

enum class MouseButton { Left, Right, Middle };

class CommandButton : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::CommandButton; }

  std::function<void()> OnClick;
  std::function<void(MouseButton)> OnMouseDown;
  std::function<void(MouseButton)> OnMouseUp;
};

/// A button that stays down when pressed; `Value` is true when it is down.
class ToggleButton : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::ToggleButton; }

  std::function<void()> OnChange;
  Property<bool> Value{*this, false, &OnChange};
};

/// `Value` is 1 when checked, else 0.
class CheckBox : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::CheckBox; }

  std::function<void()> OnClick;
  Property<int> Value{*this, 0, &OnClick};
};

/// One of a group of buttons of which only one is on: switching one on switches the others off. The
/// buttons of an array form a group.
class OptionButton : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::OptionButton; }

  std::string Group = Name;

  std::function<void()> OnClick;

  bool Value() const { return On; }
  void SetValue(bool on);

 private:
  Property<bool> On{*this, false};
};

class TextBox : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::TextBox; }

  std::function<void()> OnChange;
  Property<std::string> Text{*this, "", &OnChange};
};

/// A position between `Min` and `Max`; a value outside is set to the nearer end.
class Slider : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::Slider; }

  Property<int> Min{*this, 0};
  Property<int> Max{*this, 65535};
  std::function<void()> OnChange;

  class Position : public Property<int> {
   public:
    using Property<int>::Property;
    Position& operator=(int value);
  };
  Position Value{*this, 0, &OnChange};
};

/// A picture. That of a meter is a bar, which is either dark or lit from `BarTop` down to its foot.
class Picture : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::PictureBox; }

  Property<bool> Lit{*this, false};
  Property<int> BarTop{*this, 0};  // pixels from the top of the bar
};

class Menu : public VisualControl {
 public:
  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::Menu; }

  std::string TextId;  // id of its text; if empty, the caption is never translated
  Property<bool> Checked{*this, false};
  std::function<void()> OnClick;
};

}  // namespace marlex
