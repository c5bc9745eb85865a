#include "desktop/windows/button_bindings.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/windows/press_watch.h"
#include "desktop/windows/shown_text.h"

namespace marlex {

namespace {

/// What all buttons have in common: a caption.
class ButtonBinding : public WidgetBinding {
 public:
  ButtonBinding(VisualControl& control, QAbstractButton& widget)
      : WidgetBinding(control, widget), Shown(control), Widget(widget) {}

  void Paint() override {
    const QString caption = ShownCaption(Shown.Caption);
    if (caption != Widget.text()) Widget.setText(caption);
    WidgetBinding::Paint();
  }

 protected:
  VisualControl& Shown;
  QAbstractButton& Widget;
};

class CommandBinding : public ButtonBinding {
 public:
  CommandBinding(CommandButton& button, QAbstractButton& widget, Hand& hand)
      : ButtonBinding(button, widget), Watch(widget) {
    QObject::connect(&widget, &QAbstractButton::clicked, &Watch, [&button, &hand] {
      hand.Forward(button, [&button] {
        if (button.OnClick) button.OnClick();
      });
    });
    Watch.OnPress = [this, &button, &hand](const QMouseEvent& event) {
      hand.Forward(button,
                   [this, &button, mouseButton = event.button()] { Down(button, mouseButton); });
    };
    Watch.OnRelease = [this, &button, &hand](Qt::MouseButton mouseButton) {
      hand.ForwardAlways([this, &button, mouseButton] { Up(button, mouseButton); });
    };
  }

 private:
  void Down(CommandButton& button, Qt::MouseButton mouseButton) {
    Forwarded |= mouseButton;
    if (button.OnMouseDown) button.OnMouseDown(MouseButtonOf(mouseButton));
  }

  void Up(CommandButton& button, Qt::MouseButton mouseButton) {
    if (!(Forwarded & mouseButton)) return;
    Forwarded &= ~Qt::MouseButtons(mouseButton);
    if (button.OnMouseUp) button.OnMouseUp(MouseButtonOf(mouseButton));
  }

  PressWatch Watch;
  Qt::MouseButtons Forwarded;  // pressed for the system, and not yet released
};

class ToggleBinding : public ButtonBinding {
 public:
  ToggleBinding(ToggleButton& toggle, QAbstractButton& widget, Hand& hand)
      : ButtonBinding(toggle, widget), Toggle(toggle) {
    QObject::connect(&widget, &QAbstractButton::clicked, [&toggle, &hand](bool checked) {
      hand.Forward(toggle, [&toggle, checked] { toggle.Value = checked; });
    });
  }

  void Paint() override {
    ButtonBinding::Paint();
    Widget.setChecked(Toggle.Value);
  }

 private:
  ToggleButton& Toggle;
};

class CheckBinding : public ButtonBinding {
 public:
  CheckBinding(CheckBox& check, QAbstractButton& widget, Hand& hand)
      : ButtonBinding(check, widget), Check(check) {
    QObject::connect(&widget, &QAbstractButton::clicked, [&check, &hand](bool checked) {
      hand.Forward(check, [&check, checked] { check.Value = checked ? 1 : 0; });
    });
  }

  void Paint() override {
    ButtonBinding::Paint();
    Widget.setChecked(Check.Value != 0);
  }

 private:
  CheckBox& Check;
};

class OptionBinding : public ButtonBinding {
 public:
  OptionBinding(OptionButton& option, QAbstractButton& widget, Hand& hand)
      : ButtonBinding(option, widget), Option(option) {
    QObject::connect(&widget, &QAbstractButton::clicked, [&option, &hand] {
      hand.Forward(option, [&option] { option.SetValue(true); });
      PaintGroupOf(option);
    });
  }

  void Paint() override {
    ButtonBinding::Paint();
    // An exclusive group would refuse to have all its buttons off, or to switch them in the
    // system's order.
    Widget.setAutoExclusive(false);
    Widget.setChecked(Option.Value());
    Widget.setAutoExclusive(true);
  }

 private:
  /// Repaints the group: its widgets have switched each other off, whatever the system made of the
  /// click.
  static void PaintGroupOf(OptionButton& option) {
    for (Control* control : option.Owner.Controls) {
      auto* other = dynamic_cast<OptionButton*>(control);
      if (other && other->Group == option.Group && other->Watcher) other->Watcher();
    }
  }

  OptionButton& Option;
};

}  // namespace

std::unique_ptr<Binding> MakeBinding(CommandButton& control, QPushButton& widget, Hand& hand) {
  return std::make_unique<CommandBinding>(control, widget, hand);
}

std::unique_ptr<Binding> MakeBinding(ToggleButton& control, QPushButton& widget, Hand& hand) {
  return std::make_unique<ToggleBinding>(control, widget, hand);
}

std::unique_ptr<Binding> MakeBinding(CheckBox& control, QCheckBox& widget, Hand& hand) {
  return std::make_unique<CheckBinding>(control, widget, hand);
}

std::unique_ptr<Binding> MakeBinding(OptionButton& control, QRadioButton& widget, Hand& hand) {
  return std::make_unique<OptionBinding>(control, widget, hand);
}

}  // namespace marlex
